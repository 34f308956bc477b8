// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

namespace flitmark {

class QuickTagEditor;
class TextField;

/// The card in which a new quick tag is written.
class NewTagRow final : public QWidget
{
    Q_OBJECT

public:
    /// The editor must outlive it.
    explicit NewTagRow(QuickTagEditor& editor);
    Q_DISABLE_COPY_MOVE(NewTagRow)

    void takeKeyboard();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void showFields();

    QuickTagEditor& m_editor;
    TextField* m_icon;
    TextField* m_text;
};

} // namespace flitmark
