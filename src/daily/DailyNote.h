// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <QUuid>

namespace flitmark {

/// A task line of a daily note.
struct TaskItem
{
    /// Made anew at every parse.
    QUuid id;
    /// What follows the check box; the tomatoes stay in it.
    QString text;
    bool isCompleted = false;
    /// The index of its line in the note, from 0: how the task is named in every operation on it.
    qint64 lineNumber = 0;
};

/// A row of a daily note's Pomodoro log.
struct PomodoroEntry
{
    /// Made anew at every parse.
    QUuid id;
    qint64 number = 0;
    /// As written; we write "HH:mm".
    QString time;
    QString focus;
};

/// What a daily note says. The lists are in the order of the note.
struct ParsedDailyNote
{
    QString focus;
    QList<TaskItem> tasks;
    QStringList coachNotes;
    QStringList workDone;
    /// Pomodoros completed on the day, by its tally line.
    qint64 pomodoroCount = 0;
    QList<PomodoroEntry> pomodoroLog;
};

/// A day's note as it was last read.
struct DailyNote : ParsedDailyNote
{
    /// Absolute; "/" before the first load.
    QString path = QStringLiteral("/");
    /// The file was found and read.
    bool exists = false;
    /// The whole text of the file.
    QString content;
};

} // namespace flitmark
