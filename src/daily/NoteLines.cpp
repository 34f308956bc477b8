// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <daily/NoteLines.h>

#include <QString>
#include <QTextBoundaryFinder>

#include <algorithm>

namespace flitmark {

namespace {

/// True for what can make one character of two: marks, joiners and other invisible signs, skin tones.
bool canJoin(char32_t c)
{
    const QChar::Category category = QChar::category(c);
    return category <= QChar::Mark_Enclosing || category == QChar::Other_Format || category == QChar::Symbol_Modifier;
}

/// True when the emoji at `position` of `text`, `length` code units long, is a character of its own as a person counts.
/// Qt's boundary finder is asked only where a neighbour may join it: over whole lines it takes an emoji for part of the
/// Thai, Hindi or Burmese word beside it.
bool isCharacter(QStringView text, qsizetype position, qsizetype length)
{
    constexpr qsizetype context = 16;
    const QStringView before = text.first(position).last(qMin(position, context));
    const QStringView after = text.sliced(position + length).first(qMin(text.size() - position - length, context));
    const bool isJoinedBefore = !before.isEmpty() && before.back().category() == QChar::Other_Format;
    const QList<uint> next = after.first(qMin<qsizetype>(after.size(), 2)).toUcs4();
    const bool isJoinedAfter = !next.isEmpty() && canJoin(next.front());
    if (!isJoinedBefore && !isJoinedAfter) {
        return true;
    }
    const qsizetype start = isJoinedBefore ? position - before.size() : position;
    const qsizetype end = position + length + (isJoinedAfter ? after.size() : 0);
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text.sliced(start, end - start));
    finder.setPosition(position - start);
    return finder.isAtBoundary() && finder.toNextBoundary() == position - start + length;
}

} // namespace

QList<qsizetype> tomatoesIn(QStringView line)
{
    QList<qsizetype> places;
    const qsizetype length = tomato.size();
    for (qsizetype at = line.indexOf(tomato); at >= 0; at = line.indexOf(tomato, at + length)) {
        if (isCharacter(line, at, length)) {
            places.append(at);
        }
    }
    return places;
}

LowerCased::LowerCased(QStringView text)
{
    const bool isAscii = std::all_of(text.begin(), text.end(), [](QChar c) { return c.unicode() < 0x80; });
    if (!isAscii) {
        const QString lower = text.toString().toLower();
        m_text.append(lower.constData(), lower.size());
        return;
    }
    // Nearly every heading: no need for the tables of Unicode, nor for memory.
    m_text.resize(text.size());
    std::transform(text.begin(), text.end(), m_text.begin(),
                   [](QChar c) { return c >= u'A' && c <= u'Z' ? QChar(char16_t(c.unicode() | 0x20U)) : c; });
}

bool containsTaskMarker(QStringView line)
{
    for (qsizetype at = line.indexOf(u"- ["); at >= 0; at = line.indexOf(u"- [", at + 1)) {
        const QStringView rest = line.sliced(at + 3);
        if (rest.startsWith(u" ]") || rest.startsWith(u"x]") || rest.startsWith(u"X]")) {
            return true;
        }
    }
    return false;
}

std::optional<QStringView> sectionHeading(QStringView trimmed)
{
    return trimmed.startsWith(u"## ") ? std::optional(trimmed.sliced(3)) : std::nullopt;
}

} // namespace flitmark
