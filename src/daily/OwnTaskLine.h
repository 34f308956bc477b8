// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <optional>

namespace flitmark {

// What can be done with the line of a task in the own layout. Nothing comes back for a line that is no task.

/// With the other sign in its box: "x" where it is open, else a blank.
std::optional<QString> toggledTask(QStringView line);

/// With a tomato after its text: before the dates, priorities and fields of the Tasks plugin that end the line, with
/// the tags among them, and before a block's identifier.
std::optional<QString> taskWithTomato(QStringView line);

/// Without its last tomato and a space before it. Nothing comes back where there is none.
std::optional<QString> taskWithoutTomato(QStringView line);

/// All that comes before the text of an open task that follows the task `line` in its list.
QString nextTaskStart(QStringView line);

} // namespace flitmark
