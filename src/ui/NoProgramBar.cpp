// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <ui/AccessibleRole.h>
#include <ui/Button.h>
#include <ui/Label.h>
#include <ui/NoProgramBar.h>

#include <QAccessible>
#include <QHBoxLayout>

namespace flitmark {

NoProgramBar::NoProgramBar()
    : m_open(new Button(tr("Open the file"), ButtonKind::Soft))
{
    setAccessibleRole(*this, QAccessible::Notification);
    setAccessibleName(tr("No program opens obsidian: links"));
    auto* text = new Label(accessibleName());
    text->setWordWrap(true);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(16, 8, 16, 8);
    row->setSpacing(8);
    row->addWidget(text, 1);
    row->addWidget(m_open);
    connect(m_open, &Button::clicked, this, &NoProgramBar::openFileAsked);
    hide();
}

void NoProgramBar::setHasFile(bool hasFile)
{
    m_open->setVisible(hasFile);
}

void NoProgramBar::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    QAccessibleEvent alert(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

} // namespace flitmark
