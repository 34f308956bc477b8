// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <platform/LoginService.h>

#include <QObject>

#include <optional>

namespace flitmark {

/// Whether the program starts at login, in words, and the switch for it. Always shows the desktop's own view. Main
/// thread only.
class LoginItemManager final : public QObject
{
    Q_OBJECT

public:
    /// Reads the status. The service must outlive it.
    explicit LoginItemManager(LoginService& service);
    Q_DISABLE_COPY_MOVE(LoginItemManager)

    bool isEnabled() const { return m_isEnabled; }
    const QString& statusText() const { return m_statusText; }
    /// Why the last change failed, in the desktop's words; none after a success.
    const std::optional<QString>& lastError() const { return m_lastError; }

    /// Reads the status again.
    void refresh();
    /// Registers or unregisters the program, then reads the status again. False where that failed; `lastError` then
    /// says why.
    bool setEnabled(bool enabled);

Q_SIGNALS:
    /// Any of the properties may have changed.
    void changed();

private:
    LoginService& m_service;
    bool m_isEnabled = false;
    QString m_statusText;
    std::optional<QString> m_lastError;
};

} // namespace flitmark
