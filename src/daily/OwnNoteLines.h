// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringView>

#include <optional>

namespace flitmark {

// The lines of a note in the own layout: Markdown as people write it in Obsidian. They end at LF, CR LF or CR.

/// What stands before the text of a line.
struct LineStart
{
    /// How many quote marks.
    int quotes = 0;
    /// The place after the last of them.
    qsizetype quotesEnd = 0;
    /// How far what follows is indented after them, in columns.
    int indent = 0;
    /// Where the text begins: after quote marks and blanks.
    qsizetype text = 0;
};

LineStart lineStart(QStringView line);

/// Where the text of a list item begins, whose marker stands at `position`: after the marker and the blanks that follow
/// it. Nothing where no list item begins.
std::optional<qsizetype> listItemText(QStringView line, qsizetype position);

/// The check box of a task.
struct TaskBox
{
    /// The place of the opening bracket.
    qsizetype open;
    /// What is between the brackets: one character as a person sees it.
    QStringView sign;
    /// The place after the closing bracket.
    qsizetype end;

    bool isCompleted() const { return sign == u"x" || sign == u"X" || sign == u"-"; }
};

/// The box of the task that `line` is, or nothing.
std::optional<TaskBox> taskBox(QStringView line, const LineStart& start);

/// A heading of any level.
struct NoteHeading
{
    qsizetype level;
    QStringView text;
};

std::optional<NoteHeading> noteHeading(QStringView line, const LineStart& start);

/// True for a line of nothing but marks: a rule, or emphasis of nothing.
bool isRule(QStringView text);

/// Knows which lines of a note are hidden: front matter, fenced code, and what begins inside a comment.
class HiddenLines
{
public:
    /// `content` is the whole note.
    explicit HiddenLines(QStringView content);

    /// Takes the next line; true when it is hidden.
    bool hides(QStringView line, const LineStart& start);

    /// True when the line after the last one taken begins in code or in a comment.
    bool isOpen() const { return m_fenceLength > 0 || m_comment != Comment::None; }

    /// How many lines the front matter has; 0 when there is none.
    qint64 frontMatter() const { return m_frontMatter; }

private:
    enum class Comment { None, Percent, Html };

    bool opensFence(QStringView line, const LineStart& start);
    bool closesFence(QStringView line) const;
    void readComments(QStringView line);

    qint64 m_frontMatter = 0;
    qint64 m_taken = 0;
    bool m_hasComments;
    Comment m_comment = Comment::None;
    /// Of the fence that is open: its sign, the length of its mark, and the quote marks before it.
    QChar m_fence;
    qsizetype m_fenceLength = 0;
    int m_fenceQuotes = 0;
};

} // namespace flitmark
