// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

namespace flitmark {

class ActionRow;
class Button;
class CheckinModel;
class Label;
class TextField;

/// The body of the check-in popup: today's focus, and below it the four answers or the entry of a new focus.
class CheckinView final : public QWidget
{
    Q_OBJECT

public:
    /// `model` must outlive the view's last answer.
    explicit CheckinView(CheckinModel& model, QWidget* parent = nullptr);
    Q_DISABLE_COPY_MOVE(CheckinView)

private:
    QWidget* makeFocus();
    QWidget* makeAnswers();
    QWidget* makeEntry();
    void showNote();
    void showMode();

    CheckinModel& m_model;
    Label* m_focus = nullptr;
    QWidget* m_answers = nullptr;
    QWidget* m_entry = nullptr;
    Label* m_entryLabel = nullptr;
    TextField* m_field = nullptr;
    Button* m_submit = nullptr;
    /// The row that opened the entry: it has the focus again when the entry is cancelled.
    QWidget* m_opener = nullptr;
};

} // namespace flitmark
