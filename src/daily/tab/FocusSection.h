// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

namespace flitmark {

class Button;
class DailyTabModel;
class IconButton;
class Label;
class TextField;

/// The Daily tab's focus: shown with the buttons that mark it done and open its editor, or being entered.
class FocusSection final : public QWidget
{
    Q_OBJECT

public:
    /// `model` must outlive it.
    explicit FocusSection(DailyTabModel& model);
    Q_DISABLE_COPY_MOVE(FocusSection)

private:
    QWidget* makeDisplay();
    QWidget* makeEditor();
    void showFocus();
    void showEditor();
    void showEditedFocus();

    DailyTabModel& m_model;
    QWidget* m_display = nullptr;
    QWidget* m_editor = nullptr;
    IconButton* m_done = nullptr;
    Label* m_focus = nullptr;
    IconButton* m_edit = nullptr;
    Label* m_question = nullptr;
    TextField* m_field = nullptr;
    Button* m_save = nullptr;
};

} // namespace flitmark
