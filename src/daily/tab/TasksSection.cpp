// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <daily/tab/AddTaskRow.h>
#include <daily/tab/DailyTabModel.h>
#include <daily/tab/SectionCaption.h>
#include <daily/tab/TaskRow.h>
#include <daily/tab/TasksSection.h>
#include <ui/AccessibleRole.h>
#include <ui/IconButton.h>
#include <ui/Label.h>
#include <ui/RowList.h>

#include <QVBoxLayout>

namespace flitmark {

namespace {

Label* makeGroupHeading()
{
    auto* heading = new Label(QString(), TextRole::Caption);
    setAccessibleRole(*heading, QAccessible::Heading);
    heading->setElideMode(Qt::ElideRight);
    heading->setContentsMargins(TasksSection::rowReach, 8, TasksSection::rowReach, 4);
    return heading;
}

} // namespace

TasksSection::TasksSection(DailyTabModel& model)
    : m_model(model)
    , m_add(new IconButton(tr("Add task"), IconButtonSize::Small))
    , m_rows(new RowList([this](qsizetype index, QWidget* row) { return showTask(index, row); }))
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
    column->addWidget(m_rows);
    column->addWidget(m_addRow);
    m_addRow->hide();

    connect(&model, &DailyTabModel::noteChanged, this, &TasksSection::showTasks);
    connect(&model, &DailyTabModel::isAddingTaskChanged, this, &TasksSection::showAddRow);
    showTasks();
    showAddRow();
}

QWidget* TasksSection::showTask(qsizetype index, QWidget* row) const
{
    const DailyTaskRow& task = m_tasks[m_entries[index].task];
    if (m_entries[index].isHeading) {
        auto* heading = qobject_cast<Label*>(row);
        heading = heading != nullptr ? heading : makeGroupHeading();
        heading->setText(task.group);
        return heading;
    }
    auto* shown = qobject_cast<TaskRow*>(row);
    if (shown == nullptr) {
        shown = new TaskRow(task);
        connect(shown, &TaskRow::toggled, &m_model, &DailyTabModel::toggleTask);
        connect(shown, &TaskRow::tomatoRemoved, &m_model, &DailyTabModel::removeTomato);
        connect(shown, &TaskRow::pomodoroStarted, &m_model, &DailyTabModel::startPomodoro);
        connect(shown, &TaskRow::linkOpened, &m_model, &DailyTabModel::openLink);
    } else if (shown->task() != task) {
        shown->setTask(task);
    }
    return shown;
}

void TasksSection::showTasks()
{
    if (m_model.body() == DailyTabModel::Body::Loading) {
        return;
    }
    m_tasks = m_model.tasks();
    m_entries.clear();
    QStringList texts;
    QString group;
    for (qsizetype i = 0; i < m_tasks.size(); ++i) {
        if (m_tasks[i].group != group) {
            group = m_tasks[i].group;
            if (!group.isEmpty()) {
                m_entries.append({i, true});
                texts.append(group);
            }
        }
        m_entries.append({i, false});
        texts.append(m_tasks[i].text);
    }
    m_rows->setRows(texts);
    setVisible(!m_tasks.isEmpty() || m_model.alwaysShowsTasks());
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

} // namespace flitmark
