// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <app/AppServices.h>
#include <platform/linux/Desktop.h>
#include <ui/QtDialogs.h>

#include <QCoreApplication>

namespace flitmark {

AppServices::AppServices()
    : runLoop(makeRunLoop())
    , userDefaults(makeUserDefaults(directories))
    , updater(makeUpdater(*userDefaults, *runLoop))
    , workspace(makeWorkspace())
    , sound(makeSystemSound(directories))
    , screens(makeScreens())
    , windowManager(makeWindowManager())
    , dialogs(makeDialogs(configManager, *runLoop))
    , keyMonitor(makeKeyMonitor(*runLoop))
    , loginService(directories.configHome, QCoreApplication::applicationFilePath())
{
}

AppServices::~AppServices() = default;

AppDelegate::Services AppServices::references()
{
    return {
        .directories = directories,
        .runLoop = *runLoop,
        .notificationCenter = notificationCenter,
        .configManager = configManager,
        .updateController = updateController,
        .checkinWindowController = checkinWindowController,
        .signalManager = signalManager,
        .dailyNoteManager = dailyNoteManager,
        .draftManager = draftManager,
        .noteManager = noteManager,
        .screens = *screens,
        .windowManager = *windowManager,
        .dialogs = *dialogs,
        .workspace = *workspace,
        .keyMonitor = *keyMonitor,
        .loginItemManager = loginItemManager,
        .userDefaults = *userDefaults,
        .screenshotMode = ScreenshotMode::ofEnvironment(),
    };
}

} // namespace flitmark
