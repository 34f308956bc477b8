// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <core/Text.h>
#include <daily/DailyNoteBuilder.h>
#include <daily/DailyNoteParser.h>
#include <daily/NoteLines.h>

#include <QTextBoundaryFinder>

namespace flitmark {

namespace {

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
                m_builder.endTable();
                continue;
            }
            read(trimmed, reader.number());
        }
        return std::move(m_builder.note());
    }

private:
    void read(QStringView trimmed, qint64 number)
    {
        ParsedDailyNote& note = m_builder.note();
        switch (m_section) {
        case DailySection::None:
            break;
        case DailySection::Focus:
            readFocus(trimmed, note.focus);
            break;
        case DailySection::Tasks:
            readTask(trimmed, number);
            break;
        case DailySection::CoachNotes:
            readBullet(trimmed, trimmed.startsWith(u"- ") || trimmed.startsWith(u"> "), note.coachNotes);
            break;
        case DailySection::WorkDone:
            readBullet(trimmed, trimmed.startsWith(u"- "), note.workDone);
            break;
        case DailySection::PomodoroLog:
            m_builder.readLogLine(trimmed);
            break;
        }
    }

    static void readFocus(QStringView trimmed, QString& focus)
    {
        if (!focus.isEmpty() || trimmed.isEmpty() || trimmed.startsWith(u'#') || trimmed.startsWith(u'-')) {
            return;
        }
        QString text = trimmed.toString();
        text.remove(u'*');
        focus = trimSpaces(text).toString();
    }

    void readTask(QStringView trimmed, qint64 number)
    {
        if (trimmed.size() < 5 || !trimmed.startsWith(u"- [") || trimmed[4] != u']') {
            return;
        }
        const QChar mark = trimmed[3];
        if (mark == u' ' || mark == u'x' || mark == u'X') {
            m_builder.addTask(trimSpaces(taskText(trimmed)).toString(), mark != u' ', number);
        }
    }

    static void readBullet(QStringView trimmed, bool isBullet, QStringList& list)
    {
        const QStringView text = isBullet ? trimSpaces(trimmed.sliced(2)) : QStringView();
        if (!text.isEmpty()) {
            list.append(text.toString());
        }
    }

    DailyNoteBuilder m_builder{LogTable::Loose};
    FrontMatter m_frontMatter;
    DailySection m_section = DailySection::None;
};

} // namespace

ParsedDailyNote parseDailyNote(QStringView content)
{
    return content.isEmpty() ? ParsedDailyNote() : Pass().run(content);
}

} // namespace flitmark
