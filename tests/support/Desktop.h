// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <app/AppDelegate.h>
#include <platform/AppUpdateController.h>
#include <platform/LoginItemManager.h>
#include <platform/linux/AutostartLoginService.h>
#include <settings/SettingsModel.h>
#include <support/DesktopDoubles.h>
#include <support/TestServices.h>

namespace flitmark {

/// The texts between the commas.
inline QStringList listOf(const char* texts)
{
    return QString::fromUtf8(texts).split(u',');
}

/// A home with everything the delegate works with, on a desktop without a display. Starts with the defaults.
struct Desktop : TestServices
{
    explicit Desktop(const std::function<void(AppConfig&)>& change = [](AppConfig&) {})
    {
        config.load();
        config.update([&](AppConfig& settings) {
            settings.hasCompletedSetup = true;
            change(settings);
        });
        delegate.applicationDidFinishLaunching();
    }

    const AppConfig& settings() const { return config.config(); }
    const CoachConfig& coach() const { return signalManager.coachConfig(); }
    PanelWindow& panel() { return *delegate.panelWindow(); }
    TriggerButtonWindow& trigger() { return *delegate.triggerWindow(); }

    AutostartLoginService loginService{folder.path(), "/bin/sh"};
    LoginItemManager loginItemManager{loginService};
    FakeUpdater updater;
    AppUpdateController updateController{updater};
    SettingsModel settingsModel{{config, signalManager, controller, loginItemManager, updateController, notifications, daily}};
    FakeScreens screens;
    FakeWindowManager windowManager;
    FakeDialogs dialogs;
    FakeKeyMonitor keyMonitor;
    FakeUserDefaults userDefaults;
    AppDelegate delegate{{directories, loop, notifications, config, updateController, controller, signalManager, daily,
                          drafts, notes, screens, windowManager, dialogs, workspace, keyMonitor, loginItemManager,
                          userDefaults}};
};

} // namespace flitmark
