// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QList>
#include <QStringView>

namespace flitmark {

/// Where the spans of inline code in a line begin and end.
class CodeSpans
{
public:
    explicit CodeSpans(QStringView line);

    /// Where the code that begins with the marks at `position` ends, after its last mark; nothing (-1) when these marks
    /// begin none. To be asked from left to right.
    qsizetype endOf(qsizetype position);

    /// How many marks stand at `position` of `line`.
    static qsizetype marksAt(QStringView line, qsizetype position);

private:
    struct Run
    {
        qsizetype start;
        qsizetype length;
        /// The index of the next run of this length, or -1.
        qsizetype next;
    };
    QList<Run> m_runs;
    qsizetype m_index = 0;
};

} // namespace flitmark
