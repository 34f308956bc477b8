// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <platform/LoginService.h>

namespace flitmark {

/// Starts the program at login by an entry in the desktop's autostart folder. Only `registerProgram` writes it, so that
/// what the user changed in it, by the desktop's settings or by hand, stays.
class AutostartLoginService final : public LoginService
{
public:
    /// `configHome` is the folder of the user's settings, `program` what is to be started; both absolute.
    AutostartLoginService(const QString& configHome, QString program);

    Status status() const override;
    /// Also where the entry was switched off: the user has changed their mind.
    Outcome registerProgram() override;
    Outcome unregisterProgram() override;

private:
    QString m_folder;
    QString m_entry;
    QString m_program;
};

} // namespace flitmark
