// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <daily/DailyNoteParser.h>
#include <daily/NoteLayout.h>
#include <daily/OwnNoteEdits.h>
#include <daily/OwnNoteParser.h>

namespace flitmark {

namespace {

using Lines = NoteLayout::Lines;
using Result = NoteLayout::Result;

const NoteLayout planned = {
    .breaks = LineBreaks::All,
    .parse = parseDailyNote,
    .updateFocus = [](const Lines& lines, const QString& newFocus) -> Result {
        return DailyNoteEdits::updateFocus(lines, newFocus);
    },
    .addPomodoroEntry = [](const Lines& lines, qint64 number, const QString& time, const QString& focus) -> Result {
        return DailyNoteEdits::addPomodoroEntry(lines, number, time, focus);
    },
    .addNewTask = [](const Lines& lines, const QString& text) -> Result {
        if (auto changes = DailyNoteEdits::addNewTask(lines, text)) {
            return *std::move(changes);
        }
        return tl::unexpected(QStringLiteral("Could not find tasks section in daily note"));
    },
    .toggleTask = DailyNoteEdits::toggleTask,
    .addPomodoroToTask = DailyNoteEdits::addPomodoroToTask,
    .removePomodoroFromTask = DailyNoteEdits::removePomodoroFromTask,
    .apply = DailyNoteEdits::apply,
};

const NoteLayout own = {
    .breaks = LineBreaks::LfAndCr,
    .parse = parseOwnNote,
    .updateFocus = OwnNoteEdits::updateFocus,
    .addPomodoroEntry = OwnNoteEdits::addPomodoroEntry,
    .addNewTask = OwnNoteEdits::addNewTask,
    .toggleTask = OwnNoteEdits::toggleTask,
    .addPomodoroToTask = OwnNoteEdits::addPomodoroToTask,
    .removePomodoroFromTask = OwnNoteEdits::removePomodoroFromTask,
    .apply = OwnNoteEdits::apply,
};

} // namespace

const NoteLayout& layoutOf(DailyNoteRule rule)
{
    return rule == DailyNoteRule::FixedPlace ? planned : own;
}

QList<QStringView> linesOf(const DailyNote& note)
{
    return splitLines(note.content, layoutOf(note.rule).breaks);
}

} // namespace flitmark
