// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <core/Text.h>

#include <QTextBoundaryFinder>

#include <algorithm>

namespace flitmark {

bool isSpace(QChar c)
{
    return c.unicode() < 0x80 ? c == u' ' || c == u'\t' : c.category() == QChar::Separator_Space;
}

bool isLineBreak(QChar c)
{
    const char16_t u = c.unicode();
    if (u > 0x0D && u < 0x85) {
        return false;
    }
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

QString onOneLine(QStringView text)
{
    QString line;
    for (LineReader reader(text); reader.next();) {
        if (reader.number() > 0) {
            line.append(u' ');
        }
        line.append(reader.line());
    }
    return line;
}

QString shortened(const QString& text)
{
    constexpr qsizetype longest = 500;
    if (text.size() <= longest) {
        return text;
    }
    // What decides where the last character begins stands close to it.
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme,
                               QStringView(text).first(std::min(longest + 2, text.size())));
    finder.setPosition(longest);
    const qsizetype end = finder.isAtBoundary() ? longest : finder.toPreviousBoundary();
    return text.first(end) + u'…';
}

std::optional<qint64> parseInteger(QStringView text)
{
    const bool isNegative = text.startsWith(u'-');
    if (isNegative || text.startsWith(u'+')) {
        text = text.sliced(1);
    }
    if (text.isEmpty()) {
        return std::nullopt;
    }
    qint64 value = 0;
    for (const QChar c : text) {
        if (c < u'0' || c > u'9') {
            return std::nullopt;
        }
        // Counted downwards, since the smallest number has no positive counterpart.
        if (__builtin_mul_overflow(value, 10, &value) || __builtin_sub_overflow(value, c.unicode() - u'0', &value)) {
            return std::nullopt;
        }
    }
    if (!isNegative && __builtin_sub_overflow(0, value, &value)) {
        return std::nullopt;
    }
    return value;
}

namespace {

/// The index of the first line break in `text`, or its size.
qsizetype findLineBreak(QStringView text)
{
    const char16_t* const units = text.utf16();
    const qsizetype size = text.size();
    qsizetype i = 0;
    // Whole blocks without a branch per character, which compilers turn into vector instructions.
    constexpr qsizetype block = 16;
    for (; i + block <= size; i += block) {
        quint16 found = 0;
        for (qsizetype j = 0; j < block; ++j) {
            const quint16 u = units[i + j];
            const auto asciiBreak = static_cast<quint16>(static_cast<quint16>(u - 0x0AU) <= 3U);
            const auto otherBreak = static_cast<quint16>(u == 0x85U);
            const auto separator = static_cast<quint16>((u & 0xFFFEU) == 0x2028U);
            found = static_cast<quint16>(found | asciiBreak | otherBreak | separator);
        }
        if (found != 0) {
            break;
        }
    }
    while (i < size && !isLineBreak(text[i])) {
        ++i;
    }
    return i;
}

} // namespace

bool LineReader::next()
{
    if (m_isAtEnd) {
        return false;
    }
    qsizetype end = findLineBreak(m_rest);
    while (m_breaks == LineBreaks::LfAndCr && end < m_rest.size() && m_rest[end] != u'\n' && m_rest[end] != u'\r') {
        end += 1 + findLineBreak(m_rest.sliced(end + 1));
    }
    m_line = m_rest.first(end);
    ++m_number;
    m_isAtEnd = end == m_rest.size();
    if (!m_isAtEnd) {
        const bool isPair = m_rest[end] == u'\r' && end + 1 < m_rest.size() && m_rest[end + 1] == u'\n';
        m_rest = m_rest.sliced(end + (isPair ? 2 : 1));
    }
    return true;
}

QList<QStringView> splitLines(QStringView text, LineBreaks breaks)
{
    QList<QStringView> lines;
    for (LineReader reader(text, breaks); reader.next();) {
        lines.append(reader.line());
    }
    return lines;
}

} // namespace flitmark
