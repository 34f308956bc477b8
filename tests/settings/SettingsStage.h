// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

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

/// The services with everything the settings work with besides. The model has not loaded yet.
struct SettingsStage : TestServices
{
    /// Starts with the defaults.
    SettingsStage() { config.load(); }

    AutostartLoginService loginService{folder.path(), QStringLiteral("/bin/sh")};
    LoginItemManager loginItemManager{loginService};
    FakeUpdater updater;
    AppUpdateController updateController{updater};
    SettingsModel model{services()};

    SettingsModel::Services services()
    {
        return {config, signalManager, controller, loginItemManager, updateController, notifications};
    }
    const AppConfig& settings() const { return config.config(); }
    const CoachConfig& coach() const { return signalManager.coachConfig(); }
};

} // namespace flitmark
