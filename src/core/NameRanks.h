// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QCollator>
#include <QHash>
#include <QList>
#include <QLocale>
#include <QStringView>

#include <vector>

namespace flitmark {

/// The ranks of the characters of some names. Equal ranks are of characters that only tell names apart which are the
/// same otherwise.
class NameRanks final
{
public:
    /// How many bytes are best compared at a time.
    static constexpr size_t keySize = sizeof(quint64);

    /// Ranks begin at 1. A character that is sorted as two others has the ranks of both.
    void add(char32_t character, quint32 rank, quint32 second = 0);
    /// Appends the ranks of `name`, then zeros to a multiple of `keySize`, at least one. Compared as bytes they are in
    /// order. False, and nothing appended, when a character has no rank.
    bool append(QStringView name, std::vector<quint8>& ranks) const;

private:
    static quint32 encoded(quint32 rank);

    /// By code unit and, for what is beyond, by character: the bytes of its ranks, the first in the lowest; 0 without.
    std::vector<quint32> m_units = std::vector<quint32>(0x10000);
    QHash<char32_t, quint32> m_beyond;
};

/// Finds out from the collator of a language which ranks its characters have.
class NameAlphabet final
{
public:
    explicit NameAlphabet(const QLocale& locale);

    const QCollator& collator() const { return m_collator; }
    /// False where the printable ASCII characters have no ranks: in languages that ignore signs, have letters written
    /// as two ("ch" after "h") or tell letters apart only between words that are the same otherwise.
    bool hasRanks() const { return m_hasRanks; }
    /// The ranks of the characters in `names`, those left out that have none.
    NameRanks ranksFor(const QList<QStringView>& names) const;

private:
    /// Characters between which the collator decides only when all else is equal.
    using Class = QStringList;

    int compare(const QString& a, const QString& b) const { return m_collator.compare(a, b); }
    bool areAlike(const QString& a, const QString& b) const;
    bool areRanksTrue(const QList<Class>& classes) const;
    QList<Class> classesOf(QStringList& characters, QStringList& expanded) const;
    QString expansionOf(const QString& character) const;

    QCollator m_collator;
    QStringList m_plain;
    bool m_hasRanks = false;
};

} // namespace flitmark
