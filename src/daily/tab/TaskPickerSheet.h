// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <daily/tab/DailyTabRows.h>
#include <ui/Sheet.h>

class QStackedLayout;

namespace flitmark {

class DailyTabModel;
class RowList;

/// The sheet in which the task of the next Pomodoro is picked. Open while the model says so and the tab is shown.
class TaskPickerSheet final : public Sheet
{
    Q_OBJECT

public:
    /// `model` and `host` must outlive it.
    TaskPickerSheet(DailyTabModel& model, QWidget& host);
    Q_DISABLE_COPY_MOVE(TaskPickerSheet)

private:
    class Row;

    QWidget* makeList();
    QWidget* makeEmptyView();
    QWidget* showTask(qsizetype index);
    void showTasks();

    DailyTabModel& m_model;
    QStackedLayout* m_body;
    RowList* m_rows;
    QList<TaskPickerRow> m_tasks;
};

} // namespace flitmark
