// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <core/Text.h>
#include <daily/DailyNoteBuilder.h>
#include <daily/OwnNoteLines.h>
#include <daily/OwnNoteParser.h>

namespace flitmark {

namespace {

/// One pass over the lines of a note.
class OwnPass
{
public:
    ParsedDailyNote run(QStringView content)
    {
        HiddenLines hidden(content);
        LineReader reader(content, LineBreaks::LfAndCr);
        while (reader.next()) {
            const QStringView line = reader.line();
            const LineStart start = lineStart(line);
            const bool isHidden = hidden.hides(line, start);
            if (isHidden || start.text == line.size()) {
                if (!isHidden) {
                    m_builder.endTable();
                }
                continue;
            }
            if (const auto heading = noteHeading(line, start)) {
                m_section = sectionNamed(heading->text);
                m_group = renderInline(heading->text).text;
                m_items.clear();
                m_builder.endTable();
                continue;
            }
            const QChar first = line[start.text];
            if (!first.isLetter()) {
                readItem(line, start, reader.number());
            }
            if (m_section != DailySection::None) {
                readSection(line, start);
            }
        }
        ParsedDailyNote& note = m_builder.note();
        for (const PomodoroEntry& entry : std::as_const(note.pomodoroLog)) {
            note.pomodoroCount = qMax(note.pomodoroCount, entry.number);
        }
        note.pomodoroCount = qMax<qint64>(note.pomodoroCount, note.pomodoroLog.size());
        return std::move(note);
    }

private:
    /// An item of a list that the next ones may be below.
    struct Item
    {
        int quotes;
        int indent;
        int depth;
    };

    void readItem(QStringView line, const LineStart& start, qint64 number)
    {
        if (!listItemText(line, start.text)) {
            return;
        }
        while (!m_items.isEmpty() && (m_items.last().quotes != start.quotes || m_items.last().indent >= start.indent)) {
            m_items.removeLast();
        }
        const int depth = m_items.isEmpty() ? 0 : m_items.last().depth;
        const auto box = taskBox(line, start);
        m_items.append({start.quotes, start.indent, depth + (box ? 1 : 0)});
        if (!box) {
            return;
        }
        InlineText shown = renderInline(line.sliced(box->end));
        TaskItem& task = m_builder.addTask(shown.text, box->isCompleted(), number);
        task.group = m_group;
        task.depth = depth;
        task.spans = std::move(shown.spans);
        if (!box->isCompleted()) {
            task.sign = trimSpaces(box->sign).toString();
        }
    }

    void readSection(QStringView line, const LineStart& start)
    {
        ParsedDailyNote& note = m_builder.note();
        switch (m_section) {
        case DailySection::None:
        case DailySection::Tasks:
            break;
        case DailySection::Focus:
            if (note.focus.isEmpty()) {
                note.focus = focusText(line);
            }
            break;
        case DailySection::CoachNotes:
            readBullet(line, start.quotes > 0 || listItemText(line, start.text), note.coachNotes);
            break;
        case DailySection::WorkDone:
            readBullet(line, listItemText(line, start.text).has_value(), note.workDone);
            break;
        case DailySection::PomodoroLog:
            m_builder.readLogLine(trimSpaces(line.sliced(start.quotesEnd)));
            break;
        }
    }

    static void readBullet(QStringView line, bool isBullet, QStringList& list)
    {
        const QString text = isBullet ? renderInline(line.sliced(plainTextStart(line))).text : QString();
        if (!text.isEmpty()) {
            list.append(text);
        }
    }

    DailyNoteBuilder m_builder{LogTable::Markdown};
    DailySection m_section = DailySection::None;
    QString m_group;
    QList<Item> m_items;
};

} // namespace

ParsedDailyNote parseOwnNote(QStringView content)
{
    return OwnPass().run(content);
}

qsizetype plainTextStart(QStringView line)
{
    const LineStart start = lineStart(line);
    qsizetype at = start.text;
    if (start.quotes > 0 && line.sliced(at).startsWith(u"[!")) {
        const qsizetype end = line.indexOf(u']', at);
        at = end < 0 ? at : end + 1;
        if (end >= 0 && at < line.size() && (line[at] == u'+' || line[at] == u'-')) {
            ++at;
        }
    } else if (const auto box = taskBox(line, start)) {
        at = box->end;
    } else if (const auto item = listItemText(line, start.text)) {
        at = *item;
    }
    while (at < line.size() && isSpace(line[at])) {
        ++at;
    }
    return at;
}

QString focusText(QStringView line)
{
    const QStringView text = line.sliced(plainTextStart(line));
    return isRule(text) ? QString() : renderInline(text).text;
}

} // namespace flitmark
