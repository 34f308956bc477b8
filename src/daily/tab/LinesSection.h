// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringList>
#include <QWidget>

namespace flitmark {

class RowList;

/// A caption and lines of text below it. Hidden while there are none.
class LinesSection final : public QWidget
{
    Q_OBJECT

public:
    explicit LinesSection(const QString& caption);
    Q_DISABLE_COPY_MOVE(LinesSection)

    void setLines(const QStringList& lines);

private:
    QWidget* showLine(qsizetype index, QWidget* row) const;

    QStringList m_lines;
    RowList* m_rows;
};

} // namespace flitmark
