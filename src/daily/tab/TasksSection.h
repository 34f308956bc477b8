// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <daily/tab/DailyTabRows.h>

#include <QWidget>

namespace flitmark {

class AddTaskRow;
class DailyTabModel;
class IconButton;
class RowList;

/// The Daily tab's tasks below their headings, and the row for a new one. Hidden while the planned layout's note has no
/// tasks.
class TasksSection final : public QWidget
{
    Q_OBJECT

public:
    /// How far a row reaches into the margins of the tab, in points, so that its texts and buttons stand on their
    /// edges.
    static constexpr int rowReach = 8;

    /// `model` must outlive it.
    explicit TasksSection(DailyTabModel& model);
    Q_DISABLE_COPY_MOVE(TasksSection)

private:
    QWidget* showTask(qsizetype index, QWidget* row) const;
    void showTasks();
    void showAddRow();

    DailyTabModel& m_model;
    IconButton* m_add;
    QList<DailyTaskRow> m_tasks;
    /// What the rows show: a task by its index, or the heading above it.
    struct Entry
    {
        qsizetype task;
        bool isHeading;
    };
    QList<Entry> m_entries;
    RowList* m_rows;
    AddTaskRow* m_addRow;
};

} // namespace flitmark
