// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <ui/StatusLine.h>

#include <QHBoxLayout>

namespace flitmark {

StatusLine::StatusLine()
    : m_label(new Label(QString(), TextRole::Strong))
    , m_visibility([this] {
        m_label->setOpacity(m_visibility.value());
        if (m_visibility.value() == 0) {
            m_label->clear();
        }
    })
{
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins({});
    m_label->setElideMode(Qt::ElideRight);
    m_label->setOpacity(0);
    layout->addWidget(m_label);
}

void StatusLine::show(const QString& message, ColorToken color)
{
    m_label->setText(message);
    m_label->setColor(color);
    m_visibility.moveTo(1, motion::stepMilliseconds);
}

void StatusLine::fade()
{
    m_visibility.moveTo(0, motion::stepMilliseconds);
}

} // namespace flitmark
