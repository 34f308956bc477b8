// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <core/Text.h>
#include <daily/DailyNoteParser.h>
#include <daily/NoteLines.h>

#include <QRandomGenerator>
#include <QStringTokenizer>
#include <QTextBoundaryFinder>

#include <array>
#include <optional>

namespace flitmark {

namespace {

enum class Section { None, Focus, Tasks, CoachNotes, WorkDone, PomodoroLog };

Section sectionNamed(QStringView name)
{
    struct Word
    {
        QStringView text;
        Section section;
    };
    // The first that the name contains decides.
    static constexpr std::array words = {Word{u"focus", Section::Focus},         Word{u"task", Section::Tasks},
                                         Word{u"scheduled", Section::Tasks},     Word{u"carryover", Section::Tasks},
                                         Word{u"coach", Section::CoachNotes},    Word{u"work done", Section::WorkDone},
                                         Word{u"pomodoro", Section::PomodoroLog}};
    const LowerCased lowerCased(name);
    for (const Word& word : words) {
        if (lowerCased.contains(word.text)) {
            return word.section;
        }
    }
    return Section::None;
}

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

/// What follows the marker of a task line: "- [ ]" and one more character, normally a space.
QStringView taskText(QStringView trimmed)
{
    constexpr qsizetype marker = 5;
    const QStringView rest = trimmed.sliced(marker);
    const bool isPlain = rest.size() < 2 || (rest[0].unicode() < 0x80 && rest[1].unicode() < 0x80);
    if (isPlain) {
        return rest.sliced(qMin<qsizetype>(rest.size(), 1));
    }
    // The one character may be several code units: it is taken whole. One on its own never needs the rest of the line.
    constexpr qsizetype enough = 64;
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, rest.first(qMin(rest.size(), enough)));
    const qsizetype end = finder.toNextBoundary();
    return rest.sliced(end);
}

/// One pass over the lines of a note.
class Pass
{
public:
    ParsedDailyNote run(QStringView content)
    {
        LineReader reader(content);
        while (reader.next()) {
            const QStringView trimmed = trimSpaces(reader.line());
            if (m_frontMatter.hides(trimmed)) {
                continue;
            }
            if (const auto name = sectionHeading(trimmed)) {
                m_section = sectionNamed(*name);
                m_isInTable = false;
                continue;
            }
            read(trimmed, reader.number());
        }
        return std::move(m_note);
    }

private:
    void read(QStringView trimmed, qint64 number)
    {
        switch (m_section) {
        case Section::None:
            break;
        case Section::Focus:
            readFocus(trimmed);
            break;
        case Section::Tasks:
            readTask(trimmed, number);
            break;
        case Section::CoachNotes:
            readBullet(trimmed, trimmed.startsWith(u"- ") || trimmed.startsWith(u"> "), m_note.coachNotes);
            break;
        case Section::WorkDone:
            readBullet(trimmed, trimmed.startsWith(u"- "), m_note.workDone);
            break;
        case Section::PomodoroLog:
            readTally(trimmed);
            readRow(trimmed);
            break;
        }
    }

    void readFocus(QStringView trimmed)
    {
        if (!m_note.focus.isEmpty() || trimmed.isEmpty() || trimmed.startsWith(u'#') || trimmed.startsWith(u'-')) {
            return;
        }
        QString text = trimmed.toString();
        text.remove(u'*');
        m_note.focus = trimSpaces(text).toString();
    }

    void readTask(QStringView trimmed, qint64 number)
    {
        if (trimmed.size() < 5 || !trimmed.startsWith(u"- [") || trimmed[4] != u']') {
            return;
        }
        const QChar mark = trimmed[3];
        if (mark == u' ' || mark == u'x' || mark == u'X') {
            m_note.tasks.append({newId(), trimSpaces(taskText(trimmed)).toString(), mark != u' ', number});
        }
    }

    static void readBullet(QStringView trimmed, bool isBullet, QStringList& list)
    {
        const QStringView text = isBullet ? trimSpaces(trimmed.sliced(2)) : QStringView();
        if (!text.isEmpty()) {
            list.append(text.toString());
        }
    }

    void readTally(QStringView trimmed)
    {
        if (trimmed.contains(u"Today:")) {
            m_note.pomodoroCount = parseInteger(completedOf(trimmed)).value_or(m_note.pomodoroCount);
        }
    }

    void readRow(QStringView trimmed)
    {
        if (!trimmed.startsWith(u'|')) {
            return;
        }
        if (trimmed.contains(u'#') && trimmed.contains(u"Time")) {
            m_isInTable = true;
            return;
        }
        if (!m_isInTable || trimmed.startsWith(u"|---") || trimmed.startsWith(u"| ---")) {
            return;
        }
        std::array<QStringView, 3> cells;
        size_t found = 0;
        for (const QStringView cell : qTokenize(trimmed, u'|', Qt::SkipEmptyParts)) {
            cells[found++] = trimSpaces(cell);
            if (found == cells.size()) {
                break;
            }
        }
        const std::optional<qint64> number = found == cells.size() ? parseInteger(cells[0]) : std::nullopt;
        if (number) {
            m_note.pomodoroLog.append({newId(), *number, cells[1].toString(), cells[2].toString()});
        }
    }

    /// A random identifier as `QUuid::createUuid()` makes it, without asking the system for each one.
    QUuid newId()
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

    ParsedDailyNote m_note;
    FrontMatter m_frontMatter;
    Section m_section = Section::None;
    bool m_isInTable = false;
    std::optional<QRandomGenerator64> m_random;
};

} // namespace

ParsedDailyNote parseDailyNote(QStringView content)
{
    return content.isEmpty() ? ParsedDailyNote() : Pass().run(content);
}

} // namespace flitmark
