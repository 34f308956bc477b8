// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <core/Text.h>
#include <daily/CodeSpans.h>
#include <daily/OwnNoteLines.h>

#include <QTextBoundaryFinder>

#include <algorithm>

namespace flitmark {

namespace {

constexpr int tabWidth = 4;

bool isDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

bool isMark(QStringView line)
{
    return trimSpaces(line) == u"---" && line.startsWith(u'-');
}

/// How many times `sign` stands at `position`.
qsizetype runLength(QStringView line, qsizetype position, QChar sign)
{
    qsizetype length = 0;
    while (position + length < line.size() && line[position + length] == sign) {
        ++length;
    }
    return length;
}

} // namespace

LineStart lineStart(QStringView line)
{
    LineStart start;
    for (; start.text < line.size(); ++start.text) {
        const QChar c = line[start.text];
        if (c == u'>') {
            ++start.quotes;
            start.quotesEnd = start.text + 1;
            start.indent = 0;
        } else if (c == u'\t') {
            start.indent += tabWidth - start.indent % tabWidth;
        } else if (isSpace(c)) {
            ++start.indent;
        } else {
            break;
        }
    }
    return start;
}

std::optional<qsizetype> listItemText(QStringView line, qsizetype position)
{
    constexpr qsizetype mostDigits = 9;
    qsizetype at = position;
    if (at < line.size() && (line[at] == u'-' || line[at] == u'*' || line[at] == u'+')) {
        ++at;
    } else {
        while (at < line.size() && at - position < mostDigits && isDigit(line[at])) {
            ++at;
        }
        if (at == position || at == line.size() || (line[at] != u'.' && line[at] != u')')) {
            return std::nullopt;
        }
        ++at;
    }
    if (at < line.size() && !isSpace(line[at])) {
        return std::nullopt;
    }
    while (at < line.size() && isSpace(line[at])) {
        ++at;
    }
    return at;
}

std::optional<TaskBox> taskBox(QStringView line, const LineStart& start)
{
    constexpr qsizetype mostBlanks = 4;
    const auto text = listItemText(line, start.text);
    if (!text || *text + 2 >= line.size() || line[*text] != u'[') {
        return std::nullopt;
    }
    const QStringView marker = line.sliced(start.text, *text - start.text);
    if (marker.size() - trimSpaces(marker).size() > mostBlanks) {
        return std::nullopt;
    }
    const QStringView rest = line.sliced(*text + 1);
    const bool isPlain = rest[0].unicode() < 0x80 && rest[1].unicode() < 0x80;
    qsizetype length = 1;
    if (!isPlain) {
        // One character on its own never needs more of the line.
        constexpr qsizetype enough = 64;
        QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, rest.first(qMin(rest.size(), enough)));
        length = finder.toNextBoundary();
    }
    const QStringView sign = rest.first(length);
    if (sign == u"[" || sign == u"]" || length >= rest.size() || rest[length] != u']') {
        return std::nullopt;
    }
    const qsizetype end = *text + length + 2;
    if (end < line.size() && !isSpace(line[end])) {
        return std::nullopt;
    }
    return TaskBox{*text, sign, end};
}

std::optional<NoteHeading> noteHeading(QStringView line, const LineStart& start)
{
    constexpr qsizetype mostLevels = 6;
    const qsizetype level = runLength(line, start.text, u'#');
    if (level == 0 || level > mostLevels || start.quotes > 0 || start.indent >= tabWidth) {
        return std::nullopt;
    }
    const QStringView rest = line.sliced(start.text + level);
    if (!rest.isEmpty() && !isSpace(rest.front())) {
        return std::nullopt;
    }
    QStringView text = trimSpaces(rest);
    QStringView open = text;
    while (open.endsWith(u'#')) {
        open.chop(1);
    }
    if (open.isEmpty() || isSpace(open.back())) {
        text = trimSpaces(open);
    }
    return NoteHeading{level, text};
}

bool isRule(QStringView text)
{
    return std::all_of(text.begin(), text.end(),
                       [](QChar c) { return isSpace(c) || QStringView(u"*-_~=").contains(c); });
}

HiddenLines::HiddenLines(QStringView content)
    : m_hasComments(content.contains(u"%%") || content.contains(u"<!--"))
{
    LineReader reader(content, LineBreaks::LfAndCr);
    if (!reader.next() || !isMark(reader.line())) {
        return;
    }
    while (reader.next()) {
        if (isMark(reader.line())) {
            m_frontMatter = reader.number() + 1;
            return;
        }
    }
}

bool HiddenLines::hides(QStringView line, const LineStart& start)
{
    if (m_taken++ < m_frontMatter) {
        return true;
    }
    if (m_comment != Comment::None) {
        readComments(line);
        return true;
    }
    if (m_fenceLength > 0 && start.quotes >= m_fenceQuotes) {
        if (closesFence(line)) {
            m_fenceLength = 0;
        }
        return true;
    }
    m_fenceLength = 0;
    if (opensFence(line, start)) {
        return true;
    }
    if (m_hasComments) {
        readComments(line);
    }
    return false;
}

bool HiddenLines::opensFence(QStringView line, const LineStart& start)
{
    constexpr qsizetype leastMarks = 3;
    if (start.text == line.size() || line[start.text].isLetter()) {
        return false;
    }
    // Code may be all that an item of a list is.
    qsizetype at = start.text;
    while (const auto text = listItemText(line, at)) {
        at = *text;
    }
    const QChar sign = at < line.size() ? line[at] : QChar();
    if (sign != u'`' && sign != u'~') {
        return false;
    }
    const qsizetype length = runLength(line, at, sign);
    if (length < leastMarks || (sign == u'`' && line.sliced(at + length).contains(u'`'))) {
        return false;
    }
    m_fence = sign;
    m_fenceLength = length;
    m_fenceQuotes = start.quotes;
    return true;
}

bool HiddenLines::closesFence(QStringView line) const
{
    // Only the quote marks that the fence itself has are no part of the code.
    qsizetype at = 0;
    for (int quotes = 0; quotes < m_fenceQuotes; ++at) {
        quotes += line[at] == u'>' ? 1 : 0;
    }
    const QStringView text = trimSpaces(line.sliced(at));
    return runLength(text, 0, m_fence) == text.size() && text.size() >= m_fenceLength;
}

/// Goes through the comments of a line, which may begin in one and end in one. Inside code they are none.
void HiddenLines::readComments(QStringView line)
{
    std::optional<CodeSpans> code;
    qsizetype at = 0;
    while (at < line.size()) {
        if (m_comment != Comment::None) {
            const QStringView end = m_comment == Comment::Percent ? QStringView(u"%%") : QStringView(u"-->");
            const qsizetype found = line.indexOf(end, at);
            if (found < 0) {
                return;
            }
            m_comment = Comment::None;
            at = found + end.size();
        } else if (line[at] == u'`') {
            if (!code) {
                code.emplace(line);
            }
            const qsizetype end = code->endOf(at);
            at = end < 0 ? at + CodeSpans::marksAt(line, at) : end;
        } else if (line.sliced(at).startsWith(u"%%")) {
            m_comment = Comment::Percent;
            at += 2;
        } else if (line.sliced(at).startsWith(u"<!--")) {
            m_comment = Comment::Html;
            at += 4;
        } else {
            ++at;
        }
    }
}

} // namespace flitmark
