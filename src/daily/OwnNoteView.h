// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <daily/OwnNoteEdits.h>
#include <daily/OwnNoteLines.h>

namespace flitmark {

/// The lines of a note in the own layout, all those of one text, with what is known of each. They must outlive it.
class OwnNoteView
{
public:
    using Lines = DailyNoteEdits::Lines;

    struct Line
    {
        LineStart start;
        bool isHidden;
        /// The next line begins in code or in a comment.
        bool isOpen;
        /// The line at which the code or comment begins that this one is in.
        qsizetype region;
    };

    explicit OwnNoteView(const Lines& lines);

    const Line& operator[](qsizetype line) const { return m_states[line]; }
    /// How many lines the front matter has.
    qsizetype frontMatter() const { return m_frontMatter; }
    /// The heading that a line is; nothing for one that is hidden.
    std::optional<NoteHeading> heading(qsizetype line) const;
    /// Where a new last line goes: before the empty one that follows the last end of a line.
    qsizetype end() const { return m_lines.last().isEmpty() ? m_lines.size() - 1 : m_lines.size(); }

    /// `changes` in the order of the note; an error where they would make a line in code or in a comment.
    OwnNoteEdits::Result checked(LineChanges changes) const;

private:
    const Lines& m_lines;
    QList<Line> m_states;
    qsizetype m_frontMatter = 0;
};

/// The text that `lines` were cut from.
QStringView wholeText(const DailyNoteEdits::Lines& lines);

bool isBlank(QStringView line);

} // namespace flitmark
