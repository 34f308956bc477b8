// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringList>
#include <QWidget>

class QVBoxLayout;

namespace flitmark {

class Label;

/// A caption and lines of text below it. Hidden while there are none.
class LinesSection final : public QWidget
{
    Q_OBJECT

public:
    explicit LinesSection(const QString& caption);
    Q_DISABLE_COPY_MOVE(LinesSection)

    void setLines(const QStringList& lines);

private:
    QVBoxLayout* m_column;
    QList<Label*> m_labels;
};

} // namespace flitmark
