// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <ui/RowChange.h>

#include <algorithm>

namespace flitmark {

RowChange::RowChange(const QStringList& old, const QStringList& now)
    : m_old(old)
    , m_now(now)
{
    const qsizetype shorter = std::min(old.size(), now.size());
    while (m_sameFirst < shorter && old[m_sameFirst] == now[m_sameFirst]) {
        ++m_sameFirst;
    }
    while (m_sameLast < shorter - m_sameFirst && old[old.size() - 1 - m_sameLast] == now[now.size() - 1 - m_sameLast]) {
        ++m_sameLast;
    }
}

/// Where the old row at `from` is now, not before `next` if its text is among the changed ones; -1 if it is gone.
qsizetype RowChange::findRow(qsizetype from, qsizetype next) const
{
    const qsizetype grown = m_now.size() - m_old.size();
    if (from < m_sameFirst) {
        return from;
    }
    if (from >= m_old.size() - m_sameLast) {
        return from + grown;
    }
    const qsizetype end = m_now.size() - m_sameLast;
    // Among equal texts the one at the same distance from an end.
    for (const qsizetype place : {from, from + grown}) {
        if (place >= next && place < end && m_now[place] == m_old[from]) {
            return place;
        }
    }
    const auto found = std::find(m_now.begin() + next, m_now.begin() + end, m_old[from]);
    return found == m_now.begin() + end ? -1 : found - m_now.begin();
}

QList<qsizetype> RowChange::newPlaces(const QList<qsizetype>& places) const
{
    QList<qsizetype> found;
    qsizetype next = m_sameFirst;
    for (const qsizetype from : places) {
        found.append(findRow(from, next));
        next = std::max(next, found.last() + 1);
    }
    qsizetype last = -1;
    qsizetype moved = 0;
    for (qsizetype i = 0; i < places.size(); ++i) {
        if (found[i] < 0) {
            const auto limit = std::find_if(found.begin() + i, found.end(), [](qsizetype place) { return place >= 0; });
            const qsizetype place = std::max(last + 1, places[i] + moved);
            found[i] = place < (limit == found.end() ? m_now.size() : *limit) ? place : -1;
        }
        if (found[i] >= 0) {
            last = found[i];
            moved = last - places[i];
        }
    }
    return found;
}

} // namespace flitmark
