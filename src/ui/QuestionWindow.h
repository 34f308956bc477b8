// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <platform/Dialogs.h>
#include <ui/KeyPause.h>
#include <ui/SchemeFollower.h>

#include <QDialog>

namespace flitmark {

/// A question to the user in a window of the desktop, over all other windows of the program or over one of them. Return
/// means the first button, Escape and closing the window the last one. The window may come while the user types: for
/// half a second no key does anything, and no button has the keyboard, so that a space answers nothing.
class QuestionWindow final : public QDialog
{
    Q_OBJECT

public:
    /// `palette` colours it, in the desktop's scheme. It keeps the user from the window of `parent`, without one from
    /// all other windows. The run loop must outlive it.
    QuestionWindow(const Dialogs::Question& question, ColorPalette palette, RunLoop& runLoop,
                   QWidget* parent = nullptr);
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
    QWidget* makeHotkeyLine(const KeyMonitor& hotkey);
    QLayout* makeButtons(const QStringList& buttons);
    void answer(qsizetype button);

    SchemeFollower m_scheme;
    KeyPause m_keyPause;
    qsizetype m_lastButton;
    bool m_isAnswered = false;
};

} // namespace flitmark
