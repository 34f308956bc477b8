// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace flitmark {

/// The user's answer to a check-in.
struct CheckinResponse
{
    enum class Kind { updatedFocus, completedAndNew, onTrack, snoozed, dismissed };

    Kind kind = Kind::dismissed;
    /// The new focus, for the first two kinds.
    QString focus = {};

    bool operator==(const CheckinResponse&) const = default;
};

} // namespace flitmark
