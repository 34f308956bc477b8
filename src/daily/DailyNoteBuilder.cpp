// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <core/Text.h>
#include <daily/DailyNoteBuilder.h>
#include <daily/NoteLines.h>

#include <array>

namespace flitmark {

namespace {

bool isDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

/// The digits before the first slash that stands between digits; empty when there is none.
QStringView completedOf(QStringView tally)
{
    for (qsizetype slash = tally.indexOf(u'/', 1); slash >= 0; slash = tally.indexOf(u'/', slash + 1)) {
        if (!isDigit(tally[slash - 1]) || slash + 1 == tally.size() || !isDigit(tally[slash + 1])) {
            continue;
        }
        qsizetype start = slash - 1;
        while (start > 0 && isDigit(tally[start - 1])) {
            --start;
        }
        return tally.sliced(start, slash - start);
    }
    return {};
}

} // namespace

DailySection sectionNamed(QStringView name)
{
    struct Word
    {
        QStringView text;
        DailySection section;
    };
    // The first that the name contains decides.
    static constexpr std::array words = {
        Word{u"focus", DailySection::Focus},         Word{u"task", DailySection::Tasks},
        Word{u"scheduled", DailySection::Tasks},     Word{u"carryover", DailySection::Tasks},
        Word{u"coach", DailySection::CoachNotes},    Word{u"work done", DailySection::WorkDone},
        Word{u"pomodoro", DailySection::PomodoroLog}};
    const LowerCased lowerCased(name);
    for (const Word& word : words) {
        if (lowerCased.contains(word.text)) {
            return word.section;
        }
    }
    return DailySection::None;
}

bool isLogHeader(QStringView trimmed)
{
    return trimmed.startsWith(u'|') && trimmed.contains(u'#') && trimmed.contains(u"Time");
}

TaskItem& DailyNoteBuilder::addTask(const QString& text, bool isCompleted, qint64 lineNumber)
{
    m_note.tasks.append({newId(), text, isCompleted, lineNumber});
    return m_note.tasks.last();
}

void DailyNoteBuilder::readLogLine(QStringView trimmed)
{
    const bool isOfTable = m_table == LogTable::Markdown && trimmed.startsWith(u'|');
    if (!isOfTable && trimmed.contains(u"Today:")) {
        m_note.pomodoroCount = parseInteger(completedOf(trimmed)).value_or(m_note.pomodoroCount);
    }
    if (m_table == LogTable::Markdown && !isOfTable) {
        m_isInTable = false;
    } else if (isLogHeader(trimmed)) {
        m_isInTable = true;
    } else if (m_isInTable && trimmed.startsWith(u'|') && !trimmed.startsWith(u"|---") &&
               !trimmed.startsWith(u"| ---")) {
        readRow(trimmed);
    }
}

void DailyNoteBuilder::readRow(QStringView trimmed)
{
    std::array<QStringView, 3> cells;
    for (QStringView& cell : cells) {
        cell = nextCell(trimmed);
        if (cell.isEmpty()) {
            return;
        }
        cell = trimSpaces(cell);
    }
    if (const auto number = parseInteger(cells[0])) {
        QString focus = cells[2].toString();
        if (m_table == LogTable::Markdown) {
            focus.replace(QStringLiteral("\\|"), QStringLiteral("|"));
        }
        m_note.pomodoroLog.append({newId(), *number, cells[1].toString(), focus});
    }
}

/// Takes the next cell that is not empty from `rest`; an empty one when there is none.
QStringView DailyNoteBuilder::nextCell(QStringView& rest) const
{
    while (rest.startsWith(u'|')) {
        rest = rest.sliced(1);
    }
    qsizetype end = rest.indexOf(u'|');
    while (m_table == LogTable::Markdown && end > 0 && rest[end - 1] == u'\\') {
        end = rest.indexOf(u'|', end + 1);
    }
    const QStringView cell = rest.first(end < 0 ? rest.size() : end);
    rest = rest.sliced(cell.size());
    return cell;
}

/// A random identifier as `QUuid::createUuid()` makes it, without asking the system for each one.
QUuid DailyNoteBuilder::newId()
{
    if (!m_random) {
        std::array<quint32, 4> seed = {};
        QRandomGenerator::global()->fillRange(seed.data(), static_cast<qsizetype>(seed.size()));
        m_random.emplace(seed.data(), static_cast<qsizetype>(seed.size()));
    }
    const quint64 a = m_random->generate();
    const quint64 b = m_random->generate();
    const auto byte = [b](int index) { return static_cast<uchar>(b >> (8 * index)); };
    return {static_cast<uint>(a),
            static_cast<ushort>(a >> 32U),
            static_cast<ushort>((a >> 48U & 0x0FFFU) | 0x4000U),
            static_cast<uchar>((byte(0) & 0x3FU) | 0x80U),
            byte(1),
            byte(2),
            byte(3),
            byte(4),
            byte(5),
            byte(6),
            byte(7)};
}

} // namespace flitmark
