// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace flitmark {

/// Writes `line` and a line break to standard output and flushes it. A closed output is ignored.
void printLine(const QString& line);

} // namespace flitmark
