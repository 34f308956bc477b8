// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <daily/DailyNote.h>

#include <QRandomGenerator>

#include <optional>

namespace flitmark {

/// The parts of a daily note that we know, by their headings.
enum class DailySection { None, Focus, Tasks, CoachNotes, WorkDone, PomodoroLog };

/// The section that a heading with this text begins.
DailySection sectionNamed(QStringView name);

/// How the log's table is read.
enum class LogTable {
    /// It goes on until the next heading, and every "|" ends a cell.
    Loose,
    /// Any other line ends it, and "\|" is a part of a cell's text.
    Markdown,
};

/// Collects what a parser finds in a note, and reads the lines of the Pomodoro log.
class DailyNoteBuilder
{
public:
    explicit DailyNoteBuilder(LogTable table)
        : m_table(table)
    {
    }

    ParsedDailyNote& note() { return m_note; }

    /// Adds a task, with an identifier of its own.
    TaskItem& addTask(const QString& text, bool isCompleted, qint64 lineNumber);

    /// Takes a line below a heading of the log, trimmed: a tally, a row, or anything.
    void readLogLine(QStringView trimmed);

    /// A heading ends the table.
    void endTable() { m_isInTable = false; }

private:
    void readRow(QStringView trimmed);
    QStringView nextCell(QStringView& rest) const;
    QUuid newId();

    LogTable m_table;
    ParsedDailyNote m_note;
    bool m_isInTable = false;
    std::optional<QRandomGenerator64> m_random;
};

/// True for the first line of the log's table.
bool isLogHeader(QStringView trimmed);

} // namespace flitmark
