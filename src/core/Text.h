// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QStringList>

namespace flitmark {

/// True for spaces and tabs: Unicode space separators and U+0009.
bool isSpace(QChar c);

/// True for the characters that end a line: LF, VT, FF, CR, NEL, LS, PS.
bool isLineBreak(QChar c);

/// `text` without spaces and tabs at either end. Line breaks stay.
QStringView trimSpaces(QStringView text);

/// `text` without spaces, tabs and line breaks at either end.
QStringView trimSpacesAndNewlines(QStringView text);

/// Cuts `text` at every line break, CR LF being one. A text that ends with a break has an empty last line, so the
/// result is never empty. The views point into `text`.
QList<QStringView> splitLines(QStringView text);

} // namespace flitmark
