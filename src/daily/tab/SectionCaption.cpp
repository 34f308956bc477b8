// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <daily/tab/SectionCaption.h>
#include <ui/AccessibleRole.h>
#include <ui/Label.h>

#include <QHBoxLayout>

namespace flitmark {

QWidget* makeSectionCaption(const QString& caption, QWidget* button)
{
    auto* row = new QWidget;
    row->setMinimumHeight(rowHeight(TextRole::Overline) + 8);
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins({});
    layout->setSpacing(8);
    auto* label = new Label(caption, TextRole::Overline);
    setAccessibleRole(*label, QAccessible::Heading);
    layout->addWidget(label, 1, Qt::AlignVCenter);
    if (button != nullptr) {
        layout->addWidget(button);
    }
    return row;
}

} // namespace flitmark
