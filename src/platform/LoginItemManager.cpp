// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <platform/LoginItemManager.h>

namespace flitmark {

namespace {

QString textOf(LoginService::Status status)
{
    switch (status) {
    case LoginService::Status::NotRegistered:
        return LoginItemManager::tr("Not registered");
    case LoginService::Status::Enabled:
        return LoginItemManager::tr("Enabled");
    case LoginService::Status::RequiresApproval:
        return LoginItemManager::tr("Requires approval in System Settings");
    case LoginService::Status::NotFound:
        return LoginItemManager::tr("App bundle not found");
    case LoginService::Status::Unknown:
        break;
    }
    return LoginItemManager::tr("Unknown");
}

} // namespace

LoginItemManager::LoginItemManager(LoginService& service)
    : m_service(service)
{
    refresh();
}

void LoginItemManager::refresh()
{
    const LoginService::Status status = m_service.status();
    m_isEnabled = status == LoginService::Status::Enabled;
    m_statusText = textOf(status);
    Q_EMIT changed();
}

bool LoginItemManager::setEnabled(bool enabled)
{
    const LoginService::Outcome outcome = enabled ? m_service.registerProgram() : m_service.unregisterProgram();
    m_lastError = outcome ? std::nullopt : std::make_optional(outcome.error());
    refresh();
    return outcome.has_value();
}

} // namespace flitmark
