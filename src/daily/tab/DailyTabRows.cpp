// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <core/Text.h>
#include <daily/DailyNoteEdits.h>
#include <daily/DailyNoteManager.h>
#include <daily/NoteLayout.h>
#include <daily/NoteLines.h>
#include <daily/tab/DailyTabRows.h>

#include <QCoreApplication>

#include <algorithm>

namespace flitmark {

namespace {

constexpr qint64 maximumTomatoButtons = 6;
constexpr qint64 maximumPickerTomatoes = 5;

QString moreThan(qint64 shown, qint64 count)
{
    return count > shown ? u'+' + QString::number(count - shown) : QString();
}

QString translated(const char* text)
{
    return QCoreApplication::translate("DailyTabDemo", text);
}

/// The spans in the first `size` characters of their text.
QList<TextSpan> spansWithin(QList<TextSpan> spans, qsizetype size)
{
    spans.removeIf([size](const TextSpan& span) { return span.start + span.length > size; });
    return spans;
}

/// The tomatoes of each task.
QList<qint64> tomatoCounts(const DailyNote& note)
{
    // The lines are found once: to ask the manager about each task would look through the note as often.
    const QList<QStringView> lines = linesOf(note);
    QList<qint64> counts;
    for (const TaskItem& task : note.tasks) {
        counts.append(DailyNoteEdits::pomodoroCount(lines.value(task.lineNumber)));
    }
    return counts;
}

} // namespace

QList<DailyTaskRow> dailyTaskRows(const DailyNoteManager& manager)
{
    const QList<qint64> counts = tomatoCounts(manager.todayNote());
    QList<DailyTaskRow> rows;
    for (const TaskItem& task : manager.todayNote().tasks) {
        const qint64 count = counts[rows.size()];
        rows.append({
            .lineNumber = task.lineNumber,
            .text = shortened(task.text),
            .isCompleted = task.isCompleted,
            .tomatoButtons = std::min(count, maximumTomatoButtons),
            .moreTomatoes = moreThan(maximumTomatoButtons, count),
            .group = shortened(task.group),
            .depth = task.depth,
            .sign = task.sign,
            .spans = spansWithin(task.spans, shortened(task.text).size()),
        });
    }
    return rows;
}

QList<TaskPickerRow> taskPickerRows(const DailyNoteManager& manager)
{
    const QList<TaskItem>& tasks = manager.todayNote().tasks;
    const QList<qint64> counts = tomatoCounts(manager.todayNote());
    QList<TaskPickerRow> rows;
    for (qsizetype i = 0; i < tasks.size(); ++i) {
        const TaskItem& task = tasks[i];
        if (task.isCompleted) {
            continue;
        }
        const qint64 count = counts[i];
        rows.append({
            .lineNumber = task.lineNumber,
            .text = shortened(task.text),
            .tomatoes = tomato.toString().repeated(std::min(count, maximumPickerTomatoes)) +
                        moreThan(maximumPickerTomatoes, count),
        });
    }
    return rows;
}

DailyTabDemo dailyTabDemo()
{
    return {
        .focus = translated(QT_TRANSLATE_NOOP("DailyTabDemo", "Ship landing page v2 with polished visuals")),
        .tasks =
            {
                translated(QT_TRANSLATE_NOOP("DailyTabDemo", "Finalize screenshot pack")),
                translated(QT_TRANSLATE_NOOP("DailyTabDemo", "Publish FAQ visuals")),
                translated(QT_TRANSLATE_NOOP("DailyTabDemo", "Review release notes")),
                translated(QT_TRANSLATE_NOOP("DailyTabDemo", "Record two focus blocks")),
                translated(QT_TRANSLATE_NOOP("DailyTabDemo", "Send build notes to collaborators")),
            },
        .workDone =
            {
                translated(QT_TRANSLATE_NOOP("DailyTabDemo", "✅ Header clipping fix deployed")),
                translated(QT_TRANSLATE_NOOP("DailyTabDemo", "✅ README screenshots refreshed")),
            },
        .caption = translated(QT_TRANSLATE_NOOP("DailyTabDemo", "Demo view for product screenshots")),
    };
}

} // namespace flitmark
