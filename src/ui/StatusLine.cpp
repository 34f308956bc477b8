// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <ui/AccessibleRole.h>
#include <ui/StatusLine.h>

#include <QHBoxLayout>

namespace flitmark {

StatusLine::StatusLine()
    : m_label(new Label(QString(), TextRole::Strong))
    , m_visibility([this] { follow(); })
{
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins({});
    m_label->setElideMode(Qt::ElideRight);
    m_label->setOpacity(0);
    setAccessibleRole(*m_label, QAccessible::Notification);
    m_label->hide();
    layout->addWidget(m_label);
}

void StatusLine::show(const QString& message, ColorToken color)
{
    m_isFading = false;
    // Hidden once more, or the second of two messages would not be read out.
    m_label->hide();
    m_label->setText(message);
    m_label->setColor(color);
    m_label->show();
    m_visibility.moveTo(1, motion::stepMilliseconds);
}

void StatusLine::fade()
{
    m_isFading = true;
    m_visibility.moveTo(0, motion::stepMilliseconds);
    // A message that had no time to come up makes no way to go.
    follow();
}

void StatusLine::follow()
{
    m_label->setOpacity(m_visibility.value());
    if (m_visibility.value() == 0 && m_isFading) {
        m_label->hide();
    }
}

} // namespace flitmark
