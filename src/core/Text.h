// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace flitmark {

/// True for spaces and tabs: Unicode space separators and U+0009.
bool isSpace(QChar c);

/// True for the characters that end a line: LF, VT, FF, CR, NEL, LS, PS.
bool isLineBreak(QChar c);

/// `text` without spaces and tabs at either end. Line breaks stay.
QStringView trimSpaces(QStringView text);

/// `text` without spaces, tabs and line breaks at either end.
QStringView trimSpacesAndNewlines(QStringView text);

/// `text` on one line: a space in the place of each line break, CR LF being one.
QString onOneLine(QStringView text);

/// The beginning of a text too long to be shown, 500 characters at most, and "…"; any other text as it is. What a
/// person sees as one character is not cut in two.
QString shortened(const QString& text);

/// The whole number that `text` is: an optional sign and ASCII digits, nothing else. Nothing when it is anything else
/// or does not fit.
std::optional<qint64> parseInteger(QStringView text);

/// What ends a line. CR LF is one break.
enum class LineBreaks {
    /// Every character that `isLineBreak` names.
    All,
    /// LF and CR.
    LfAndCr,
};

/// Walks the lines of a text from the first to the last, in the way of `splitLines`, without storing them.
class LineReader
{
public:
    explicit LineReader(QStringView text, LineBreaks breaks = LineBreaks::All)
        : m_rest(text)
        , m_breaks(breaks)
    {
    }

    /// Moves to the next line; false after the last one.
    bool next();
    /// The line itself, without its break. It points into the text.
    QStringView line() const { return m_line; }
    /// The line's index, from 0; -1 before the first `next()`.
    qint64 number() const { return m_number; }

private:
    QStringView m_rest;
    LineBreaks m_breaks;
    QStringView m_line;
    qint64 m_number = -1;
    bool m_isAtEnd = false;
};

/// Cuts `text` at every line break. A text that ends with a break has an empty last line, so the result is never empty.
/// The views point into `text`.
QList<QStringView> splitLines(QStringView text, LineBreaks breaks = LineBreaks::All);

} // namespace flitmark
