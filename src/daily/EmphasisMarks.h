// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <daily/InlineText.h>

#include <QHash>

namespace flitmark {

/// The marks of emphasis in a line, matched as they come; those that belong together are taken out of the text in the
/// end, in time linear in their number.
class EmphasisMarks
{
public:
    /// Takes the marks at `at` of `source` and moves that behind them. They go to the end of `result.text`, and what
    /// they close to its spans. Gives the marks.
    QStringView take(QStringView source, qsizetype& at, InlineText& result);

    /// Takes from `result.text` the marks that have a match.
    void removeTaken(InlineText& result) const;

private:
    /// A run of equal marks, or what is left of it, by its place in the text with all marks.
    struct Marks
    {
        QChar mark;
        qsizetype start;
        qsizetype length;
    };

    void close(Marks& marks, InlineText& result);

    QList<Marks> m_opened;
    /// How many of `m_opened` there are of each mark.
    QHash<QChar, int> m_open;
    QList<Marks> m_taken;
};

} // namespace flitmark
