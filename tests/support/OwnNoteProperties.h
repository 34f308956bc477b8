// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <core/Text.h>
#include <daily/OwnNoteEdits.h>
#include <daily/OwnNoteParser.h>

#include <limits>

namespace flitmark {

/// What has to hold of any note in the own layout, with any edit. Each gives the name of what does not hold, or
/// nothing.
namespace own {

using Broken = const char*;

/// Every line keeps every byte but those that `changes` name.
inline Broken checkLines(const QString& before, const LineChanges& changes, const QString& after)
{
    const auto old = splitLines(before, LineBreaks::LfAndCr);
    qsizetype from = 0; // in `before`
    qsizetype at = 0;   // in `after`
    auto change = changes.cbegin();
    for (qsizetype i = 0; i < old.size(); ++i) {
        const qsizetype next = i + 1 < old.size() ? old[i + 1].data() - old[0].data() : before.size();
        bool isReplaced = false;
        for (; change != changes.cend() && change->line == i; ++change) {
            if (QStringView(after).sliced(at, change->text.size()) != change->text) {
                return "a changed line is where it should be";
            }
            at += change->text.size();
            isReplaced = change->kind == LineChange::Kind::Replace;
            if (!isReplaced) {
                const qsizetype end = after.indexOf(u'\n', at) == at || after[at] == u'\r' ? 1 : 0;
                at += end + (after.mid(at, 2) == "\r\n" ? 1 : 0);
            }
        }
        from += isReplaced ? old[i].size() : 0;
        if (QStringView(before).sliced(from, next - from) != QStringView(after).sliced(at, next - from)) {
            return "other lines keep their bytes";
        }
        at += next - from;
        from = next;
    }
    for (; change != changes.cend(); ++change) {
        at += (after.mid(at, 2) == "\r\n" ? 2 : 1) + change->text.size();
    }
    return at == after.size() ? nullptr : "nothing else is written";
}

inline qsizetype openTasks(const ParsedDailyNote& note)
{
    return std::count_if(note.tasks.begin(), note.tasks.end(), [](const TaskItem& task) { return !task.isCompleted; });
}

/// The edits of the task at `line`.
inline Broken checkTask(const QString& text, qint64 line)
{
    const auto lines = splitLines(text, LineBreaks::LfAndCr);
    const auto toggled = OwnNoteEdits::toggleTask(lines, line);
    if (!toggled) {
        return "a task can be toggled";
    }
    const QString once = OwnNoteEdits::apply(lines, *toggled);
    if (const Broken broken = checkLines(text, *toggled, once)) {
        return broken;
    }
    const QString twice = OwnNoteEdits::apply(splitLines(once, LineBreaks::LfAndCr),
                                              *OwnNoteEdits::toggleTask(splitLines(once, LineBreaks::LfAndCr), line));
    const QChar sign = once.size() == text.size()
                           ? text[std::mismatch(text.begin(), text.end(), once.begin()).first - text.begin()]
                           : u'/';
    if ((sign == u' ' || sign == u'x') && twice != text) {
        return "toggling twice gives back the note";
    }
    const auto more = OwnNoteEdits::addPomodoroToTask(lines, line);
    const QString with = OwnNoteEdits::apply(lines, *more);
    if (const Broken broken = checkLines(text, *more, with)) {
        return broken;
    }
    if (DailyNoteEdits::pomodoroCount(more->first().text) != DailyNoteEdits::pomodoroCount(lines[line]) + 1) {
        return "a tomato more counts one more";
    }
    const auto less = OwnNoteEdits::removePomodoroFromTask(splitLines(with, LineBreaks::LfAndCr), line);
    return less && DailyNoteEdits::pomodoroCount(less->first().text) == DailyNoteEdits::pomodoroCount(lines[line])
               ? nullptr
               : "a tomato that counts can go";
}

/// What is read, and every edit. `line` chooses a task.
inline Broken check(const QString& text, qsizetype line)
{
    const auto lines = splitLines(text, LineBreaks::LfAndCr);
    const ParsedDailyNote note = parseOwnNote(text);
    qint64 last = -1;
    for (const TaskItem& task : note.tasks) {
        if (task.lineNumber <= last || task.lineNumber >= lines.size() || task.depth < 0) {
            return "tasks are in order";
        }
        for (const TextSpan& span : task.spans) {
            if (span.start < 0 || span.length <= 0 || span.start + span.length > task.text.size()) {
                return "spans lie in their text";
            }
        }
        last = task.lineNumber;
    }
    if (!note.tasks.isEmpty()) {
        if (const Broken broken = checkTask(text, note.tasks[line % note.tasks.size()].lineNumber)) {
            return broken;
        }
    }
    const qint64 number = qMin(note.pomodoroCount, std::numeric_limits<qint64>::max() - 1) + 1;
    const std::pair<char, OwnNoteEdits::Result> edits[] = {
        {'f', OwnNoteEdits::updateFocus(lines, "Ship it")},
        {'e', OwnNoteEdits::addPomodoroEntry(lines, number, "09:30", "Ship|it")},
        {'t', OwnNoteEdits::addNewTask(lines, "Ship it")},
    };
    for (const auto& [kind, changes] : edits) {
        if (!changes) {
            continue;
        }
        const QString written = OwnNoteEdits::apply(lines, *changes);
        if (const Broken broken = checkLines(text, *changes, written)) {
            return broken;
        }
        const ParsedDailyNote again = parseOwnNote(written);
        if (kind == 'f' && again.focus != "Ship it") {
            return "the focus that is written is read";
        }
        if (kind == 'e' && (again.pomodoroCount != number || again.pomodoroLog.isEmpty())) {
            return "the Pomodoro that is written is read";
        }
        if (kind == 't' && (again.tasks.size() != note.tasks.size() + 1 || openTasks(again) != openTasks(note) + 1)) {
            return "the task that is written is read";
        }
    }
    return nullptr;
}

} // namespace own

} // namespace flitmark
