// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>

namespace flitmark {

struct Directories;
class KeyMonitor;
class RunLoop;
class Screens;
class SystemSound;
class Updater;
class UserDefaults;
class WindowManager;
class Workspace;

// What the program expects of a desktop, as Linux gives it. What is handed over must outlive what is made. Main thread
// only, with the application object there.
std::unique_ptr<KeyMonitor> makeKeyMonitor(RunLoop& runLoop);
std::unique_ptr<Screens> makeScreens();
/// The desktop's event sounds; our own two are put into the cache, where the sound server finds them.
std::unique_ptr<SystemSound> makeSystemSound(const Directories& directories);
std::unique_ptr<Updater> makeUpdater(UserDefaults& userDefaults, RunLoop& runLoop);
std::unique_ptr<UserDefaults> makeUserDefaults(const Directories& directories);
std::unique_ptr<WindowManager> makeWindowManager();
std::unique_ptr<Workspace> makeWorkspace();

} // namespace flitmark
