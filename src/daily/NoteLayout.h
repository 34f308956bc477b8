// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <core/Text.h>
#include <daily/DailyNote.h>
#include <daily/DailyNoteEdits.h>

#include <tl/expected.hpp>

namespace flitmark {

/// How a note is read and edited: the planned layout at the fixed place, the user's own anywhere else. An error of an
/// edit says why it can't be made.
struct NoteLayout
{
    using Lines = DailyNoteEdits::Lines;
    using Result = tl::expected<LineChanges, QString>;
    using TaskEdit = std::optional<LineChanges> (*)(const Lines& lines, qint64 line);

    LineBreaks breaks;
    ParsedDailyNote (*parse)(QStringView content);
    Result (*updateFocus)(const Lines& lines, const QString& newFocus);
    Result (*addPomodoroEntry)(const Lines& lines, qint64 number, const QString& time, const QString& focus);
    Result (*addNewTask)(const Lines& lines, const QString& text);
    TaskEdit toggleTask;
    TaskEdit addPomodoroToTask;
    TaskEdit removePomodoroFromTask;
    QString (*apply)(const Lines& lines, const LineChanges& changes);
};

/// The layout of a note that is found by `rule`.
const NoteLayout& layoutOf(DailyNoteRule rule);

/// The lines of a note, as its tasks name them.
QList<QStringView> linesOf(const DailyNote& note);

} // namespace flitmark
