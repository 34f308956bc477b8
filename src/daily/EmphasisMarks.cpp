// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <core/Text.h>
#include <daily/EmphasisMarks.h>

#include <algorithm>

namespace flitmark {

namespace {

bool isPunctuation(QChar c)
{
    return c.isPunct() || c.isSymbol();
}

} // namespace

QStringView EmphasisMarks::take(QStringView source, qsizetype& at, InlineText& result)
{
    const QStringView rest = source.sliced(at);
    const QChar mark = rest[0];
    qsizetype length = 1;
    while (length < rest.size() && rest[length] == mark) {
        ++length;
    }
    const QChar before = at > 0 ? source[at - 1] : u' ';
    const QChar after = length < rest.size() ? rest[length] : u' ';
    at += length;
    const bool isPair = mark == u'~' || mark == u'=';
    if (isPair && length != 2) {
        return rest.first(length);
    }
    const bool isLeft = !isSpace(after) && (!isPunctuation(after) || isSpace(before) || isPunctuation(before));
    const bool isRight = !isSpace(before) && (!isPunctuation(before) || isSpace(after) || isPunctuation(after));
    // Within a word these are a part of it.
    const bool isWordy = mark == u'_';
    const bool canOpen = isLeft && (!isWordy || !isRight || isPunctuation(before));
    const bool canClose = isRight && (!isWordy || !isLeft || isPunctuation(after));
    Marks marks = {mark, result.text.size(), length};
    while (canClose && marks.length > 0 && m_open.value(mark) > 0) {
        close(marks, result);
    }
    if (canOpen && marks.length > 0) {
        m_opened.append(marks);
        ++m_open[mark];
    }
    return rest.first(length);
}

/// Ends the innermost emphasis of the kind of `marks`; what was opened within it and not closed is text.
void EmphasisMarks::close(Marks& marks, InlineText& result)
{
    using Kind = TextSpan::Kind;
    while (m_opened.last().mark != marks.mark) {
        --m_open[m_opened.takeLast().mark];
    }
    Marks& opened = m_opened.last();
    const qsizetype length = opened.length >= 2 && marks.length >= 2 ? 2 : 1;
    const qsizetype from = opened.start + opened.length;
    const Kind kind = marks.mark == u'~'   ? Kind::Struck
                      : marks.mark == u'=' ? Kind::Highlight
                      : length == 2        ? Kind::Strong
                                           : Kind::Emphasis;
    result.spans.append({kind, from, marks.start - from});
    m_taken.append({marks.mark, from - length, length});
    m_taken.append({marks.mark, marks.start, length});
    opened.length -= length;
    marks.start += length;
    marks.length -= length;
    if (opened.length == 0) {
        --m_open[m_opened.takeLast().mark];
    }
}

void EmphasisMarks::removeTaken(InlineText& result) const
{
    if (m_taken.isEmpty()) {
        return;
    }
    QList<Marks> taken = m_taken;
    std::sort(taken.begin(), taken.end(), [](const Marks& a, const Marks& b) { return a.start < b.start; });
    QString text;
    QList<qsizetype> removedBefore = {0};
    qsizetype from = 0;
    for (const Marks& marks : std::as_const(taken)) {
        text += QStringView(result.text).sliced(from, marks.start - from);
        from = marks.start + marks.length;
        removedBefore.append(removedBefore.last() + marks.length);
    }
    text += QStringView(result.text).sliced(from);
    const auto moved = [&](qsizetype position) {
        const auto after = std::lower_bound(taken.cbegin(), taken.cend(), position,
                                            [](const Marks& marks, qsizetype p) { return marks.start < p; });
        return position - removedBefore[after - taken.cbegin()];
    };
    for (TextSpan& span : result.spans) {
        const qsizetype end = moved(span.start + span.length);
        span.start = moved(span.start);
        span.length = end - span.start;
    }
    result.text = text;
}

} // namespace flitmark
