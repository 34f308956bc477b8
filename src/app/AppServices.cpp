// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <app/AppServices.h>
#include <capture/DraftManager.h>
#include <capture/NoteManager.h>
#include <checkin/CheckinWindowController.h>
#include <config/ConfigManager.h>
#include <daily/DailyNoteManager.h>
#include <platform/AppUpdateController.h>
#include <platform/Dialogs.h>
#include <platform/KeyMonitor.h>
#include <platform/LoginItemManager.h>
#include <platform/NotificationCenter.h>
#include <platform/RunLoop.h>
#include <platform/Screens.h>
#include <platform/UserDefaults.h>
#include <platform/WindowManager.h>
#include <platform/Workspace.h>
#include <signals/SignalManager.h>

namespace flitmark {

AppServices AppServices::shared()
{
    // The members are made in this order.
    return {
        .directories = Directories::ofUser(),
        .runLoop = RunLoop::shared(),
        .notificationCenter = NotificationCenter::shared(),
        .configManager = ConfigManager::shared(),
        .updateController = AppUpdateController::shared(),
        .checkinWindowController = CheckinWindowController::shared(),
        .signalManager = SignalManager::shared(),
        .dailyNoteManager = DailyNoteManager::shared(),
        .draftManager = DraftManager::shared(),
        .noteManager = NoteManager::shared(),
        .screens = Screens::shared(),
        .windowManager = WindowManager::shared(),
        .dialogs = Dialogs::shared(),
        .workspace = Workspace::shared(),
        .keyMonitor = KeyMonitor::shared(),
        .loginItemManager = LoginItemManager::shared(),
        .userDefaults = UserDefaults::shared(),
        .screenshotMode = ScreenshotMode::ofEnvironment(),
    };
}

} // namespace flitmark
