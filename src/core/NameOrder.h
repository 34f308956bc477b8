// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <core/NameRanks.h>

#include <QList>

#include <span>
#include <vector>

namespace flitmark {

/// The order of names as a language has it, case ignored; names that the language takes for equal are in the order of
/// their code units.
///
/// A folder may hold a hundred thousand names. Comparing those by the collator would take ten times as long as reading
/// them from the disk. In most languages ranks, one for each character, give the same order but for names of equal
/// ranks ("cafe" and "café"); the collator is asked which they are, and afterwards only about the other names.
class NameOrder final
{
public:
    explicit NameOrder(const QLocale& locale);

    /// The positions of `names`, in the order of the names they hold.
    QList<qsizetype> sorted(const QList<QStringView>& names) const;

    /// Whether the language has ranks.
    bool hasRanks() const { return m_alphabet.hasRanks(); }

private:
    struct Row;
    using Names = QList<QStringView>;

    bool isBefore(QStringView a, QStringView b) const;
    void sortRanked(std::span<Row> rows, size_t offset, const std::vector<quint8>& ranks, const Names& names) const;
    void sortOthers(QList<qsizetype>& positions, const Names& names) const;

    NameAlphabet m_alphabet;
    bool m_hasCollation;
};

} // namespace flitmark
