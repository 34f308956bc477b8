// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <checkin/CheckinWindowController.h>
#include <config/ConfigManager.h>
#include <daily/DailyNoteManager.h>
#include <platform/AppUpdateController.h>
#include <platform/LoginItemManager.h>
#include <platform/NotificationCenter.h>
#include <settings/SettingsModel.h>
#include <signals/SignalManager.h>
#include <support/DesktopDoubles.h>
#include <support/ManualFileEvents.h>
#include <support/ManualRunLoop.h>
#include <support/RecordingSound.h>
#include <support/TestFiles.h>
#include <support/TestPopups.h>
#include <support/TestWorkspace.h>

namespace flitmark {

/// The texts between the commas.
inline QStringList listOf(const char* texts)
{
    return QString::fromUtf8(texts).split(u',');
}

/// A home with everything the settings work with. The model has not loaded yet.
struct SettingsStage
{
    QTemporaryDir home;
    Directories directories{home.path(), home.filePath(QStringLiteral("support")), home.filePath(QStringLiteral("c"))};
    ManualRunLoop runLoop;
    NotificationCenter center;
    RecordingSound sound;
    ManualFileEvents fileEvents;
    TestWorkspace workspace;
    TestPopups popups;
    FakeLoginService loginService;
    LoginItemManager loginItemManager{loginService};
    FakeUpdater updater;
    AppUpdateController updateController{updater};
    ConfigManager configManager{directories};
    SignalManager signalManager{directories, configManager, runLoop, fileEvents};
    DailyNoteManager dailyNoteManager{{configManager, signalManager, runLoop, fileEvents, workspace}};
    CheckinWindowController controller{
        {configManager, signalManager, dailyNoteManager, runLoop, center, sound, popups}};
    SettingsModel model{{configManager, signalManager, controller, loginItemManager, updateController, center}};

    const AppConfig& config() const { return configManager.config(); }
    const CoachConfig& coach() const { return signalManager.coachConfig(); }
    template<typename Change>
    void changeCoach(Change change)
    {
        CoachConfig changed = coach();
        change(changed);
        signalManager.setCoachConfig(changed);
    }
    /// The configuration and the coach's, as they are on disk.
    QByteArray files() const
    {
        return readTestFile(directories.ownFolder() + QStringLiteral("/config.json")) +
               readTestFile(signalManager.coachConfigURL());
    }
};

} // namespace flitmark
