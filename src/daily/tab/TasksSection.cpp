// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <daily/tab/AddTaskRow.h>
#include <daily/tab/DailyTabModel.h>
#include <daily/tab/SectionCaption.h>
#include <daily/tab/TaskRow.h>
#include <daily/tab/TasksSection.h>
#include <ui/IconButton.h>

#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace flitmark {

TasksSection::TasksSection(DailyTabModel& model)
    : m_model(model)
    , m_add(new IconButton(tr("Add task"), IconButtonSize::Small))
    , m_column(new QVBoxLayout)
    , m_addRow(new AddTaskRow(model))
{
    m_add->setSymbol(QStringLiteral("plus"));
    connect(m_add, &IconButton::clicked, &model, &DailyTabModel::startAddingTask);
    QWidget* caption = makeSectionCaption(tr("TASKS"), m_add);
    caption->setContentsMargins(rowReach, 0, rowReach, 0);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins({});
    column->setSpacing(0);
    column->addWidget(caption);
    m_column->setSpacing(0);
    column->addLayout(m_column);
    column->addWidget(m_addRow);
    m_addRow->hide();

    connect(&model, &DailyTabModel::noteChanged, this, &TasksSection::showTasks);
    connect(&model, &DailyTabModel::isAddingTaskChanged, this, &TasksSection::showAddRow);
    showTasks();
    showAddRow();
}

TaskRow* TasksSection::makeRow(const DailyTaskRow& task)
{
    auto* row = new TaskRow(task);
    connect(row, &TaskRow::toggled, &m_model, &DailyTabModel::toggleTask);
    connect(row, &TaskRow::tomatoRemoved, &m_model, &DailyTabModel::removeTomato);
    connect(row, &TaskRow::pomodoroStarted, &m_model, &DailyTabModel::startPomodoro);
    return row;
}

void TasksSection::showTasks()
{
    const QList<DailyTaskRow> tasks = m_model.tasks();
    // Whatever is shown has everything around it laid out at once, which would be done for each row.
    layout()->setEnabled(false);
    const bool isRebuilt = matchRows(tasks);
    bool hasMore = isRebuilt;
    for (qsizetype i = 0; i < tasks.size(); ++i) {
        if (m_rows[i]->task() != tasks[i]) {
            hasMore = hasMore || m_rows[i]->task().tomatoButtons < tasks[i].tomatoButtons;
            m_rows[i]->setTask(tasks[i]);
        }
    }
    layout()->setEnabled(true);
    setVisible(!tasks.isEmpty());
    if (hasMore) {
        Q_EMIT controlsChanged();
    }
}

/// Makes `m_rows` as many as there are tasks, each task with the row of the same text if it has one; the tasks between
/// two of those take the rows that were between them. False when all rows stay as they are.
bool TasksSection::matchRows(const QList<DailyTaskRow>& tasks)
{
    const QList<TaskRow*> old = std::exchange(m_rows, {});
    qsizetype next = 0;
    const auto fillUntil = [&](qsizetype task, qsizetype row) {
        while (m_rows.size() < task) {
            m_rows.append(next < row ? old[next++] : makeRow(tasks[m_rows.size()]));
        }
        for (; next < row; ++next) {
            m_column->removeWidget(old[next]);
            old[next]->hide();
            old[next]->deleteLater();
        }
    };
    for (qsizetype i = 0; i < tasks.size(); ++i) {
        const auto hasText = [&](const TaskRow* row) { return row->task().text == tasks[i].text; };
        const auto found = std::find_if(old.begin() + next, old.end(), hasText);
        if (found != old.end()) {
            fillUntil(i, found - old.begin());
            m_rows.append(old[next++]);
        }
    }
    fillUntil(tasks.size(), old.size());
    if (m_rows == old) {
        return false;
    }
    for (qsizetype i = 0; i < m_rows.size(); ++i) {
        if (m_column->indexOf(m_rows[i]) < 0) {
            m_column->insertWidget(static_cast<int>(i), m_rows[i]);
            m_rows[i]->show();
        }
    }
    return true;
}

void TasksSection::showAddRow()
{
    const bool hadKeyboard = m_addRow->isAncestorOf(window()->focusWidget());
    if (m_model.isAddingTask()) {
        m_addRow->show();
        m_addRow->takeKeyboard();
        return;
    }
    // Before the row goes away, the keyboard moves on from it.
    if (hadKeyboard) {
        m_add->setFocus();
    }
    m_addRow->hide();
}

QList<QWidget*> TasksSection::controls() const
{
    QList<QWidget*> controls{m_add};
    for (const TaskRow* row : m_rows) {
        controls += row->controls();
    }
    return controls + m_addRow->controls();
}

} // namespace flitmark
