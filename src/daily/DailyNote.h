// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <daily/DailyNoteSettings.h>
#include <daily/InlineText.h>

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
    /// What follows the check box; the tomatoes stay in it. In a note of the own layout as it is shown.
    QString text;
    bool isCompleted = false;
    /// The index of its line in the note, from 0: how the task is named in every operation on it.
    qint64 lineNumber = 0;

    // In a note of the own layout alone:

    /// The heading above it; empty where there is none.
    QString group = {};
    /// How many tasks it is below.
    int depth = 0;
    /// What stands in the check box where that is something else than a blank, "x", "X" or "-".
    QString sign = {};
    QList<TextSpan> spans = {};
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

/// What a daily note says. The lists are in the order of the note. Its layout is the planned one, at the fixed place,
/// or the user's own: it makes no difference to who reads this.
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
    /// What says where it is; where there is none, where a new one would be.
    DailyNoteRule rule = DailyNoteRule::FixedPlace;
    /// Its path in the vault.
    QString pathInVault;
    /// The places in the vault that were looked at, and the one for a new note.
    QStringList places;
    QString newNote;
};

} // namespace flitmark
