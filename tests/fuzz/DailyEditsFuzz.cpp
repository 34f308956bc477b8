// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <core/Text.h>
#include <daily/DailyNoteEdits.h>
#include <daily/NoteBytes.h>

#include "Property.h"

namespace flitmark {

namespace {

using Edits = DailyNoteEdits;
using Lines = DailyNoteEdits::Lines;

/// Takes the changed lines out of the result and puts the old ones back: what comes must be the text from before.
void checkOnlyItsLines(const Lines& before, const LineChanges& changes)
{
    const QString after = Edits::apply(before, changes);
    QStringList lines = after.split(u'\n');
    qsizetype at = 0;
    qsizetype added = 0;
    QList<qsizetype> inserted;
    for (const LineChange& change : changes) {
        require(change.line >= at, "changes are in order");
        at = change.line;
        const qsizetype place = change.line + added;
        require(place < lines.size() && lines[place] == change.text, "a changed line is where it should be");
        if (change.kind == LineChange::Kind::Insert) {
            inserted.prepend(place);
            ++added;
        } else {
            lines[place] = before[change.line].toString();
        }
    }
    for (const qsizetype place : inserted) {
        lines.removeAt(place);
    }
    require(lines.size() == before.size(), "an edit adds and removes no other line");
    for (qsizetype i = 0; i < before.size(); ++i) {
        require(lines[i] == before[i], "an edit changes only its lines");
    }
}

void checkTask(const Lines& lines, qint64 number)
{
    const QString line = lines[number].toString();
    if (const auto toggled = Edits::toggleTask(lines, number)) {
        checkOnlyItsLines(lines, *toggled);
        const QString once = toggled->first().text;
        require(once.size() == line.size(), "a toggle keeps the length");
        const auto again = Edits::toggleTask({once}, 0);
        require(again.has_value(), "a toggled task is a task");
        const bool isMixed = line.contains(u"- [X]") || (line.contains(u"- [x]") && line.contains(u"- [ ]"));
        require(isMixed || again->first().text == line, "toggling twice gives back the line");
    }
    if (const auto added = Edits::addPomodoroToTask(lines, number)) {
        checkOnlyItsLines(lines, *added);
        const QString more = added->first().text;
        require(Edits::pomodoroCount(more) == Edits::pomodoroCount(line) + 1, "a tomato more counts one more");
        const auto removed = Edits::removePomodoroFromTask({more}, 0);
        require(removed && removed->first().text == line, "adding and removing a tomato gives back the line");
    }
    if (const auto removed = Edits::removePomodoroFromTask(lines, number)) {
        checkOnlyItsLines(lines, *removed);
        require(removed->first().text.size() < line.size(), "a tomato less is shorter");
    } else {
        require(!Edits::toggleTask(lines, number) || Edits::pomodoroCount(line) == 0, "a tomato that counts can go");
    }
}

void checkEdits(const QByteArray& bytes)
{
    const std::optional<QString> text = noteText(bytes);
    if (!text) {
        return;
    }
    const Lines lines = splitLines(*text);
    const qsizetype first = bytes.isEmpty() ? 0 : static_cast<uchar>(bytes.back()) % lines.size();
    for (qsizetype i = first; i < qMin(lines.size(), first + 20); ++i) {
        checkTask(lines, i);
        require(Edits::findLine(lines, lines[i], i) == i, "a line is found where it is");
    }
    const QString word = QStringLiteral("Ship it");
    checkOnlyItsLines(lines, Edits::updateFocus(lines, word));
    checkOnlyItsLines(lines, Edits::addPomodoroEntry(lines, 4, QStringLiteral("09:30"), word));
    if (const auto added = Edits::addNewTask(lines, word)) {
        checkOnlyItsLines(lines, *added);
    }
}

} // namespace

} // namespace flitmark

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    flitmark::checkEdits(QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)));
    return 0;
}
