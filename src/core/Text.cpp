// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <core/Text.h>

namespace flitmark {

bool isSpace(QChar c)
{
    return c == u'\t' || c.category() == QChar::Separator_Space;
}

bool isLineBreak(QChar c)
{
    const char16_t u = c.unicode();
    return (u >= 0x0A && u <= 0x0D) || u == 0x85 || u == 0x2028 || u == 0x2029;
}

namespace {

template<typename Predicate>
QStringView trim(QStringView text, Predicate isTrimmed)
{
    while (!text.isEmpty() && isTrimmed(text.front())) {
        text = text.sliced(1);
    }
    while (!text.isEmpty() && isTrimmed(text.back())) {
        text.chop(1);
    }
    return text;
}

} // namespace

QStringView trimSpaces(QStringView text)
{
    return trim(text, isSpace);
}

QStringView trimSpacesAndNewlines(QStringView text)
{
    return trim(text, [](QChar c) { return isSpace(c) || isLineBreak(c); });
}

QList<QStringView> splitLines(QStringView text)
{
    QList<QStringView> lines;
    qsizetype start = 0;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (!isLineBreak(text[i])) {
            continue;
        }
        lines.append(text.sliced(start, i - start));
        if (text[i] == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n') {
            ++i;
        }
        start = i + 1;
    }
    lines.append(text.sliced(start));
    return lines;
}

} // namespace flitmark
