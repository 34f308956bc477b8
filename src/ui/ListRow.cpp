// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <ui/AccessibleRole.h>
#include <ui/ListRow.h>
#include <ui/Painting.h>

namespace flitmark {

namespace {

void describe(QAbstractButton& row, const RowContent& content)
{
    setPlainText(row, content.title);
    row.setAccessibleDescription(content.second);
    row.setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

} // namespace

ListRow::ListRow(const RowContent& content, QWidget* parent)
    : QRadioButton(parent)
    , m_state(*new ControlState(*this))
    , m_content(content)
{
    setAccessibleRole(*this, QAccessible::RadioButton);
    describe(*this, content);
    setChecked(content.isSelected);
}

void ListRow::paintEvent(QPaintEvent* /*event*/)
{
    m_content.isSelected = isChecked();
    QPainter painter(this);
    m_content.paint(painter, *this, m_state);
}

ActionRow::ActionRow(const RowContent& content, QWidget* parent)
    : QPushButton(parent)
    , m_state(*new ControlState(*this))
    , m_content(content)
{
    describe(*this, content);
}

void ActionRow::setTitle(const QString& title)
{
    m_content.title = title;
    setPlainText(*this, title);
    update();
}

void ActionRow::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    m_content.paint(painter, *this, m_state);
}

} // namespace flitmark
