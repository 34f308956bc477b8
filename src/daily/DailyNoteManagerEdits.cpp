// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <core/Text.h>
#include <daily/DailyNoteManager.h>
#include <daily/NoteBytes.h>
#include <platform/Files.h>
#include <platform/RunLoop.h>
#include <signals/SignalManager.h>

#include <limits>

namespace flitmark {

namespace {

// Another program may write again and again while we try; it hardly does for this long.
constexpr int maximumAttempts = 20;

} // namespace

tl::expected<DailyNoteManager::Loaded, QString> DailyNoteManager::tryToWrite(const QString& prefix, const Edit& edit,
                                                                             bool& isFresh)
{
    Loaded base{m_todayNote, m_bytes};
    for (int attempt = 0; attempt < maximumAttempts; ++attempt) {
        const auto onDisk = readFile(base.note.path);
        if (!onDisk) {
            isFresh = true;
            return tl::unexpected(prefix + onDisk.error().message);
        }
        if (*onDisk != base.bytes) {
            isFresh = true;
            auto fresh = readNote(base.note);
            if (!fresh) {
                return tl::unexpected(prefix + fresh.error());
            }
            base = *std::move(fresh);
        }
        const Lines lines = linesOf(base.note);
        const auto changes = edit(base.note, lines);
        if (!changes) {
            return tl::unexpected(changes.error());
        }
        Loaded written = base;
        written.note.content = layout().apply(lines, *changes);
        written.bytes = noteBytes(written.note.content, base.bytes);
        written.isFresh = isFresh;
        const auto outcome = replaceFileIfUnchanged(base.note.path, base.bytes, written.bytes);
        if (!outcome) {
            return tl::unexpected(prefix + outcome.error().message);
        }
        if (*outcome == ReplaceOutcome::Replaced) {
            return written;
        }
    }
    return tl::unexpected(prefix + QStringLiteral("Another program keeps changing the note."));
}

std::optional<DailyNoteManager::Loaded> DailyNoteManager::write(const QString& prefix, const Edit& edit)
{
    if (!m_todayNote.exists || m_todayNote.path != m_loadedPath) {
        return std::nullopt;
    }
    bool isFresh = false;
    auto written = tryToWrite(prefix, edit, isFresh);
    if (written) {
        ++m_writes;
        return *std::move(written);
    }
    if (isFresh) {
        loadTodayNote();
    }
    fail(written.error());
    return std::nullopt;
}

bool DailyNoteManager::writeAndReload(const QString& prefix, const Edit& edit)
{
    if (!write(prefix, edit)) {
        return false;
    }
    loadTodayNote();
    return true;
}

bool DailyNoteManager::updateFocus(const QString& newFocus)
{
    const QString focus = onOneLine(newFocus);
    // A coach may send one that would leave a pair of bare stars in the note.
    if (trimSpaces(focus).isEmpty()) {
        return false;
    }
    const auto edit = [&](const DailyNote&, const Lines& lines) { return layout().updateFocus(lines, focus); };
    const std::optional<Loaded> written = write(QStringLiteral("Failed to update focus: "), edit);
    if (!written) {
        if (focus != m_todayNote.focus) {
            Q_EMIT focusNotWritten(focus);
        }
        return false;
    }
    // The note is not loaded again, but its file is another one now.
    adoptWatch(openWatch(written->note.path));
    m_runLoop.async(this, [this, written = *written, focus] {
        if (m_todayNote.path != written.note.path) {
            return;
        }
        const bool isOwn = written.note.rule != DailyNoteRule::FixedPlace;
        if (isOwn || written.isFresh || linesOf(written.note).size() != linesOf(m_todayNote).size()) {
            // The published tasks would name other lines; in the own layout the focus may be one of them.
            static_cast<ParsedDailyNote&>(m_todayNote) = layout().parse(written.note.content);
            m_editedTasks.clear();
        }
        m_todayNote.content = written.note.content;
        m_todayNote.focus = isOwn ? m_todayNote.focus : focus;
        m_bytes = written.bytes;
        Q_EMIT todayNoteChanged();
    });
    m_signalManager.writeDailyFocus(focus, QStringLiteral("active"), m_todayNote.pomodoroCount);
    return true;
}

bool DailyNoteManager::addPomodoroEntry(const QString& focus)
{
    const QString time = m_runLoop.now().toString(u"HH:mm");
    return writeAndReload(
        QStringLiteral("Failed to add pomodoro entry: "), [&](const DailyNote& note, const Lines& lines) {
            const qint64 number = qMin(note.pomodoroCount, std::numeric_limits<qint64>::max() - 1) + 1;
            return layout().addPomodoroEntry(lines, number, time, focus);
        });
}

bool DailyNoteManager::addNewTask(const QString& text)
{
    return writeAndReload(QStringLiteral("Failed to add new task: "),
                          [&](const DailyNote&, const Lines& lines) { return layout().addNewTask(lines, text); });
}

bool DailyNoteManager::editTask(const QString& prefix, qint64 lineNumber, NoteLayout::TaskEdit edit)
{
    Lines shown = linesOf(m_todayNote);
    if (!m_todayNote.exists || lineNumber < 0 || lineNumber >= shown.size()) {
        return false;
    }
    for (auto edited = m_editedTasks.cbegin(); edited != m_editedTasks.cend(); ++edited) {
        shown[edited.key()] = edited.value();
    }
    const std::optional<LineChanges> change = edit(shown, lineNumber);
    if (!change) {
        return false;
    }
    const bool isWritten =
        write(prefix, [&](const DailyNote&, const Lines& lines) -> NoteLayout::Result {
            const auto found = DailyNoteEdits::findLine(lines, shown, lineNumber);
            if (!found) {
                return tl::unexpected(prefix + QStringLiteral("The note was changed by another program, and which line "
                                                              "is this task's can't be told. Nothing was written."));
            }
            return *edit(lines, *found);
        }).has_value();
    if (isWritten) {
        m_editedTasks.insert(lineNumber, change->first().text);
        loadTodayNote();
    }
    return isWritten;
}

bool DailyNoteManager::toggleTask(qint64 lineNumber)
{
    return editTask(QStringLiteral("Failed to toggle task: "), lineNumber, layout().toggleTask);
}

bool DailyNoteManager::addPomodoroToTask(qint64 lineNumber)
{
    return editTask(QStringLiteral("Failed to add pomodoro to task: "), lineNumber, layout().addPomodoroToTask);
}

bool DailyNoteManager::removePomodoroFromTask(qint64 lineNumber)
{
    return editTask(QStringLiteral("Failed to remove pomodoro from task: "), lineNumber,
                    layout().removePomodoroFromTask);
}

qint64 DailyNoteManager::pomodoroCountForTask(qint64 lineNumber) const
{
    if (!m_todayNote.exists || lineNumber < 0) {
        return 0;
    }
    LineReader reader(m_todayNote.content, layout().breaks);
    while (reader.next()) {
        if (reader.number() == lineNumber) {
            return DailyNoteEdits::pomodoroCount(reader.line());
        }
    }
    return 0;
}

} // namespace flitmark
