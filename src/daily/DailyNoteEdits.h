// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QList>
#include <QString>
#include <QStringView>

#include <optional>

namespace flitmark {

/// One line that an edit writes.
struct LineChange
{
    enum class Kind {
        /// In the place of the line at `line`.
        Replace,
        /// As a new line before the one at `line`, which may be one past the last.
        Insert,
    };

    Kind kind;
    qsizetype line;
    /// Written on one line, whatever breaks are in it.
    QString text;
};

/// The lines that an edit writes, in the order of the note. All others stay.
using LineChanges = QList<LineChange>;

/// The edits of a daily note: from its lines (as `splitLines` cuts them) to the lines that change. Pure functions.
///
/// An empty list is an edit that found nothing to change and is done all the same; nothing at all is an edit that can't
/// be done on these lines. Lines are numbered from 0, and any number may be given.
class DailyNoteEdits final
{
public:
    using Lines = QList<QStringView>;

    DailyNoteEdits() = delete;

    /// Puts `newFocus` in the place of the first text below the focus heading, bold where that was bold; below the
    /// heading where there is none. Changes nothing in a note without a focus heading.
    static LineChanges updateFocus(const Lines& lines, const QString& newFocus);

    /// Sets the tally to `number` and adds a row to the log's table, where the note has these.
    static LineChanges addPomodoroEntry(const Lines& lines, qint64 number, const QString& time, const QString& focus);

    /// Ticks the task at `line`, or clears its tick. Not for a line without a check box.
    static std::optional<LineChanges> toggleTask(const Lines& lines, qint64 line);

    /// Adds an open task after the last one of the task section, or below its heading. Not for a note without one.
    static std::optional<LineChanges> addNewTask(const Lines& lines, const QString& text);

    /// Adds a tomato at the end of the task at `line`. Not for a line without a check box.
    static std::optional<LineChanges> addPomodoroToTask(const Lines& lines, qint64 line);

    /// Removes the last tomato of the task at `line`, one after a space before any other, together with the space. Not
    /// for a line without a check box or a tomato.
    static std::optional<LineChanges> removePomodoroFromTask(const Lines& lines, qint64 line);

    /// The tally of `number` Pomodoros, and the log's row for the last of them, as we write them.
    static QString tallyLine(qint64 number);
    static QString logRow(qint64 number, const QString& time, const QString& focus);

    /// How many characters of `line` are tomatoes, a character being what a person sees as one.
    static qint64 pomodoroCount(QStringView line);

    /// Where in `lines` the line is that stood at `line`, a valid index, in `before`, an earlier state of the note. Of
    /// equal lines it is the one in the same place among those below an equal heading; where their number differs, the
    /// only one in both states. Nothing when that does not tell.
    static std::optional<qint64> findLine(const Lines& lines, const Lines& before, qint64 line);

    /// The text of a note with `changes` made to its `lines`: one LF between lines.
    static QString apply(const Lines& lines, const LineChanges& changes);
};

} // namespace flitmark
