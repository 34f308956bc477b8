// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <core/Text.h>
#include <daily/DailyNoteBuilder.h>
#include <daily/NoteLines.h>
#include <daily/OwnNoteEdits.h>
#include <daily/OwnNoteLines.h>
#include <daily/OwnNoteParser.h>
#include <daily/OwnNoteView.h>
#include <daily/OwnTaskGroups.h>
#include <daily/OwnTaskLine.h>

#include <algorithm>

namespace flitmark {

namespace {

using Lines = DailyNoteEdits::Lines;
using Kind = LineChange::Kind;

/// Adds `texts` as new lines before the one at `line`.
void insertLines(LineChanges& changes, qsizetype line, const QStringList& texts)
{
    for (const QString& text : texts) {
        changes.append({Kind::Insert, line, text});
    }
}

/// Adds a section of its own at the end, after a blank line.
void appendSection(LineChanges& changes, const Lines& lines, const OwnNoteView& view, const QStringList& texts)
{
    const qsizetype end = view.end();
    const bool needsBlank = end > 0 && !isBlank(lines[end - 1]);
    insertLines(changes, end, needsBlank ? QStringList(QString()) + texts : texts);
}

/// The line of the focus with another one in its place: what stands around it stays.
QString withFocus(QStringView line, const QString& newFocus)
{
    const qsizetype from = plainTextStart(line);
    const auto box = taskBox(line, lineStart(line));
    QString before = line.first(from).toString();
    if (box && box->isCompleted()) {
        before.replace(box->open + 1, box->sign.size(), u' ');
    }
    const QStringView rest = line.sliced(from);
    const QStringView old = trimSpaces(rest);
    const InlineText shown = renderInline(old);
    qsizetype marks = 0;
    for (const TextSpan& span : shown.spans) {
        if (span.start == 0 && span.length == shown.text.size() && span.kind <= TextSpan::Kind::Highlight) {
            marks += span.kind == TextSpan::Kind::Emphasis ? 1 : 2;
        }
    }
    // They are around the text unless a comment is there, too.
    const bool isAround = 2 * marks <= old.size() && isRule(old.first(marks)) &&
                          std::equal(old.begin(), old.begin() + marks, old.rbegin());
    marks = isAround ? marks : 0;
    return before.append(old.first(marks)).append(newFocus).append(old.last(marks)).append(rest.sliced(old.size()));
}

/// What makes a section of the focus where there is none: after the front matter, or after the title.
LineChanges newFocusSection(const Lines& lines, const OwnNoteView& view, const QString& focus)
{
    qsizetype at = view.frontMatter();
    qsizetype first = at;
    while (first < lines.size() && isBlank(lines[first])) {
        ++first;
    }
    const auto title = first < lines.size() ? view.heading(first) : std::nullopt;
    if (title && title->level == 1 && !view[first].isOpen) {
        at = first + 1;
    }
    LineChanges changes;
    insertLines(changes, at, at > 0 ? QStringList(QString()) : QStringList());
    insertLines(changes, at, {QStringLiteral("## Today's Focus"), QString(), focus});
    insertLines(changes, at, at < lines.size() && !isBlank(lines[at]) ? QStringList(QString()) : QStringList());
    return changes;
}

constexpr QStringView logTableHead[] = {u"| # | Time | Focus |", u"|---|------|-------|"};

/// What is there of the log: line numbers, or -1.
struct LogPlaces
{
    qsizetype heading = -1;
    QList<qsizetype> tallies;
    qsizetype lastRow = -1;
};

LogPlaces findLog(const Lines& lines, const OwnNoteView& view)
{
    LogPlaces places;
    bool isInside = false;
    bool isInTable = false;
    for (qsizetype i = 0; i < lines.size(); ++i) {
        if (view[i].isHidden) {
            continue;
        }
        if (const auto heading = view.heading(i)) {
            isInside = sectionNamed(heading->text) == DailySection::PomodoroLog;
            places.heading = isInside && places.heading < 0 ? i : places.heading;
            isInTable = false;
        } else if (isInside) {
            const QStringView text = trimSpaces(lines[i].sliced(view[i].start.quotesEnd));
            isInTable = text.startsWith(u'|') && (isInTable || isLogHeader(text));
            places.lastRow = isInTable ? i : places.lastRow;
            if (!text.startsWith(u'|') && text.contains(u"Today:")) {
                places.tallies.append(i);
            }
        }
    }
    return places;
}

/// The change of the task at `line` to what `edit` makes of it.
std::optional<LineChanges> editOwnTask(const Lines& lines, qint64 line, std::optional<QString> (*edit)(QStringView))
{
    const auto text = line >= 0 && line < lines.size() ? edit(lines[line]) : std::nullopt;
    return text ? std::optional(LineChanges{{Kind::Replace, line, *text}}) : std::nullopt;
}

} // namespace

OwnNoteEdits::Result OwnNoteEdits::updateFocus(const Lines& lines, const QString& newFocus)
{
    const OwnNoteView view(lines);
    std::optional<qsizetype> firstHeading;
    bool isInside = false;
    for (qsizetype i = 0; i < lines.size(); ++i) {
        if (view[i].isHidden) {
            continue;
        }
        if (const auto heading = view.heading(i)) {
            isInside = sectionNamed(heading->text) == DailySection::Focus;
            firstHeading = isInside && !firstHeading ? i : firstHeading;
        } else if (isInside && !focusText(lines[i]).isEmpty()) {
            return LineChanges{{Kind::Replace, i, withFocus(lines[i], onOneLine(newFocus))}};
        }
    }
    if (!firstHeading) {
        return view.checked(newFocusSection(lines, view, onOneLine(newFocus)));
    }
    LineChanges changes;
    insertLines(changes, *firstHeading + 1, {QString(), onOneLine(newFocus)});
    return view.checked(changes);
}

OwnNoteEdits::Result OwnNoteEdits::addPomodoroEntry(const Lines& lines, qint64 number, const QString& time,
                                                    const QString& focus)
{
    const OwnNoteView view(lines);
    const LogPlaces log = findLog(lines, view);
    const QString tally = DailyNoteEdits::tallyLine(number);
    const QString cell = onOneLine(focus).replace(u'|', QStringLiteral("\\|"));
    const QString row = DailyNoteEdits::logRow(number, time, cell);
    const QStringList table = {logTableHead[0].toString(), logTableHead[1].toString(), row};

    LineChanges changes;
    if (log.heading < 0) {
        appendSection(changes, lines, view, QStringList{QStringLiteral("## Pomodoro Log"), tally, QString()} + table);
        return view.checked(changes);
    }
    for (const qsizetype line : log.tallies) {
        const qsizetype from = view[line].start.text;
        const QStringView old = lines[line].sliced(from);
        const QStringView blanks = old.sliced(trimSpaces(old).size());
        changes.append({Kind::Replace, line, lines[line].first(from).toString().append(tally).append(blanks)});
    }
    QStringList made = log.tallies.isEmpty() ? QStringList(tally) : QStringList();
    // Below the tally that is there, else below the heading.
    const qsizetype at = (log.tallies.isEmpty() ? log.heading : log.tallies.last()) + 1;
    const QStringView quotes = lines[at - 1].first(view[at - 1].start.quotesEnd);
    if (log.lastRow < 0) {
        made.append(QStringList(QString()) + table);
    } else {
        const QString before = lines[log.lastRow].first(view[log.lastRow].start.text).toString();
        changes.append({Kind::Insert, log.lastRow + 1, before + row});
    }
    if (!made.isEmpty() && at < lines.size() && !isBlank(lines[at].sliced(view[at].start.text))) {
        made.append(QString());
    }
    for (QString& line : made) {
        line = quotes.isEmpty() ? line : trimSpaces(quotes.toString() + u' ' + line).toString();
    }
    insertLines(changes, at, made);
    return view.checked(changes);
}

OwnNoteEdits::Result OwnNoteEdits::addNewTask(const Lines& lines, const QString& text)
{
    const OwnNoteView view(lines);
    const std::optional<TaskGroup> group = groupForNewTask(lines, view);
    const QString task = QStringLiteral("- [ ] ") + onOneLine(text);
    LineChanges changes;
    if (!group) {
        appendSection(changes, lines, view, {QStringLiteral("## Tasks"), task});
    } else if (group->lastTask < 0) {
        insertLines(changes, group->heading + 1, {task});
    } else {
        const QStringView line = lines[group->lastTask];
        insertLines(changes, taskBlockEnd(lines, view, group->lastTask), {nextTaskStart(line) + onOneLine(text)});
    }
    return view.checked(changes);
}

std::optional<LineChanges> OwnNoteEdits::toggleTask(const Lines& lines, qint64 line)
{
    return editOwnTask(lines, line, toggledTask);
}

std::optional<LineChanges> OwnNoteEdits::addPomodoroToTask(const Lines& lines, qint64 line)
{
    return editOwnTask(lines, line, taskWithTomato);
}

std::optional<LineChanges> OwnNoteEdits::removePomodoroFromTask(const Lines& lines, qint64 line)
{
    return editOwnTask(lines, line, taskWithoutTomato);
}

QString OwnNoteEdits::apply(const Lines& lines, const LineChanges& changes)
{
    const auto endOf = [&](qsizetype line) {
        const QChar* end = lines[line].data() + lines[line].size();
        return line + 1 < lines.size() ? QStringView(end, lines[line + 1].data()) : QStringView();
    };
    const QString firstEnd = lines.size() > 1 ? endOf(0).toString() : QStringLiteral("\n");
    QString text;
    text.reserve(wholeText(lines).size() + 256);
    auto change = changes.cbegin();
    for (qsizetype i = 0; i <= lines.size(); ++i) {
        QStringView line = i < lines.size() ? lines[i] : QStringView();
        for (; change != changes.cend() && change->line == i; ++change) {
            if (change->kind == Kind::Replace) {
                line = change->text;
            } else if (i == lines.size()) {
                text.append(firstEnd).append(change->text);
            } else {
                text.append(change->text).append(i > 0 ? endOf(i - 1) : QStringView(firstEnd));
            }
        }
        if (i < lines.size()) {
            text.append(line).append(endOf(i));
        }
    }
    return text;
}

} // namespace flitmark
