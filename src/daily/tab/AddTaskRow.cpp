// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <daily/tab/AddTaskRow.h>
#include <daily/tab/DailyTabModel.h>
#include <ui/IconButton.h>
#include <ui/ReadingMargins.h>
#include <ui/Surfaces.h>
#include <ui/TextField.h>

#include <QHBoxLayout>

namespace flitmark {

AddTaskRow::AddTaskRow(DailyTabModel& model)
    : m_model(model)
    , m_field(new TextField(tr("New task")))
{
    auto* circle = new SymbolView(QStringLiteral("circle"), 20, &Theme::text2);
    circle->setFixedSize(28, 28);
    m_field->setPlaceholderText(tr("New task..."));
    connect(m_field, &TextField::textChanged, &model, &DailyTabModel::setNewTaskText);
    connect(m_field, &TextField::returnPressed, &model, &DailyTabModel::saveNewTask);
    auto* save = new IconButton(tr("Save task"), IconButtonSize::Small);
    save->setSymbol(QStringLiteral("checkmark.circle.fill"));
    save->setColor(&Theme::mark);
    connect(save, &IconButton::clicked, &model, &DailyTabModel::saveNewTask);
    auto* cancel = new IconButton(tr("Cancel task"), IconButtonSize::Small);
    cancel->setSymbol(QStringLiteral("xmark.circle.fill"));
    connect(cancel, &IconButton::clicked, &model, &DailyTabModel::cancelNewTask);

    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(readingMargins(4, 4, 8, 4));
    row->setSpacing(4);
    row->addWidget(circle);
    row->addWidget(m_field, 1);
    row->addWidget(save);
    row->addWidget(cancel);

    connect(&model, &DailyTabModel::newTaskTextChanged, this, &AddTaskRow::showText);
    showText();
}

void AddTaskRow::takeKeyboard()
{
    m_field->setFocus();
}

void AddTaskRow::showText()
{
    // The same text again would move the cursor.
    if (m_field->text() != m_model.newTaskText()) {
        m_field->setText(m_model.newTaskText());
    }
}

} // namespace flitmark
