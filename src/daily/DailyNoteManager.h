// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <daily/DailyNoteLocator.h>
#include <daily/NoteLayout.h>
#include <platform/FileEventSource.h>

#include <QHash>
#include <QObject>

#include <functional>
#include <memory>
#include <optional>

namespace flitmark {

class ConfigManager;
class RunLoop;
class SignalManager;
class Workspace;

/// Owns today's daily note: finds it in the vault, loads it, watches its file and edits it. Another vault in the
/// configuration is followed at once; a new day only when `loadTodayNoteIfMoved` is called.
///
/// The note is published one turn of the main loop after it was loaded, in the order of the loads. An edit changes only
/// its own lines, ends every line with LF and writes the whole file as one. It is made on what the file holds at that
/// moment, also when that is not what was loaded: a task is found again by its line's text and the heading above it. An
/// edit that can't be done, or not be written, returns false and leaves the file as it was; where that needs saying, a
/// printed line and `lastError()` say why. None is made on a note whose place today's has taken without being readable.
/// Tasks are named by their `lineNumber` in the published note; any number may be given. Main thread only.
class DailyNoteManager final : public QObject
{
    Q_OBJECT

public:
    using Parsed = ParsedDailyNote;

    /// What the manager works with.
    struct Services
    {
        const ConfigManager& configManager;
        SignalManager& signalManager;
        RunLoop& runLoop;
        FileEventSources& fileEvents;
        Workspace& workspace;
    };

    /// Loads today's note at once.
    explicit DailyNoteManager(const Services& services);
    ~DailyNoteManager() override;
    Q_DISABLE_COPY_MOVE(DailyNoteManager)

    const DailyNote& todayNote() const { return m_todayNote; }
    /// From the start of a load until its result is published.
    bool isLoading() const { return m_isLoading; }
    /// Why the last load or edit failed, in English, as it is printed; nothing once a load has begun.
    const std::optional<QString>& lastError() const { return m_lastError; }
    /// The descriptor that the note's file is watched on; -1 when it is not watched.
    int watchedFileDescriptor() const { return m_fileWatcher ? m_fileWatcher->descriptor() : -1; }

    /// Where today's note is, by the current date, the configured vault and Obsidian's settings in it. It need not
    /// exist.
    QString getTodayNotePath() const { return locate().path; }

    /// Where it is, or would be, in the vault at `vault`.
    DailyNotePlace placeIn(const QString& vault) const;

    /// Opens the published note in Obsidian, whether it exists or not. False where no program opens such links.
    bool openInObsidian();
    /// Has Obsidian make today's note, where its settings put it, and looks for it once a second for half a minute.
    /// False where no program opens such links.
    bool createInObsidian();
    /// Opens a link of the published note: another note in Obsidian, or an address. False where no program does.
    bool openLink(const TextSpan& link);
    /// Opens the published note with the desktop's program for its file.
    void openFile();

    static Parsed parseMarkdown(const QString& content);

    /// Reads today's note and watches its file from now on. A file that can't be read keeps the note that is published
    /// and the watch as they are; one that isn't there is no error.
    void loadTodayNote();
    /// The same where today's note is another file than the last load's: on another day, or in another vault.
    void loadTodayNoteIfMoved();

    /// Sets today's focus, in the note and for the coach, with line breaks as spaces. A blank one is refused.
    bool updateFocus(const QString& newFocus);
    /// Counts one more Pomodoro and logs it with the current time.
    bool addPomodoroEntry(const QString& focus);
    bool toggleTask(qint64 lineNumber);
    bool addNewTask(const QString& text);
    bool addPomodoroToTask(qint64 lineNumber);
    bool removePomodoroFromTask(qint64 lineNumber);
    /// How many tomatoes the line shows; 0 for a line that isn't there.
    qint64 pomodoroCountForTask(qint64 lineNumber) const;
    /// The text of the task whose Pomodoro runs, for a log that has no focus to name; empty for none. In the planned
    /// layout none is named.
    void setRunningTask(const QString& text) { m_runningTask = text; }
    QString runningTask() const;

Q_SIGNALS:
    void todayNoteChanged();
    void isLoadingChanged();
    void lastErrorChanged();
    /// `focus`, which is another than the note's, could not be written and would be lost.
    void focusNotWritten(const QString& focus);

private:
    /// A note together with the bytes of its file, which tell whether the file has changed since.
    struct Loaded
    {
        DailyNote note;
        QByteArray bytes;
        /// The file held something else than the note that is published.
        bool isFresh = false;
    };
    using Lines = NoteLayout::Lines;
    /// An edit of the lines of a note; an error is what to tell the user.
    using Edit = std::function<NoteLayout::Result(const DailyNote& note, const Lines& lines)>;
    using Watch = tl::expected<std::unique_ptr<FileEventSource>, FileError>;

    DailyNotePlace locate() const;
    void lookForNewNote(int looksLeft);
    const NoteLayout& layout() const { return layoutOf(m_todayNote.rule); }
    /// The note at the path, and by the rule, of `place`, which may be another note's.
    static tl::expected<Loaded, QString> readNote(const DailyNote& place);
    Watch openWatch(const QString& path);
    void adoptWatch(Watch watch);
    void publish(Loaded loaded);
    void setLoading(bool isLoading);
    void setLastError(std::optional<QString> error);
    /// Says on standard output, and by `lastError()`, what went wrong.
    void fail(const QString& error);

    /// Makes `edit` on what the file holds and writes it; the note as written, its parsed fields as before the edit.
    /// `prefix` begins the message about a failure.
    std::optional<Loaded> write(const QString& prefix, const Edit& edit);
    tl::expected<Loaded, QString> tryToWrite(const QString& prefix, const Edit& edit, bool& isFresh);
    bool writeAndReload(const QString& prefix, const Edit& edit);
    bool editTask(const QString& prefix, qint64 lineNumber, NoteLayout::TaskEdit edit);

    const ConfigManager& m_configManager;
    SignalManager& m_signalManager;
    RunLoop& m_runLoop;
    FileEventSources& m_fileEvents;
    Workspace& m_workspace;
    /// Remembers what it has printed of settings.
    mutable DailyNoteLocator m_locator;
    DailyNote m_todayNote;
    QString m_runningTask;
    /// Where the last load looked. The published note is elsewhere until that load has published, or where it can't.
    QString m_loadedPath;
    /// The bytes of the file that `m_todayNote` was read from or written to.
    QByteArray m_bytes;
    bool m_isLoading = false;
    std::optional<QString> m_lastError;
    std::unique_ptr<FileEventSource> m_fileWatcher;
    /// Tells the events of our own writes from those of others.
    int m_writes = 0;
    /// By line number, the texts of task lines that were edited since the note was published.
    QHash<qint64, QString> m_editedTasks;
};

} // namespace flitmark
