// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringList>

namespace flitmark {

/// What became of the rows of a list, each known by its text.
class RowChange
{
public:
    /// Both must outlive it.
    RowChange(const QStringList& old, const QStringList& now);

    /// How many rows at the beginning are as they were.
    qsizetype sameFirst() const { return m_sameFirst; }
    /// How many at the end, none of them counted among the first.
    qsizetype sameLast() const { return m_sameLast; }

    /// Where each of the old rows at `places`, in ascending order, is shown now; -1 for those without a place. Rows
    /// that are gone take the places of new ones between the others.
    QList<qsizetype> newPlaces(const QList<qsizetype>& places) const;

private:
    qsizetype findRow(qsizetype from, qsizetype next) const;

    const QStringList& m_old;
    const QStringList& m_now;
    qsizetype m_sameFirst = 0;
    qsizetype m_sameLast = 0;
};

} // namespace flitmark
