// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <core/Text.h>
#include <daily/CodeSpans.h>
#include <daily/EmphasisMarks.h>
#include <daily/InlineText.h>

#include <QHash>

#include <algorithm>
#include <array>

namespace flitmark {

namespace {

using Kind = TextSpan::Kind;

/// True for what may begin something other than text.
bool isSpecial(QChar c)
{
    switch (c.unicode()) {
    case u'\\':
    case u'`':
    case u'%':
    case u'<':
    case u'*':
    case u'_':
    case u'~':
    case u'=':
    case u'[':
    case u'#':
        return true;
    default:
        return false;
    }
}

/// Finds the next place of a word, without looking twice at the same text.
class NextPlace
{
public:
    NextPlace(QStringView text, QStringView word)
        : m_text(text)
        , m_word(word)
    {
    }

    /// At or after `from`, which never gets less; -1 where there is none.
    qsizetype after(qsizetype from)
    {
        if (m_place >= 0 && m_place < from) {
            m_place = m_text.indexOf(m_word, from);
        }
        return m_place;
    }

private:
    QStringView m_text;
    QStringView m_word;
    qsizetype m_place = 0;
};

class Renderer
{
public:
    explicit Renderer(QStringView source)
        : m_source(source)
        , m_code(source)
        , m_wikiEnd(source, u"]]")
        , m_wikiStart(source, u"[[")
    {
    }

    InlineText run()
    {
        while (m_at < m_source.size()) {
            if (m_at == m_linkEnd) {
                closeLink();
                continue;
            }
            if (!step()) {
                append(m_source.sliced(m_at, 1));
                ++m_at;
            }
        }
        m_emphasis.removeTaken(m_result);
        while (!m_result.text.isEmpty() && isSpace(m_result.text.back())) {
            m_result.text.chop(1);
        }
        const qsizetype end = m_result.text.size();
        for (TextSpan& span : m_result.spans) {
            span.length = qMin(span.length, end - span.start);
        }
        m_result.spans.removeIf([](const TextSpan& span) { return span.length <= 0; });
        std::stable_sort(m_result.spans.begin(), m_result.spans.end(),
                         [](const TextSpan& a, const TextSpan& b) { return a.start < b.start; });
        return std::move(m_result);
    }

private:
    QStringView rest() const { return m_source.sliced(m_at); }

    void append(QStringView text)
    {
        // What a hidden comment leaves at the beginning.
        m_result.text += m_result.text.isEmpty() ? trimSpaces(text) : text;
    }

    void appendSpan(Kind kind, QStringView text, const QString& target = {})
    {
        m_result.spans.append({kind, m_result.text.size(), text.size(), target});
        m_result.text += text;
    }

    /// Takes what begins here and is more than text; false when nothing does.
    bool step()
    {
        switch (m_source[m_at].unicode()) {
        case u'\\':
            return takeEscape();
        case u'`':
            return takeCode();
        case u'%':
            return takeComment(u"%%", u"%%");
        case u'<':
            return takeComment(u"<!--", u"-->");
        case u'!':
            return rest().startsWith(u"![") && takeLink(1);
        case u'[':
            return takeLink(0);
        case u'#':
            return takeTag();
        case u'h':
            return takeAddress();
        case u'*':
        case u'_':
        case u'~':
        case u'=':
            append(m_emphasis.take(m_source, m_at, m_result));
            return true;
        default:
            return false;
        }
    }

    bool takeEscape()
    {
        const QStringView next = rest().sliced(1).first(qMin<qsizetype>(1, rest().size() - 1));
        if (next.isEmpty() || next[0].unicode() >= 0x80 || !(next[0].isPunct() || next[0].isSymbol())) {
            return false;
        }
        append(next);
        m_at += 2;
        return true;
    }

    bool takeCode()
    {
        const qsizetype marks = CodeSpans::marksAt(m_source, m_at);
        const qsizetype end = m_code.endOf(m_at);
        if (end < 0) {
            append(rest().first(marks));
            m_at += marks;
            return true;
        }
        appendSpan(Kind::Code, trimSpaces(m_source.sliced(m_at + marks, end - m_at - 2 * marks)));
        m_at = end;
        return true;
    }

    bool takeComment(QStringView begin, QStringView end)
    {
        if (!rest().startsWith(begin)) {
            return false;
        }
        const qsizetype found = m_source.indexOf(end, m_at + begin.size());
        m_at = found < 0 ? m_source.size() : found + end.size();
        return true;
    }

    /// A link of any kind, after so many signs that make it an embedded note or picture.
    bool takeLink(qsizetype signs)
    {
        const qsizetype open = m_at + signs;
        if (m_source.sliced(open).startsWith(u"[[")) {
            return takeWikiLink(open, signs > 0);
        }
        return takeMarkdownLink(open);
    }

    bool takeWikiLink(qsizetype open, bool isEmbedded)
    {
        const qsizetype start = open + 2;
        const qsizetype end = m_wikiEnd.after(start);
        const qsizetype next = m_wikiStart.after(start);
        if (end <= start || (next >= 0 && next < end)) {
            return false;
        }
        const QStringView content = m_source.sliced(start, end - start);
        const qsizetype bar = content.indexOf(u'|');
        QStringView target = trimSpaces(bar < 0 ? content : content.first(bar));
        if (target.endsWith(u'\\')) {
            target.chop(1); // As a bar is written in a table.
        }
        QString shown = bar < 0 || isEmbedded ? target.toString() : trimSpaces(content.sliced(bar + 1)).toString();
        if (bar < 0) {
            shown.replace(u'#', QStringLiteral(" > "));
            shown =
                trimSpaces(shown.startsWith(QStringLiteral(" > ")) ? QStringView(shown).sliced(3) : shown).toString();
        }
        appendSpan(Kind::NoteLink, shown, target.toString());
        m_at = end + 2;
        return true;
    }

    /// "[text](destination)": the text may hold anything but links.
    bool takeMarkdownLink(qsizetype open)
    {
        const qsizetype close = m_linkEnd < 0 ? closingBracket(open) : -1;
        if (close < 0 || close + 1 == m_source.size() || m_source[close + 1] != u'(') {
            return false;
        }
        // No address is longer. An unclosed one must not have the whole line looked through again and again.
        constexpr qsizetype longest = 4096;
        const QStringView tail = m_source.sliced(close + 2).first(qMin(longest, m_source.size() - close - 2));
        qsizetype depth = 1;
        qsizetype end = 0;
        for (; end < tail.size() && depth > 0; ++end) {
            depth += tail[end] == u'(' ? 1 : tail[end] == u')' ? -1 : 0;
        }
        if (depth > 0) {
            return false;
        }
        QStringView target = trimSpaces(tail.first(end - 1));
        const qsizetype angle = target.startsWith(u'<') ? target.indexOf(u'>') : -1;
        const qsizetype blank = target.indexOf(u' '); // A title may follow.
        target = angle > 0 ? target.sliced(1, angle - 1) : target.first(blank < 0 ? target.size() : blank);
        m_linkEnd = close;
        m_afterLink = close + 2 + end;
        m_linkStart = m_result.text.size();
        m_linkTarget = target.toString();
        m_at = open + 1;
        return true;
    }

    void closeLink()
    {
        const qsizetype length = m_result.text.size() - m_linkStart;
        const qsizetype colon = m_linkTarget.indexOf(u':');
        const bool hasScheme = colon > 0 && !QStringView(m_linkTarget).first(colon).contains(u'/');
        if (!hasScheme) {
            const QString note = QString::fromUtf8(QByteArray::fromPercentEncoding(m_linkTarget.toUtf8()));
            m_result.spans.append({Kind::NoteLink, m_linkStart, length, note});
        } else if (isSafe(m_linkTarget)) {
            m_result.spans.append({Kind::WebLink, m_linkStart, length, m_linkTarget});
        }
        m_at = m_afterLink;
        m_linkEnd = -1;
    }

    static bool isSafe(const QString& address)
    {
        static constexpr std::array schemes = {u"https://", u"http://", u"mailto:", u"obsidian://"};
        return std::any_of(schemes.begin(), schemes.end(),
                           [&](QStringView scheme) { return address.startsWith(scheme, Qt::CaseInsensitive); });
    }

    /// Where the bracket at `open` is closed; -1 where it isn't.
    qsizetype closingBracket(qsizetype open)
    {
        if (!m_hasBrackets) {
            m_hasBrackets = true;
            QList<qsizetype> opened;
            for (qsizetype i = 0; i < m_source.size(); ++i) {
                if (m_source[i] == u'\\') {
                    ++i;
                } else if (m_source[i] == u'[') {
                    opened.append(i);
                } else if (m_source[i] == u']' && !opened.isEmpty()) {
                    m_brackets.insert(opened.takeLast(), i);
                }
            }
        }
        return m_brackets.value(open, -1);
    }

    bool takeTag()
    {
        if (m_at > 0 && !isSpace(m_source[m_at - 1])) {
            return false;
        }
        qsizetype length = 1;
        bool hasLetter = false;
        for (; length < rest().size(); ++length) {
            const QChar c = rest()[length];
            const bool isOfTag = c.unicode() < 0x80 ? c.isLetterOrNumber() || QStringView(u"_-/").contains(c)
                                                    : !isSpace(c) && !c.isPunct();
            if (!isOfTag) {
                break;
            }
            hasLetter = hasLetter || !c.isDigit();
        }
        if (!hasLetter) {
            return false;
        }
        appendSpan(Kind::Tag, rest().first(length));
        m_at += length;
        return true;
    }

    bool takeAddress()
    {
        if (!rest().startsWith(u"http://") && !rest().startsWith(u"https://")) {
            return false;
        }
        if (m_linkEnd >= 0 || (m_at > 0 && m_source[m_at - 1].isLetterOrNumber())) {
            return false;
        }
        qsizetype length = rest().indexOf(u"//") + 2;
        const qsizetype least = length;
        qsizetype depth = 0;
        for (; length < rest().size(); ++length) {
            const QChar c = rest()[length];
            depth += c == u'(' ? 1 : c == u')' ? -1 : 0;
            if (isSpace(c) || QStringView(u"<>\"`|").contains(c) || depth < 0) {
                break;
            }
        }
        while (length > least && QStringView(u".,;:!?'*_~").contains(rest()[length - 1])) {
            --length;
        }
        if (length == least) {
            return false;
        }
        appendSpan(Kind::WebLink, rest().first(length), rest().first(length).toString());
        m_at += length;
        return true;
    }

    QStringView m_source;
    qsizetype m_at = 0;
    InlineText m_result;
    CodeSpans m_code;
    NextPlace m_wikiEnd;
    NextPlace m_wikiStart;

    /// The link whose text we are in: where that ends in the source, or -1, and what follows.
    qsizetype m_linkEnd = -1;
    qsizetype m_afterLink = 0;
    qsizetype m_linkStart = 0;
    QString m_linkTarget;

    QHash<qsizetype, qsizetype> m_brackets;
    bool m_hasBrackets = false;

    EmphasisMarks m_emphasis;
};

} // namespace

InlineText renderInline(QStringView line)
{
    line = trimSpaces(line);
    if (std::none_of(line.begin(), line.end(), isSpecial) && !line.contains(u"://")) {
        return {line.toString(), {}};
    }
    return Renderer(line).run();
}

} // namespace flitmark
