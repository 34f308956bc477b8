// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <platform/Dialogs.h>
#include <ui/Theme.h>

#include <QDialog>

namespace flitmark {

/// A question to the user in a window of the desktop, over all other windows of the program. Return means the first
/// button, Escape and closing the window the last one. The window may come while the user types: no button has the
/// keyboard, so that a space answers nothing.
class QuestionWindow final : public QDialog
{
    Q_OBJECT

public:
    QuestionWindow(const Dialogs::Question& question, const Theme& theme);
    Q_DISABLE_COPY_MOVE(QuestionWindow)

    /// Shows the question in the middle of the main screen, with the keyboard.
    void showCentered();

    void reject() override;

Q_SIGNALS:
    /// Comes once; the window is hidden by then.
    void answered(qsizetype button);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QLayout* makeButtons(const QStringList& buttons);
    void answer(qsizetype button);

    qsizetype m_lastButton;
    bool m_isAnswered = false;
};

} // namespace flitmark
