// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <daily/DailyNoteManager.h>
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

} // namespace

QList<DailyTaskRow> dailyTaskRows(const DailyNoteManager& manager)
{
    QList<DailyTaskRow> rows;
    for (const TaskItem& task : manager.todayNote().tasks) {
        const qint64 count = manager.pomodoroCountForTask(task.lineNumber);
        rows.append({
            .id = task.id,
            .lineNumber = task.lineNumber,
            .text = task.text,
            .isCompleted = task.isCompleted,
            .tomatoButtons = std::min(count, maximumTomatoButtons),
            .moreTomatoes = moreThan(maximumTomatoButtons, count),
        });
    }
    return rows;
}

QList<TaskPickerRow> taskPickerRows(const DailyNoteManager& manager)
{
    QList<TaskPickerRow> rows;
    for (const TaskItem& task : manager.todayNote().tasks) {
        if (task.isCompleted) {
            continue;
        }
        const qint64 count = manager.pomodoroCountForTask(task.lineNumber);
        rows.append({
            .lineNumber = task.lineNumber,
            .text = task.text,
            .tomatoes = QString::fromUtf16(tomato).repeated(std::min(count, maximumPickerTomatoes)) +
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
