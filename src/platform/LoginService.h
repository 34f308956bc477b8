// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <tl/expected.hpp>

namespace flitmark {

/// Starts this program when the user logs in.
class LoginService
{
public:
    enum class Status { NotRegistered, Enabled, RequiresApproval, NotFound, Unknown };
    /// Done, or the desktop's own words on why not.
    using Outcome = tl::expected<void, QString>;

    LoginService() = default;
    virtual ~LoginService() = default;
    Q_DISABLE_COPY_MOVE(LoginService)

    virtual Status status() const = 0;
    virtual Outcome registerProgram() = 0;
    virtual Outcome unregisterProgram() = 0;
};

} // namespace flitmark
