// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <core/Text.h>
#include <daily/OwnNoteView.h>

#include <algorithm>

namespace flitmark {

OwnNoteView::OwnNoteView(const Lines& lines)
    : m_lines(lines)
{
    HiddenLines hidden(wholeText(lines));
    m_frontMatter = hidden.frontMatter();
    qsizetype region = 0;
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const bool wasOpen = hidden.isOpen();
        const LineStart start = lineStart(lines[i]);
        const bool isHidden = hidden.hides(lines[i], start);
        region = isHidden && wasOpen ? region : i;
        m_states.append({start, isHidden, hidden.isOpen(), region});
    }
}

std::optional<NoteHeading> OwnNoteView::heading(qsizetype line) const
{
    return m_states[line].isHidden ? std::nullopt : noteHeading(m_lines[line], m_states[line].start);
}

OwnNoteEdits::Result OwnNoteView::checked(LineChanges changes) const
{
    using Kind = LineChange::Kind;
    std::stable_sort(changes.begin(), changes.end(), [](const LineChange& a, const LineChange& b) {
        return std::pair(a.line, a.kind == Kind::Replace) < std::pair(b.line, b.kind == Kind::Replace);
    });
    for (const LineChange& change : changes) {
        if (change.kind == Kind::Insert && change.line > 0 && m_states[change.line - 1].isOpen) {
            return tl::unexpected(
                QStringLiteral("A code block or a comment in the note is not closed, and the new line "
                               "would be in it. Nothing was written."));
        }
    }
    return changes;
}

QStringView wholeText(const DailyNoteEdits::Lines& lines)
{
    return {lines.first().data(), lines.last().data() + lines.last().size()};
}

bool isBlank(QStringView line)
{
    return trimSpaces(line).isEmpty();
}

} // namespace flitmark
