// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <daily/CodeSpans.h>

#include <QHash>

namespace flitmark {

CodeSpans::CodeSpans(QStringView line)
{
    for (qsizetype at = line.indexOf(u'`'); at >= 0; at = line.indexOf(u'`', at)) {
        m_runs.append({at, marksAt(line, at), -1});
        at += m_runs.last().length;
    }
    QHash<qsizetype, qsizetype> nextOfLength;
    for (qsizetype i = m_runs.size() - 1; i >= 0; --i) {
        m_runs[i].next = nextOfLength.value(m_runs[i].length, -1);
        nextOfLength.insert(m_runs[i].length, i);
    }
}

qsizetype CodeSpans::endOf(qsizetype position)
{
    while (m_index < m_runs.size() && m_runs[m_index].start < position) {
        ++m_index;
    }
    if (m_index == m_runs.size() || m_runs[m_index].start != position || m_runs[m_index].next < 0) {
        return -1;
    }
    const Run& last = m_runs[m_runs[m_index].next];
    return last.start + last.length;
}

qsizetype CodeSpans::marksAt(QStringView line, qsizetype position)
{
    qsizetype length = 0;
    while (position + length < line.size() && line[position + length] == u'`') {
        ++length;
    }
    return length;
}

} // namespace flitmark
