// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <daily/DailyNoteParser.h>

namespace flitmark {

/// What was parsed, as a text that is easy to compare: one line per thing found.
inline QString picture(const ParsedDailyNote& note)
{
    QStringList lines(note.focus.isEmpty() ? QStringList() : QStringList(QStringLiteral("focus ") + note.focus));
    for (const TaskItem& task : note.tasks) {
        const QString mark(task.isCompleted ? u'x' : u'o');
        lines += QStringLiteral("%1 %2 %3").arg(task.lineNumber).arg(mark, task.text);
    }
    for (const QString& text : note.coachNotes) {
        lines += QStringLiteral("coach ") + text;
    }
    for (const QString& text : note.workDone) {
        lines += QStringLiteral("done ") + text;
    }
    lines += note.pomodoroCount != 0 ? QStringList(QStringLiteral("count %1").arg(note.pomodoroCount)) : QStringList();
    for (const PomodoroEntry& entry : note.pomodoroLog) {
        lines += QStringLiteral("row %1 [%2] [%3]").arg(entry.number).arg(entry.time, entry.focus);
    }
    return lines.join(u'\n');
}

} // namespace flitmark
