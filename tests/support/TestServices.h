// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <capture/DraftManager.h>
#include <capture/NoteManager.h>
#include <checkin/CheckinWindowController.h>
#include <config/ConfigManager.h>
#include <daily/DailyNoteManager.h>
#include <platform/NotificationCenter.h>
#include <signals/SignalManager.h>
#include <support/ManualFileEvents.h>
#include <support/ManualRunLoop.h>
#include <support/OutputCapture.h>
#include <support/RecordingSound.h>
#include <support/TestFiles.h>
#include <support/TestPopups.h>
#include <support/TestWorkspace.h>

namespace flitmark {

/// The program's services on folders of their own, at half past nine on 22 January 2026. The vault need not exist.
class TestServices
{
public:
    /// Starts everything and publishes `note`, today's note; a null one is not written.
    explicit TestServices(const QByteArray& note = {})
    {
        config.update([this](AppConfig& changed) {
            changed.vaultPath = vault;
            changed.dailyReviewTimes.clear();
        });
        if (!note.isNull()) {
            writeTestFile(notePath, note);
        }
        daily.loadTodayNote();
        loop.runQueued();
        // Forgets what the start printed.
        output.reset();
        output = std::make_unique<OutputCapture>();
    }
    Q_DISABLE_COPY_MOVE(TestServices)

    QByteArray note() const { return readTestFile(notePath); }

    template<typename Change>
    void changeCoach(Change change)
    {
        CoachConfig changed = signalManager.coachConfig();
        change(changed);
        signalManager.setCoachConfig(changed);
    }
    void setInterval(qint64 minutes)
    {
        changeCoach([minutes](CoachConfig& coach) { coach.pomodoroIntervalMinutes = minutes; });
    }

    QTemporaryDir folder;
    QString vault = folder.filePath("Vault");
    QString notePath = vault + "/Daily/2026/2026-01-22.md";
    Directories directories{
        .home = folder.filePath("home"),
        .applicationSupport = folder.filePath("support"),
        .cache = {},
    };
    std::unique_ptr<OutputCapture> output = std::make_unique<OutputCapture>();
    ManualRunLoop loop{QDateTime(QDate(2026, 1, 22), QTime(9, 30))};
    ManualFileEvents events;
    TestWorkspace workspace;
    RecordingSound sound;
    TestPopups popups;
    NotificationCenter notifications;
    ConfigManager config{directories};
    DraftManager drafts{directories, loop};
    NoteManager notes{config, loop, sound};
    SignalManager signalManager{directories, config, loop, events};
    DailyNoteManager daily{DailyNoteManager::Services{config, signalManager, loop, events, workspace}};
    CheckinWindowController controller{
        CheckinWindowController::Services{config, signalManager, daily, loop, notifications, sound, popups}};
};

} // namespace flitmark
