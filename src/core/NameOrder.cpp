// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <core/NameOrder.h>

#include <QtEndian>

#include <algorithm>
#include <iterator>

namespace flitmark {

struct NameOrder::Row
{
    quint64 key;
    /// Where the ranks of the name begin.
    size_t ranks;
    qsizetype position;
};

NameOrder::NameOrder(const QLocale& locale)
    : m_alphabet(locale)
    , m_hasCollation(locale.language() != QLocale::C)
{
}

bool NameOrder::isBefore(QStringView a, QStringView b) const
{
    const int order = m_alphabet.collator().compare(a, b);
    return order != 0 ? order < 0 : a.compare(b) < 0;
}

/// Sorts rows whose names have equal ranks before `offset`.
void NameOrder::sortRanked(std::span<Row> rows, size_t offset, const std::vector<quint8>& ranks,
                           const Names& names) const
{
    for (Row& row : rows) {
        row.key = qFromBigEndian<quint64>(&ranks[row.ranks + offset]);
    }
    std::sort(rows.begin(), rows.end(), [](const Row& a, const Row& b) { return a.key < b.key; });
    for (auto begin = rows.begin(); begin != rows.end();) {
        const auto end = std::find_if(begin, rows.end(), [begin](const Row& row) { return row.key != begin->key; });
        const bool isAtEndOfNames = (begin->key & 0xff) == 0;
        if (end - begin > 1 && !isAtEndOfNames) {
            sortRanked({begin, end}, offset + NameRanks::keySize, ranks, names);
        } else if (end - begin > 1) {
            std::sort(begin, end,
                      [&](const Row& a, const Row& b) { return isBefore(names[a.position], names[b.position]); });
        }
        begin = end;
    }
}

void NameOrder::sortOthers(QList<qsizetype>& positions, const Names& names) const
{
    if (!m_hasCollation) {
        // The keys of plain code unit order would not ignore the case.
        std::sort(positions.begin(), positions.end(),
                  [&](qsizetype a, qsizetype b) { return isBefore(names[a], names[b]); });
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
        rows.push_back({m_alphabet.collator().sortKey(names[position].toString()), position});
    }
    std::sort(rows.begin(), rows.end(), [&](const Keyed& a, const Keyed& b) {
        const int order = a.key.compare(b.key);
        return order != 0 ? order < 0 : names[a.position].compare(names[b.position]) < 0;
    });
    std::transform(rows.begin(), rows.end(), positions.begin(), [](const Keyed& row) { return row.position; });
}

QList<qsizetype> NameOrder::sorted(const Names& names) const
{
    const NameRanks alphabet = m_alphabet.ranksFor(names);
    std::vector<quint8> ranks;
    std::vector<Row> ranked;
    ranked.reserve(static_cast<size_t>(names.size()));
    QList<qsizetype> others;
    for (qsizetype i = 0; i < names.size(); ++i) {
        const size_t begin = ranks.size();
        if (alphabet.append(names[i], ranks)) {
            ranked.push_back({0, begin, i});
        } else {
            others.append(i);
        }
    }
    sortRanked(ranked, 0, ranks, names);
    sortOthers(others, names);
    QList<qsizetype> rankedPositions;
    rankedPositions.reserve(static_cast<qsizetype>(ranked.size()));
    for (const Row& row : ranked) {
        rankedPositions.append(row.position);
    }
    if (others.isEmpty()) {
        return rankedPositions;
    }
    QList<qsizetype> all;
    all.reserve(names.size());
    std::merge(rankedPositions.cbegin(), rankedPositions.cend(), others.cbegin(), others.cend(),
               std::back_inserter(all), [&](qsizetype a, qsizetype b) { return isBefore(names[a], names[b]); });
    return all;
}

} // namespace flitmark
