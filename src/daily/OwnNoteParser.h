// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <daily/DailyNote.h>

namespace flitmark {

/// Reads a daily note in the own layout: tasks wherever they stand, and the sections that the planned layout has, under
/// headings of any level. In time linear in the length of `content`; never fails, whatever the text.
ParsedDailyNote parseOwnNote(QStringView content);

/// Where the text of a line begins, after quote marks, a callout's title mark, a list marker and a check box.
qsizetype plainTextStart(QStringView line);

/// The text of a line of the focus section as it is shown; empty for one that names no focus.
QString focusText(QStringView line);

} // namespace flitmark
