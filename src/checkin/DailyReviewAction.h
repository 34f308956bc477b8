// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

namespace flitmark {

/// The user's answer to a daily review reminder.
enum class DailyReviewAction { openDailyTab, openInObsidian, snooze, dismissed };

} // namespace flitmark
