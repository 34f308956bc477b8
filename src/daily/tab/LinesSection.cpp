// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <daily/tab/LinesSection.h>
#include <daily/tab/SectionCaption.h>
#include <ui/Label.h>

#include <QVBoxLayout>

namespace flitmark {

LinesSection::LinesSection(const QString& caption)
    : m_column(new QVBoxLayout(this))
{
    m_column->setContentsMargins({});
    m_column->setSpacing(0);
    m_column->addWidget(makeSectionCaption(caption));
}

void LinesSection::setLines(const QStringList& lines)
{
    while (m_labels.size() > lines.size()) {
        delete m_labels.takeLast();
    }
    for (qsizetype i = 0; i < lines.size(); ++i) {
        if (i == m_labels.size()) {
            auto* label = new Label;
            label->setWordWrap(true);
            label->setContentsMargins(0, 1, 0, 1);
            m_column->addWidget(label);
            label->show();
            m_labels.append(label);
        }
        if (m_labels[i]->text() != lines[i]) {
            m_labels[i]->setText(lines[i]);
        }
    }
    setVisible(!lines.isEmpty());
}

} // namespace flitmark
