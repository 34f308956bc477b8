// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <core/Text.h>
#include <daily/DailyNoteEdits.h>
#include <daily/NoteBytes.h>
#include <daily/NoteLines.h>
#include <support/NotePicture.h>

#include "Property.h"

namespace flitmark {

namespace {

using Edits = DailyNoteEdits;
using Lines = DailyNoteEdits::Lines;

void checkOnlyItsLines(const Lines& before, const LineChanges& changes)
{
    QStringList expected;
    for (const QStringView line : before) {
        expected += line.toString();
    }
    for (auto change = changes.rbegin(); change != changes.rend(); ++change) {
        require(change == changes.rbegin() || change->line <= (change - 1)->line, "changes are in order");
        if (change->kind == LineChange::Kind::Insert) {
            expected.insert(change->line, change->text);
        } else {
            expected[change->line] = change->text;
        }
    }
    require(Edits::apply(before, changes) == expected.join(u'\n'), "an edit changes only its lines");
}

void checkTask(const Lines& lines, qint64 number)
{
    const QString line = lines[number].toString();
    if (const auto toggled = Edits::toggleTask(lines, number)) {
        checkOnlyItsLines(lines, *toggled);
        const QString once = toggled->first().text;
        const auto again = Edits::toggleTask({once}, 0);
        const bool isMixed = line.contains(u"- [X]") || (line.contains(u"- [x]") && line.contains(u"- [ ]"));
        require(again && (isMixed || again->first().text == line), "toggling twice gives back the line");
    }
    if (const auto added = Edits::addPomodoroToTask(lines, number)) {
        checkOnlyItsLines(lines, *added);
        const QString more = added->first().text;
        require(Edits::pomodoroCount(more) == Edits::pomodoroCount(line) + 1, "a tomato more counts one more");
        const auto removed = Edits::removePomodoroFromTask({more}, 0);
        require(removed && removed->first().text == line, "adding and removing a tomato gives back the line");
    }
    const auto removed = Edits::removePomodoroFromTask(lines, number);
    require(removed || !Edits::toggleTask(lines, number) || Edits::pomodoroCount(line) == 0,
            "a tomato that counts can go");
    checkOnlyItsLines(lines, removed.value_or(LineChanges()));
}

void checkParsing(const Lines& lines, const QString& text)
{
    const ParsedDailyNote note = parseDailyNote(text);
    qint64 last = -1;
    for (const TaskItem& task : note.tasks) {
        require(task.lineNumber > last && task.lineNumber < lines.size(), "task lines are in order");
        require(containsTaskMarker(lines[task.lineNumber]), "a task's line has a check box");
        require(lines[task.lineNumber].contains(task.text), "a task's text is in its line");
        last = task.lineNumber;
    }
    const QString plain = Edits::apply(lines, {});
    require(picture(parseDailyNote(plain)) == picture(note), "LF for any break reads the same");
    require(picture(parseDailyNote(QString(plain).replace(u'\n', "\r\n"))) == picture(note), "CR LF reads the same");
    require(parseDailyNote(QStringLiteral("---\nx\n---\n") + text).focus == note.focus, "front matter hides no focus");
}

} // namespace

void checkInput(const QByteArray& bytes)
{
    const std::optional<QString> text = noteText(bytes);
    if (!text) {
        return;
    }
    require(noteBytes(*text, bytes) == bytes, "text keeps every byte");
    const Lines lines = splitLines(*text);
    checkParsing(lines, *text);
    const qsizetype first = bytes.isEmpty() ? 0 : static_cast<uchar>(bytes.back()) % lines.size();
    for (qsizetype i = first; i < qMin(lines.size(), first + 20); ++i) {
        checkTask(lines, i);
        require(Edits::findLine(lines, lines, i) == i, "a line is found where it is");
    }
    const QString word = "Ship it";
    checkOnlyItsLines(lines, Edits::updateFocus(lines, word));
    checkOnlyItsLines(lines, Edits::addPomodoroEntry(lines, 4, "09:30", word));
    checkOnlyItsLines(lines, Edits::addNewTask(lines, word).value_or(LineChanges()));
}

} // namespace flitmark
