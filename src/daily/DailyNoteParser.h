// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <daily/DailyNote.h>

namespace flitmark {

/// Reads a daily note: the focus, the tasks, the coach's notes, the work done, the Pomodoros. One forward pass, in time
/// linear in the length of `content`; never fails, whatever the text.
ParsedDailyNote parseDailyNote(QStringView content);

} // namespace flitmark
