// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <app/AppDelegate.h>
#include <capture/DraftManager.h>
#include <capture/NoteManager.h>
#include <settings/SettingsStage.h>

namespace flitmark {

/// A home with everything the delegate works with, on a desktop without a display.
struct Desktop : SettingsStage
{
    template<typename Change>
    explicit Desktop(Change change)
    {
        configManager.update([&](AppConfig& config) {
            config.hasCompletedSetup = true;
            change(config);
        });
        delegate.applicationDidFinishLaunching();
    }
    Desktop()
        : Desktop([](AppConfig&) {})
    {
    }

    PanelWindow& panel() { return *delegate.panelWindow(); }
    TriggerButtonWindow& trigger() { return *delegate.triggerWindow(); }

    FakeScreens screens;
    FakeWindowManager windowManager;
    FakeDialogs dialogs;
    FakeKeyMonitor keyMonitor;
    FakeUserDefaults userDefaults;
    DraftManager draftManager{directories, runLoop};
    NoteManager noteManager{configManager, runLoop, sound};
    AppDelegate delegate{AppServices{directories, runLoop, center, configManager, updateController, controller,
                                     signalManager, dailyNoteManager, draftManager, noteManager, screens, windowManager,
                                     dialogs, workspace, keyMonitor, loginItemManager, userDefaults}};
};

} // namespace flitmark
