// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <app/ScreenshotMode.h>
#include <platform/Directories.h>

namespace flitmark {

class AppUpdateController;
class CheckinWindowController;
class ConfigManager;
class DailyNoteManager;
class Dialogs;
class DraftManager;
class KeyMonitor;
class LoginItemManager;
class NoteManager;
class NotificationCenter;
class RunLoop;
class Screens;
class SignalManager;
class UserDefaults;
class WindowManager;
class Workspace;

/// What the application delegate works with, in the order in which it comes to life.
struct AppServices
{
    Directories directories;
    RunLoop& runLoop;
    NotificationCenter& notificationCenter;
    ConfigManager& configManager;
    AppUpdateController& updateController;
    CheckinWindowController& checkinWindowController;
    SignalManager& signalManager;
    DailyNoteManager& dailyNoteManager;
    DraftManager& draftManager;
    NoteManager& noteManager;
    Screens& screens;
    WindowManager& windowManager;
    Dialogs& dialogs;
    Workspace& workspace;
    KeyMonitor& keyMonitor;
    LoginItemManager& loginItemManager;
    UserDefaults& userDefaults;
    ScreenshotMode screenshotMode = {};

    /// The long-lived services of the process, each made now unless it is there already.
    static AppServices shared();
};

} // namespace flitmark
