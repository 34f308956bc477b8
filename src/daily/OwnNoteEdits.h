// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <daily/DailyNoteEdits.h>

#include <tl/expected.hpp>

namespace flitmark {

/// The edits of a daily note in the own layout, from its lines to the lines that change, as `DailyNoteEdits` are for
/// the planned one: pure functions. The lines are all those of one text, cut at LF, CR LF and CR; a line number may be
/// any.
///
/// An error says why an edit can't be made.
class OwnNoteEdits final
{
public:
    using Lines = DailyNoteEdits::Lines;
    using Result = tl::expected<LineChanges, QString>;

    OwnNoteEdits() = delete;

    /// Puts `newFocus` in the place of the focus, with all that stands around it on its line; makes the line, and the
    /// heading, where there is none.
    static Result updateFocus(const Lines& lines, const QString& newFocus);

    /// Sets the tally to `number` and adds a row to the log, and makes what is missing of them.
    static Result addPomodoroEntry(const Lines& lines, qint64 number, const QString& time, const QString& focus);

    /// Adds an open task to the group where people expect it, or in a new section at the end.
    static Result addNewTask(const Lines& lines, const QString& text);

    /// Ticks the task at `line`, or opens it again. Not for a line that is no task.
    static std::optional<LineChanges> toggleTask(const Lines& lines, qint64 line);

    /// Adds a tomato to the task at `line`, before what other programs read at its end. Not for a line that is no task.
    static std::optional<LineChanges> addPomodoroToTask(const Lines& lines, qint64 line);

    /// Removes the last tomato of the task at `line`, and a space before it. Not for a line that is no task or has
    /// none.
    static std::optional<LineChanges> removePomodoroFromTask(const Lines& lines, qint64 line);

    /// The text of a note with `changes` made to its `lines`. Every other line keeps its end.
    static QString apply(const Lines& lines, const LineChanges& changes);
};

} // namespace flitmark
