// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringView>

#include <optional>

namespace flitmark {

// A time of day as users write it: hours and minutes in ASCII digits, signs allowed ("07:30", "7:5"), with a colon
// between them; more colons than that are passed over. Spaces around it are the caller's to trim.

/// The minutes from midnight to `time`, its hours and minutes of any size. Nothing when it can't be read, or is beyond
/// 64 bits.
std::optional<qint64> minutesFromMidnight(QStringView time);

/// The minute of the day (0 to 1439) that `time` names; nothing when it can't be read or no day has it.
std::optional<int> minuteOfDay(QStringView time);

} // namespace flitmark
