// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <daily/OwnNoteView.h>

namespace flitmark {

/// The tasks between two headings of a note in the own layout.
struct TaskGroup
{
    /// The line of the heading above them; -1 where there is none.
    qsizetype heading;
    /// The heading speaks of tasks.
    bool isNamed = false;
    bool hasOpen = false;
    /// The last of the tasks that are indented least; -1 where there is none.
    qsizetype lastTask = -1;
};

/// The group that a new task belongs to: the last one with open tasks that is named so, else one that is named so, else
/// the last one with open tasks.
std::optional<TaskGroup> groupForNewTask(const DailyNoteEdits::Lines& lines, const OwnNoteView& view);

/// The line after all that belongs to the task at `task`: what is indented below it, and the text that goes on.
qsizetype taskBlockEnd(const DailyNoteEdits::Lines& lines, const OwnNoteView& view, qsizetype task);

} // namespace flitmark
