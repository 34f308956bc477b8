// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <daily/tab/SectionCaption.h>
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
    layout->addWidget(new Label(caption, TextRole::Overline), 1, Qt::AlignVCenter);
    if (button != nullptr) {
        layout->addWidget(button);
    }
    return row;
}

} // namespace flitmark
