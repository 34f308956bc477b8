// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <app/AppDelegate.h>
#include <capture/DraftManager.h>
#include <capture/NoteManager.h>
#include <checkin/CheckinWindowController.h>
#include <checkin/DesktopPopups.h>
#include <config/ConfigManager.h>
#include <daily/DailyNoteManager.h>
#include <platform/AppUpdateController.h>
#include <platform/Dialogs.h>
#include <platform/Directories.h>
#include <platform/KeyMonitor.h>
#include <platform/LoginItemManager.h>
#include <platform/NotificationCenter.h>
#include <platform/RunLoop.h>
#include <platform/Screens.h>
#include <platform/SystemSound.h>
#include <platform/UserDefaults.h>
#include <platform/WindowManager.h>
#include <platform/Workspace.h>
#include <platform/linux/AutostartLoginService.h>
#include <platform/linux/InotifyFileEventSource.h>
#include <signals/SignalManager.h>

namespace flitmark {

/// The long-lived services, one of each: made with it in the order of its members, ended with it in reverse. Whoever
/// works with one is handed a reference. Main thread only, with the application object there.
struct AppServices
{
    AppServices();
    ~AppServices();
    Q_DISABLE_COPY_MOVE(AppServices)

    /// What the application delegate works with.
    AppDelegate::Services references();

    const Directories directories = Directories::ofUser();
    const std::unique_ptr<RunLoop> runLoop;
    NotificationCenter notificationCenter;
    ConfigManager configManager{directories};
    const std::unique_ptr<UserDefaults> userDefaults;
    const std::unique_ptr<Updater> updater;
    AppUpdateController updateController{*updater};
    InotifyFileEventSources fileEvents;
    SignalManager signalManager{directories, configManager, *runLoop, fileEvents};
    const std::unique_ptr<Workspace> workspace;
    DailyNoteManager dailyNoteManager{{configManager, signalManager, *runLoop, fileEvents, *workspace}};
    const std::unique_ptr<SystemSound> sound;
    const std::unique_ptr<Screens> screens;
    const std::unique_ptr<WindowManager> windowManager;
    DesktopPopups popups{{configManager, dailyNoteManager, signalManager, *runLoop, *screens, *windowManager}};
    CheckinWindowController checkinWindowController{
        {configManager, signalManager, dailyNoteManager, *runLoop, notificationCenter, *sound, popups}};
    DraftManager draftManager{directories, *runLoop};
    NoteManager noteManager{configManager, *runLoop, *sound};
    const std::unique_ptr<Dialogs> dialogs;
    const std::unique_ptr<KeyMonitor> keyMonitor;
    AutostartLoginService loginService;
    LoginItemManager loginItemManager{loginService};
};

} // namespace flitmark
