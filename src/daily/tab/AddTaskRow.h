// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

namespace flitmark {

class DailyTabModel;
class TextField;

/// The row in which a new task is entered; Return saves it.
class AddTaskRow final : public QWidget
{
    Q_OBJECT

public:
    /// `model` must outlive it.
    explicit AddTaskRow(DailyTabModel& model);
    Q_DISABLE_COPY_MOVE(AddTaskRow)

    void takeKeyboard();

private:
    void showText();

    DailyTabModel& m_model;
    TextField* m_field;
};

} // namespace flitmark
