// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <checkin/CheckinWindowController.h>
#include <platform/AppUpdateController.h>
#include <platform/LoginItemManager.h>
#include <settings/SettingsModel.h>

// What takes effect at once: starting at login, updates, the test of a check-in.

namespace flitmark {

bool SettingsModel::launchAtLogin() const
{
    return m_services.loginItemManager.isEnabled();
}

void SettingsModel::setLaunchAtLogin(bool isWanted)
{
    // The manager announces how it went, also when nothing has changed: the switch springs back then.
    m_services.loginItemManager.setEnabled(isWanted);
}

QString SettingsModel::loginStatusText() const
{
    return m_services.loginItemManager.statusText();
}

QString SettingsModel::loginError() const
{
    return m_services.loginItemManager.lastError().value_or(QString());
}

bool SettingsModel::automaticallyChecksForUpdates() const
{
    return m_services.updateController.updater().automaticallyChecksForUpdates();
}

void SettingsModel::setAutomaticallyChecksForUpdates(bool checks)
{
    m_services.updateController.updater().setAutomaticallyChecksForUpdates(checks);
    Q_EMIT changed();
}

void SettingsModel::checkForUpdates() const
{
    m_services.updateController.updater().checkForUpdates();
}

bool SettingsModel::areUpdatesOffered() const
{
    return m_services.updateController.updater().state().status != Updater::Status::NotOffered;
}

QString SettingsModel::updateResult() const
{
    const Updater::State state = m_services.updateController.updater().state();
    switch (state.status) {
    case Updater::Status::Checking:
        return tr("Checking for updates...");
    case Updater::Status::UpToDate:
        return tr("Flitmark is up to date.");
    case Updater::Status::Available:
        return tr("Version %1 is available.").arg(state.version);
    case Updater::Status::Failed:
        return state.reason;
    case Updater::Status::Idle:
    case Updater::Status::NotOffered:
        break;
    }
    return {};
}

void SettingsModel::testCheckin()
{
    m_services.checkinController.showCheckin();
}

} // namespace flitmark
