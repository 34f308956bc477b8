// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <settings/SwitchRow.h>
#include <ui/Label.h>
#include <ui/ReadingMargins.h>
#include <ui/Switch.h>

#include <QHBoxLayout>
#include <QMouseEvent>

namespace flitmark {

SwitchRow::SwitchRow(const QString& text, const QString& caption)
    : m_lines(new QVBoxLayout)
    , m_switch(new Switch(text))
{
    auto* title = new Label(text);
    title->setWordWrap(true);
    m_lines->setContentsMargins(0, 12, 0, 12);
    m_lines->setSpacing(0);
    m_lines->addWidget(title);
    if (!caption.isEmpty()) {
        addLine(caption);
        m_switch->setAccessibleDescription(caption);
    }
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(readingMargins(16, 0, 16 - Switch::ringRoom, 0));
    row->setSpacing(16 - Switch::ringRoom);
    row->addLayout(m_lines, 1);
    auto* place = new QVBoxLayout;
    // In the middle of the text's row.
    const int top = 12 + (rowHeight(TextRole::Body) - m_switch->sizeHint().height()) / 2;
    place->setContentsMargins(0, top, 0, 12 - Switch::ringRoom);
    place->addWidget(m_switch, 0, Qt::AlignTop);
    row->addLayout(place);
}

Label* SwitchRow::addLine(const QString& text)
{
    auto* line = new Label(text, TextRole::Caption);
    line->setWordWrap(true);
    line->setContentsMargins(0, 2, 0, 0);
    m_lines->addWidget(line);
    return line;
}

void SwitchRow::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint())) {
        m_switch->click();
    }
}

} // namespace flitmark
