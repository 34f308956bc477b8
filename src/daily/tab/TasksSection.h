// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <daily/tab/DailyTabRows.h>

#include <QWidget>

class QVBoxLayout;

namespace flitmark {

class AddTaskRow;
class DailyTabModel;
class IconButton;
class TaskRow;

/// The Daily tab's tasks and the row for a new one. Hidden while the note has no tasks.
///
/// When the note changes, each task that is still there keeps its row, and with it the keyboard.
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

    /// What Tab walks through, in its order.
    QList<QWidget*> controls() const;

Q_SIGNALS:
    /// `controls()` has others than before.
    void controlsChanged();

private:
    TaskRow* makeRow(const DailyTaskRow& task);
    void showTasks();
    bool matchRows(const QList<DailyTaskRow>& tasks);
    void showAddRow();

    DailyTabModel& m_model;
    IconButton* m_add;
    QVBoxLayout* m_column;
    QList<TaskRow*> m_rows;
    AddTaskRow* m_addRow;
};

} // namespace flitmark
