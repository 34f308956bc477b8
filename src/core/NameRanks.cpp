// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <core/NameRanks.h>

#include <QSet>

#include <algorithm>

namespace flitmark {

namespace {

constexpr char16_t firstPrintable = u' ';
constexpr char16_t lastPrintable = u'~';

/// Whether the character can be expected to stand for itself wherever it stands: no mark, no sign that joins or repeats
/// others, and of a script whose letters do.
bool standsAlone(char32_t c)
{
    if (QChar::decompositionTag(c) > QChar::Canonical) {
        return false;
    }
    switch (QChar::category(c)) {
    case QChar::Letter_Uppercase:
    case QChar::Letter_Lowercase:
    case QChar::Letter_Other:
    case QChar::Symbol_Other:
    case QChar::Punctuation_Dash:
    case QChar::Punctuation_InitialQuote:
    case QChar::Punctuation_FinalQuote:
        break;
    default:
        return false;
    }
    switch (QChar::script(c)) {
    case QChar::Script_Common:
    case QChar::Script_Latin:
    case QChar::Script_Greek:
    case QChar::Script_Cyrillic:
    case QChar::Script_Hebrew:
    case QChar::Script_Hiragana:
    case QChar::Script_Katakana:
    case QChar::Script_Han:
        return true;
    default:
        return false;
    }
}

/// The characters beyond ASCII in `names` that stand alone.
QStringList othersIn(const QList<QStringView>& names)
{
    std::vector<bool> seen(0x10000);
    QSet<char32_t> beyond;
    QStringList found;
    const auto add = [&found](char32_t c) {
        if (standsAlone(c)) {
            found.append(QString::fromUcs4(&c, 1));
        }
    };
    for (const QStringView name : names) {
        for (qsizetype i = 0; i < name.size(); ++i) {
            const char16_t unit = name[i].unicode();
            if (unit <= lastPrintable) {
                continue;
            }
            if (!QChar::isSurrogate(unit)) {
                if (!seen[unit]) {
                    seen[unit] = true;
                    add(unit);
                }
            } else if (i + 1 < name.size() && name[i].isHighSurrogate() && name[i + 1].isLowSurrogate()) {
                const char32_t c = QChar::surrogateToUcs4(unit, name[++i].unicode());
                if (!beyond.contains(c)) {
                    beyond.insert(c);
                    add(c);
                }
            }
        }
    }
    return found;
}

char32_t characterOf(const QString& text)
{
    return text.size() > 1 ? QChar::surrogateToUcs4(text[0], text[1]) : text[0].unicode();
}

} // namespace

/// One byte for most, two for the rest, none of them zero: as bytes they are in the order of the ranks, and none begins
/// as another one. 0 for ranks that are too great.
quint32 NameRanks::encoded(quint32 rank)
{
    constexpr quint32 shortRanks = 200;
    if (rank <= shortRanks) {
        return rank;
    }
    const quint32 lead = shortRanks + 1 + (rank - shortRanks) / 0xff;
    return lead <= 0xff ? lead | (1 + (rank - shortRanks) % 0xff) << 8 : 0;
}

void NameRanks::add(char32_t character, quint32 rank, quint32 second)
{
    const quint32 first = encoded(rank);
    const quint32 bytes = first | encoded(second) << (first > 0xff ? 16 : 8);
    if (character < 0x10000) {
        m_units[character] = bytes;
    } else {
        m_beyond.insert(character, bytes);
    }
}

bool NameRanks::append(QStringView name, std::vector<quint8>& ranks) const
{
    const size_t begin = ranks.size();
    ranks.resize(begin + static_cast<size_t>(name.size()) * sizeof(quint32) + keySize);
    quint8* end = &ranks[begin];
    for (qsizetype i = 0; i < name.size(); ++i) {
        quint32 bytes = m_units[name[i].unicode()];
        if (bytes == 0 && name[i].isHighSurrogate() && i + 1 < name.size()) {
            bytes = m_beyond.value(QChar::surrogateToUcs4(name[i], name[i + 1]));
            ++i;
        }
        if (bytes == 0) {
            ranks.resize(begin);
            return false;
        }
        for (; bytes != 0; bytes >>= 8) {
            *end++ = static_cast<quint8>(bytes);
        }
    }
    const auto length = static_cast<size_t>(end - &ranks[begin]);
    ranks.resize(begin + (length / keySize + 1) * keySize);
    return true;
}

NameAlphabet::NameAlphabet(const QLocale& locale)
    : m_collator(locale)
{
    m_collator.setCaseSensitivity(Qt::CaseInsensitive);
    for (char16_t c = firstPrintable; c <= lastPrintable; ++c) {
        m_plain.append(QChar(c));
    }
    std::stable_sort(m_plain.begin(), m_plain.end(),
                     [this](const QString& a, const QString& b) { return compare(a, b) < 0; });
    QList<Class> classes;
    for (const QString& c : std::as_const(m_plain)) {
        if (classes.isEmpty() || compare(classes.last().last(), c) < 0) {
            classes.append(Class());
        }
        classes.last().append(c);
    }
    m_hasRanks = areRanksTrue(classes);
}

/// Whether names of two characters follow the ranks of each.
bool NameAlphabet::areRanksTrue(const QList<Class>& classes) const
{
    for (qsizetype first = 0; first < classes.size(); ++first) {
        for (const QString& start : classes[first]) {
            if (compare(start, QString()) <= 0) {
                return false;
            }
            QString previous = start;
            for (const Class& seconds : classes) {
                for (const QString& second : seconds) {
                    const QString pair = start + second;
                    const bool isEqual = &second != &seconds.first();
                    if ((compare(previous, pair) < 0) == isEqual) {
                        return false;
                    }
                    previous = pair;
                }
            }
            if (first + 1 < classes.size() && compare(previous, classes[first + 1].first()) >= 0) {
                return false;
            }
        }
    }
    return true;
}

/// Whether what follows `a` and `b` decides before they do.
bool NameAlphabet::areAlike(const QString& a, const QString& b) const
{
    return compare(a + u'0', b + u'1') < 0 && compare(b + u'0', a + u'1') < 0;
}

/// The ASCII characters that `character` is sorted as; empty when there are none.
QString NameAlphabet::expansionOf(const QString& character) const
{
    for (const QString& letters :
         {QStringLiteral("ss"), QStringLiteral("ae"), QStringLiteral("oe"), QStringLiteral("ue")}) {
        if (areAlike(character, letters)) {
            return letters;
        }
    }
    return {};
}

/// The classes of the ASCII characters and `characters` in their order. Those without a rank of their own become
/// `expanded`.
QList<NameAlphabet::Class> NameAlphabet::classesOf(QStringList& characters, QStringList& expanded) const
{
    const auto isBefore = [this](const QString& a, const QString& b) { return compare(a, b) < 0; };
    std::stable_sort(characters.begin(), characters.end(), isBefore);
    QStringList all;
    std::merge(m_plain.cbegin(), m_plain.cend(), characters.cbegin(), characters.cend(), std::back_inserter(all),
               isBefore);
    const QString greatest = all.last();
    QList<Class> classes;
    for (const QString& c : std::as_const(all)) {
        const bool isPlain = c.size() == 1 && c[0].unicode() <= lastPrintable;
        if (!classes.isEmpty() && areAlike(classes.last().last(), c)) {
            classes.last().append(c);
        } else if (classes.isEmpty() || isPlain || compare(classes.last().last() + greatest, c) < 0) {
            classes.append(Class(c));
        } else {
            // It begins as another one does.
            expanded.append(c);
        }
    }
    return classes;
}

NameRanks NameAlphabet::ranksFor(const QList<QStringView>& names) const
{
    NameRanks ranks;
    if (!m_hasRanks) {
        return ranks;
    }
    QStringList others = othersIn(names);
    QStringList expanded;
    QHash<QChar, quint32> plainRanks;
    quint32 rank = 0;
    for (const Class& characters : classesOf(others, expanded)) {
        ++rank;
        for (const QString& c : characters) {
            ranks.add(characterOf(c), rank);
            if (characterOf(c) <= lastPrintable) {
                plainRanks.insert(c[0], rank);
            }
        }
    }
    for (const QString& c : std::as_const(expanded)) {
        if (const QString letters = expansionOf(c); !letters.isEmpty()) {
            ranks.add(characterOf(c), plainRanks[letters[0]], plainRanks[letters[1]]);
        }
    }
    return ranks;
}

} // namespace flitmark
