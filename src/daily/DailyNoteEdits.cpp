// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <core/Text.h>
#include <daily/DailyNoteEdits.h>
#include <daily/NoteLines.h>

#include <algorithm>

namespace flitmark {

namespace {

using Lines = DailyNoteEdits::Lines;
using Kind = LineChange::Kind;

constexpr qint64 dailyTarget = 8;

bool isValidLine(const Lines& lines, qint64 line)
{
    return line >= 0 && line < lines.size();
}

bool isSectionNamed(QStringView trimmed, QStringView word)
{
    return sectionHeading(trimmed) && LowerCased(trimmed).contains(word);
}

LineChanges replacement(qint64 line, const QString& text)
{
    return {{Kind::Replace, line, text}};
}

/// The line that holds the focus: the first text below a focus heading.
std::optional<qsizetype> focusLine(const Lines& lines)
{
    FrontMatter frontMatter;
    bool isInside = false;
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const QStringView trimmed = trimSpaces(lines[i]);
        if (frontMatter.hides(trimmed)) {
            continue;
        }
        if (isSectionNamed(trimmed, u"focus")) {
            isInside = true;
        } else if (isInside && sectionHeading(trimmed)) {
            return std::nullopt;
        } else if (isInside && !trimmed.isEmpty() && !trimmed.startsWith(u'#')) {
            return i;
        }
    }
    return std::nullopt;
}

bool isHeading(QStringView line)
{
    return trimSpaces(line).startsWith(u'#');
}

/// The heading of any level that the line at `line` stands under; empty where there is none.
QStringView headingAbove(const Lines& lines, qint64 line)
{
    while (--line >= 0) {
        if (isHeading(lines[line])) {
            return lines[line];
        }
    }
    return {};
}

/// Where the lines equal to a text are: in the whole note, and below a certain heading.
struct EqualLines
{
    QList<qint64> all;
    QList<qint64> belowHeading;
};

EqualLines equalLines(const Lines& lines, QStringView text, QStringView heading)
{
    EqualLines found;
    QStringView current;
    for (qsizetype i = 0; i < lines.size(); ++i) {
        if (lines[i] == text) {
            found.all.append(i);
            if (current == heading) {
                found.belowHeading.append(i);
            }
        }
        current = isHeading(lines[i]) ? lines[i] : current;
    }
    return found;
}

} // namespace

LineChanges DailyNoteEdits::updateFocus(const Lines& lines, const QString& newFocus)
{
    if (const auto old = focusLine(lines)) {
        const QString stars = lines[*old].contains(u"**") ? QStringLiteral("**") : QString();
        return replacement(*old, stars + newFocus + stars);
    }
    for (qsizetype i = 0; i < lines.size(); ++i) {
        if (lines[i].contains(u"## ") && LowerCased(lines[i]).contains(u"focus")) {
            return {{Kind::Insert, i + 1, QString()}, {Kind::Insert, i + 1, newFocus}};
        }
    }
    return {};
}

LineChanges DailyNoteEdits::addPomodoroEntry(const Lines& lines, qint64 number, const QString& time,
                                             const QString& focus)
{
    LineChanges changes;
    FrontMatter frontMatter;
    bool isInside = false;
    bool hasRow = false;
    qsizetype rowAt = 0;
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const QStringView trimmed = trimSpaces(lines[i]);
        if (frontMatter.hides(trimmed)) {
            continue;
        }
        if (isSectionNamed(trimmed, u"pomodoro")) {
            isInside = true;
        } else if (!isInside) {
            continue;
        } else if (trimmed.contains(u"Today:")) {
            changes.append({Kind::Replace, i, tallyLine(number)});
        } else if (trimmed.startsWith(u'|')) {
            rowAt = i + 1;
            hasRow = hasRow || !trimmed.contains(u"---");
        } else if (sectionHeading(trimmed)) {
            break;
        }
    }
    if (hasRow) {
        const auto after =
            std::find_if(changes.cbegin(), changes.cend(), [&](const auto& c) { return c.line >= rowAt; });
        changes.insert(after, {Kind::Insert, rowAt, logRow(number, time, focus)});
    }
    return changes;
}

QString DailyNoteEdits::tallyLine(qint64 number)
{
    return QStringLiteral("**Today:** %1/%2 completed").arg(number).arg(dailyTarget);
}

QString DailyNoteEdits::logRow(qint64 number, const QString& time, const QString& focus)
{
    return QStringLiteral("| ") + QString::number(number) + QStringLiteral(" | ") + time + QStringLiteral(" | ") +
           focus + QStringLiteral(" |");
}

std::optional<LineChanges> DailyNoteEdits::toggleTask(const Lines& lines, qint64 line)
{
    if (!isValidLine(lines, line) || !containsTaskMarker(lines[line])) {
        return std::nullopt;
    }
    const auto open = QStringLiteral("- [ ]");
    const auto ticked = QStringLiteral("- [x]");
    QString text = lines[line].toString();
    if (text.contains(open)) {
        text.replace(open, ticked);
    } else {
        text.replace(ticked, open).replace(QStringLiteral("- [X]"), open);
    }
    return replacement(line, text);
}

std::optional<LineChanges> DailyNoteEdits::addNewTask(const Lines& lines, const QString& text)
{
    std::optional<qsizetype> at;
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const QStringView trimmed = trimSpaces(lines[i]);
        const bool beginsTasks = isSectionNamed(trimmed, u"task") || isSectionNamed(trimmed, u"scheduled");
        if (at && !beginsTasks && sectionHeading(trimmed)) {
            break;
        }
        if (beginsTasks || (at && containsTaskMarker(lines[i]))) {
            at = i + 1;
        }
    }
    if (!at) {
        return std::nullopt;
    }
    return LineChanges{{Kind::Insert, *at, QStringLiteral("- [ ] ") + text}};
}

std::optional<LineChanges> DailyNoteEdits::addPomodoroToTask(const Lines& lines, qint64 line)
{
    if (!isValidLine(lines, line) || !containsTaskMarker(lines[line])) {
        return std::nullopt;
    }
    return replacement(line, lines[line].toString().append(u' ').append(tomato));
}

std::optional<LineChanges> DailyNoteEdits::removePomodoroFromTask(const Lines& lines, qint64 line)
{
    if (!isValidLine(lines, line) || !containsTaskMarker(lines[line])) {
        return std::nullopt;
    }
    const QStringView old = lines[line];
    std::optional<qsizetype> last;
    std::optional<qsizetype> lastAfterSpace;
    const QList<qsizetype> tomatoes = tomatoesIn(old);
    for (const qsizetype at : tomatoes) {
        last = at;
        if (at > 0 && old[at - 1] == u' ') {
            lastAfterSpace = at;
        }
    }
    if (!last) {
        return std::nullopt;
    }
    const qsizetype end = lastAfterSpace.value_or(*last) + tomato.size();
    const qsizetype start = lastAfterSpace ? *lastAfterSpace - 1 : *last;
    return replacement(line, old.first(start).toString().append(old.sliced(end)));
}

qint64 DailyNoteEdits::pomodoroCount(QStringView line)
{
    return tomatoesIn(line).size();
}

std::optional<qint64> DailyNoteEdits::findLine(const Lines& lines, const Lines& before, qint64 line)
{
    const QStringView heading = headingAbove(before, line);
    const EqualLines then = equalLines(before, before[line], heading);
    const EqualLines now = equalLines(lines, before[line], heading);
    if (now.belowHeading.size() == then.belowHeading.size()) {
        return now.belowHeading[then.belowHeading.indexOf(line)];
    }
    return now.all.size() == 1 && then.all.size() == 1 ? std::optional(now.all.first()) : std::nullopt;
}

QString DailyNoteEdits::apply(const Lines& lines, const LineChanges& changes)
{
    QString text;
    qsizetype size = lines.size();
    for (const QStringView line : lines) {
        size += line.size();
    }
    text.reserve(size + 256);
    const auto append = [&text](QStringView line) { text.append(line).append(u'\n'); };

    auto change = changes.cbegin();
    for (qsizetype i = 0; i <= lines.size(); ++i) {
        bool isReplaced = false;
        for (; change != changes.cend() && change->line == i; ++change) {
            append(onOneLine(change->text));
            isReplaced = isReplaced || change->kind == Kind::Replace;
        }
        if (!isReplaced && i < lines.size()) {
            append(lines[i]);
        }
    }
    text.chop(1);
    return text;
}

} // namespace flitmark
