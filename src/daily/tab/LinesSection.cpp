// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <daily/tab/LinesSection.h>
#include <daily/tab/SectionCaption.h>
#include <ui/Label.h>
#include <ui/RowList.h>

#include <QVBoxLayout>

namespace flitmark {

LinesSection::LinesSection(const QString& caption)
    : m_rows(new RowList([this](qsizetype index, QWidget* row) { return showLine(index, row); }))
{
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins({});
    column->setSpacing(0);
    column->addWidget(makeSectionCaption(caption));
    column->addWidget(m_rows);
}

void LinesSection::setLines(const QStringList& lines)
{
    if (m_lines != lines) {
        m_lines = lines;
        m_rows->setRows(lines);
    }
    setVisible(!lines.isEmpty());
}

QWidget* LinesSection::showLine(qsizetype index, QWidget* row) const
{
    auto* label = qobject_cast<Label*>(row);
    if (label == nullptr) {
        label = new Label;
        label->setWordWrap(true);
        label->setContentsMargins(0, 1, 0, 1);
    }
    label->setText(m_lines[index]);
    return label;
}

} // namespace flitmark
