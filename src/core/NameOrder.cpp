// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <core/NameOrder.h>

#include <algorithm>
#include <iterator>
#include <vector>

namespace flitmark {

namespace {

constexpr char16_t firstPrintable = u' ';
constexpr char16_t lastPrintable = u'~';
/// How many ranks are compared at a time.
constexpr qsizetype ranksPerKey = 8;

} // namespace

struct NameOrder::Row
{
    quint64 key;
    qsizetype position;
};

NameOrder::NameOrder(const QLocale& locale)
    : m_collator(locale)
    , m_hasCollation(locale.language() != QLocale::C)
{
    m_collator.setCaseSensitivity(Qt::CaseInsensitive);
    findRanks();
}

void NameOrder::findRanks()
{
    QString ascending;
    for (char16_t c = firstPrintable; c <= lastPrintable; ++c) {
        ascending.append(QChar(c));
    }
    const auto compare = [this](QChar a, QChar b) {
        return m_collator.compare(QStringView(&a, 1), QStringView(&b, 1));
    };
    std::stable_sort(ascending.begin(), ascending.end(), [&](QChar a, QChar b) { return compare(a, b) < 0; });
    quint8 rank = 1;
    for (qsizetype i = 0; i < ascending.size(); ++i) {
        if (i > 0 && compare(ascending[i - 1], ascending[i]) < 0) {
            ++rank;
        }
        m_ranks[ascending[i].unicode()] = rank;
    }
    m_hasRanks = areRanksTrue(ascending);
}

/// Whether names of two characters follow the ranks of each: they don't where a language ignores signs, has letters
/// written as two ("ch" after "h") or tells letters apart only between words that are the same otherwise.
bool NameOrder::areRanksTrue(QStringView ascending) const
{
    const auto rankOf = [this](QChar c) { return m_ranks[c.unicode()]; };
    if (std::any_of(ascending.begin(), ascending.end(),
                    [this](QChar c) { return m_collator.compare(QStringView(&c, 1), QStringView()) <= 0; })) {
        return false;
    }
    for (qsizetype first = 0; first < ascending.size(); ++first) {
        QString previous;
        for (const QChar second : ascending) {
            const QString pair = QString(ascending[first]) + second;
            if (!previous.isEmpty() &&
                (m_collator.compare(previous, pair) < 0) != (rankOf(previous[1]) < rankOf(second))) {
                return false;
            }
            previous = pair;
        }
        const auto next = std::find_if(ascending.begin() + first, ascending.end(),
                                       [&](QChar c) { return rankOf(c) > rankOf(ascending[first]); });
        if (next != ascending.end() && m_collator.compare(previous, QString(*next)) >= 0) {
            return false;
        }
    }
    return true;
}

bool NameOrder::isPlain(QStringView name) const
{
    return m_hasRanks && std::all_of(name.begin(), name.end(), [](QChar c) {
               return c.unicode() >= firstPrintable && c.unicode() <= lastPrintable;
           });
}

/// The ranks of the plain `name` from `offset` on, the first in the highest byte; zeros behind its end.
quint64 NameOrder::ranksAt(QStringView name, qsizetype offset) const
{
    quint64 key = 0;
    for (qsizetype i = offset; i < offset + ranksPerKey; ++i) {
        key = key << 8 | (i < name.size() ? m_ranks[name[i].unicode()] : quint8{0});
    }
    return key;
}

/// Sorts rows whose names have equal ranks before `offset`.
void NameOrder::sortPlain(std::span<Row> rows, qsizetype offset, const QList<QStringView>& names) const
{
    for (Row& row : rows) {
        row.key = ranksAt(names[row.position], offset);
    }
    std::sort(rows.begin(), rows.end(), [](const Row& a, const Row& b) { return a.key < b.key; });
    for (auto begin = rows.begin(); begin != rows.end();) {
        const auto end = std::find_if(begin, rows.end(), [begin](const Row& row) { return row.key != begin->key; });
        const bool isAtEndOfNames = (begin->key & 0xff) == 0;
        if (end - begin > 1 && !isAtEndOfNames) {
            sortPlain({begin, end}, offset + ranksPerKey, names);
        } else {
            std::sort(begin, end,
                      [&](const Row& a, const Row& b) { return names[a.position].compare(names[b.position]) < 0; });
        }
        begin = end;
    }
}

void NameOrder::sortOthers(QList<qsizetype>& positions, const QList<QStringView>& names) const
{
    const auto isBefore = [&](qsizetype a, qsizetype b, int order) {
        return order != 0 ? order < 0 : names[a].compare(names[b]) < 0;
    };
    if (!m_hasCollation) {
        // The keys of plain code unit order would not ignore the case.
        std::sort(positions.begin(), positions.end(),
                  [&](qsizetype a, qsizetype b) { return isBefore(a, b, m_collator.compare(names[a], names[b])); });
        return;
    }
    struct Keyed
    {
        QCollatorSortKey key;
        qsizetype position;
    };
    std::vector<Keyed> rows;
    rows.reserve(static_cast<size_t>(positions.size()));
    for (const qsizetype position : positions) {
        rows.push_back({m_collator.sortKey(names[position].toString()), position});
    }
    std::sort(rows.begin(), rows.end(),
              [&](const Keyed& a, const Keyed& b) { return isBefore(a.position, b.position, a.key.compare(b.key)); });
    std::transform(rows.begin(), rows.end(), positions.begin(), [](const Keyed& row) { return row.position; });
}

QList<qsizetype> NameOrder::sorted(const QList<QStringView>& names) const
{
    std::vector<Row> plain;
    plain.reserve(static_cast<size_t>(names.size()));
    QList<qsizetype> others;
    for (qsizetype i = 0; i < names.size(); ++i) {
        if (isPlain(names[i])) {
            plain.push_back({0, i});
        } else {
            others.append(i);
        }
    }
    sortPlain(plain, 0, names);
    sortOthers(others, names);
    QList<qsizetype> plainPositions;
    plainPositions.reserve(static_cast<qsizetype>(plain.size()));
    for (const Row& row : plain) {
        plainPositions.append(row.position);
    }
    if (others.isEmpty()) {
        return plainPositions;
    }
    QList<qsizetype> all;
    all.reserve(names.size());
    std::merge(plainPositions.cbegin(), plainPositions.cend(), others.cbegin(), others.cend(), std::back_inserter(all),
               [&](qsizetype a, qsizetype b) {
                   const int order = m_collator.compare(names[a], names[b]);
                   return order != 0 ? order < 0 : names[a].compare(names[b]) < 0;
               });
    return all;
}

} // namespace flitmark
