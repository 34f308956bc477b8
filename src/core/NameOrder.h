// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QCollator>
#include <QList>
#include <QLocale>
#include <QStringView>

#include <array>
#include <span>

namespace flitmark {

/// The order of names as a language has it, case ignored; names that the language takes for equal are in the order of
/// their code units.
///
/// A folder may hold a hundred thousand names, most of them plain ASCII. Comparing those by the collator would take ten
/// times as long as reading them from the disk. In most languages a table of ranks, one for each ASCII character, gives
/// the same order; the collator is asked once which those are, and afterwards only about names with other characters.
class NameOrder final
{
public:
    explicit NameOrder(const QLocale& locale);

    /// The positions of `names`, in the order of the names they hold.
    QList<qsizetype> sorted(const QList<QStringView>& names) const;

    /// Whether the language has a table of ranks.
    bool hasRanks() const { return m_hasRanks; }

private:
    struct Row;

    void findRanks();
    bool areRanksTrue(QStringView ascending) const;
    bool isPlain(QStringView name) const;
    quint64 ranksAt(QStringView name, qsizetype offset) const;
    void sortPlain(std::span<Row> rows, qsizetype offset, const QList<QStringView>& names) const;
    void sortOthers(QList<qsizetype>& positions, const QList<QStringView>& names) const;

    QCollator m_collator;
    bool m_hasCollation;
    bool m_hasRanks = false;
    /// By character; 0 for those without a rank.
    std::array<quint8, 128> m_ranks{};
};

} // namespace flitmark
