// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <app/AppDelegate.h>
#include <settings/SettingsStage.h>

namespace flitmark {

/// A home with everything the delegate works with, on a desktop without a display.
struct Desktop : SettingsStage
{
    explicit Desktop(const std::function<void(AppConfig&)>& change = [](AppConfig&) {})
    {
        config.update([&](AppConfig& settings) {
            settings.hasCompletedSetup = true;
            change(settings);
        });
        delegate.applicationDidFinishLaunching();
    }

    PanelWindow& panel() { return *delegate.panelWindow(); }
    TriggerButtonWindow& trigger() { return *delegate.triggerWindow(); }

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
