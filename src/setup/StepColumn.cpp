// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <setup/StepColumn.h>
#include <ui/AccessibleRole.h>
#include <ui/Label.h>

namespace flitmark {

StepColumn::StepColumn(QWidget* parent)
    : QWidget(parent)
    , m_column(new QVBoxLayout(this))
{
    m_column->setContentsMargins(0, 16, 0, 16);
    m_column->setSpacing(0);
}

void StepColumn::add(QWidget* widget, int space, int inset)
{
    auto* row = new QHBoxLayout;
    row->addWidget(widget);
    add(row, space, inset);
}

void StepColumn::add(QLayout* row, int space, int inset)
{
    if (space > 0) {
        m_column->addSpacing(space);
    }
    row->setContentsMargins(inset, 0, inset, 0);
    m_column->addLayout(row);
}

void StepColumn::addTitle(const QString& title)
{
    setAccessibleRole(*addText(title, TextRole::Title, &Theme::text, 0), QAccessible::Notification);
}

Label* StepColumn::addText(const QString& text, TextRole role, ColorToken color, int space, Placement placement,
                           int inset)
{
    auto* label = new Label(text, role);
    label->setColor(color);
    label->setWordWrap(true);
    label->setAlignment((placement == Placement::Centre ? Qt::AlignHCenter : Qt::AlignLeft) | Qt::AlignTop);
    add(label, space, inset);
    return label;
}

void StepColumn::finish()
{
    m_column->addStretch();
}

} // namespace flitmark
