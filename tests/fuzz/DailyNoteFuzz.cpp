// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <core/Text.h>
#include <daily/NoteBytes.h>
#include <daily/NoteLines.h>
#include <support/NotePicture.h>

#include "Property.h"

namespace flitmark {

namespace {

void checkTasks(const ParsedDailyNote& note, const QString& text)
{
    const QList<QStringView> lines = splitLines(text);
    qint64 last = -1;
    for (const TaskItem& task : note.tasks) {
        require(task.lineNumber > last && task.lineNumber < lines.size(), "task lines are in order");
        require(containsTaskMarker(lines[task.lineNumber]), "a task's line has a check box");
        require(lines[task.lineNumber].contains(task.text), "a task's text is in its line");
        last = task.lineNumber;
    }
}

} // namespace

void checkInput(const QByteArray& bytes)
{
    const std::optional<QString> text = noteText(bytes);
    if (!text) {
        return;
    }
    require(noteBytes(*text, bytes) == bytes, "text keeps every byte");
    const ParsedDailyNote note = parseDailyNote(*text);
    checkTasks(note, *text);

    QStringList lines;
    for (const QStringView line : splitLines(*text)) {
        lines += line.toString();
    }
    require(picture(parseDailyNote(lines.join(u'\n'))) == picture(note), "LF for any break reads the same");
    require(picture(parseDailyNote(lines.join(QStringLiteral("\r\n")))) == picture(note), "CR LF reads the same");
    require(parseDailyNote(QStringLiteral("---\nx\n---\n") + *text).focus == note.focus, "front matter hides no focus");
}

} // namespace flitmark
