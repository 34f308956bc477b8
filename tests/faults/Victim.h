// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <capture/DraftManager.h>
#include <capture/NoteManager.h>
#include <config/ConfigManager.h>
#include <daily/DailyNoteManager.h>
#include <signals/SignalManager.h>
#include <support/ManualFileEvents.h>
#include <support/ManualRunLoop.h>
#include <support/RecordingSound.h>
#include <support/TestFiles.h>
#include <support/TestWorkspace.h>

#include <cstdio>

namespace flitmark {

/// The files of a user who types, saves, ticks tasks and changes settings without ever stopping, and what each of them
/// may hold: every text is as long as a real one and can be told from a part of it.
class Files
{
public:
    explicit Files(const QString& folder)
        : directories{.home = folder, .applicationSupport = folder + QStringLiteral("/support"), .cache = {}}
        , vault(folder + QStringLiteral("/Vault"))
        , daily(vault + QStringLiteral("/Daily/2026/2026-01-22.md"))
    {
    }

    static QString text(int number)
    {
        return QStringLiteral("%1 %2 end").arg(number).arg(QString(8000, QChar(u'a' + number % 26)));
    }
    static QByteArray note(int number)
    {
        const QByteArray journal(20000, 'j');
        return "# " + journal + "\n## Tasks\n- [" + (number % 2 == 0 ? " " : "x") + "] Write\n\n" + journal + "\n";
    }

    Directories directories;
    QString vault;
    QString daily;
    QString config = directories.ownFolder() + QStringLiteral("/config.json");
    QString draft = directories.ownFolder() + QStringLiteral("/.draft.json");
};

/// One run of such a user, from `number` on, until the process is killed. Says on standard error what has been done.
[[noreturn]] inline void liveUntilKilled(const Files& files, int number)
{
    std::freopen("/dev/null", "w", stdout);
    ManualRunLoop loop{QDateTime(QDate(2026, 1, 22), QTime(9, 30))};
    ManualFileEvents events;
    TestWorkspace workspace;
    RecordingSound sound;
    ConfigManager config(files.directories);
    SignalManager signalManager(files.directories, config, loop, events);
    DailyNoteManager daily({config, signalManager, loop, events, workspace});
    DraftManager draft(files.directories, loop);
    NoteManager notes(config, loop, sound);
    daily.loadTodayNote();
    loop.runQueued();
    for (;; ++number) {
        std::fprintf(stderr, "%d\n", number);
        draft.save(Files::text(number), {}, QStringLiteral("Fleeting"));
        config.update([number](AppConfig& changed) { changed.panelWidth = number; });
        config.save();
        daily.toggleTask(daily.todayNote().tasks.first().lineNumber);
        loop.runQueued();
        if (number % 4 == 0) {
            loop.advance(std::chrono::seconds(1));
            std::ignore = notes.save({}, Files::text(number), QStringLiteral("Fleeting"));
        }
    }
}

} // namespace flitmark
