// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <daily/DailyNote.h>

#include <QList>
#include <QString>
#include <QStringList>

namespace flitmark {

class DailyNoteManager;

/// A task as the Daily tab shows it.
struct DailyTaskRow
{
    qint64 lineNumber = 0;
    /// Cut where it is very long.
    QString text;
    bool isCompleted = false;
    /// How many tomatoes stand as buttons, at most six.
    qint64 tomatoButtons = 0;
    /// What stands after them for the rest, as "+3"; empty when there is no rest.
    QString moreTomatoes;
    /// The heading that the task stands below; empty where none is shown.
    QString group;
    /// How many tasks it is below.
    int depth = 0;
    /// What the check box shows in the place of a tick; empty for nothing.
    QString sign;
    /// Links and emphasis in the text.
    QList<TextSpan> spans;

    bool operator==(const DailyTaskRow&) const = default;
};

/// An open task as the task picker shows it.
struct TaskPickerRow
{
    qint64 lineNumber = 0;
    QString text;
    /// At most five tomatoes and the number of the rest, as "🍅🍅🍅🍅🍅+4".
    QString tomatoes;

    bool operator==(const TaskPickerRow&) const = default;
};

/// The rows for all tasks of today's note, in the order of the note.
QList<DailyTaskRow> dailyTaskRows(const DailyNoteManager& manager);

/// The rows for its open tasks.
QList<TaskPickerRow> taskPickerRows(const DailyNoteManager& manager);

/// What the tab shows in the place of a note in pictures of the program.
struct DailyTabDemo
{
    QString focus;
    QStringList tasks;
    QStringList workDone;
    QString caption;
};

DailyTabDemo dailyTabDemo();

} // namespace flitmark
