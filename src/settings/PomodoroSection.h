// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <settings/SettingsSection.h>

namespace flitmark {

/// The Pomodoro timer, the coach and the reminders of the daily review.
class PomodoroSection final : public SettingsSection
{
    Q_OBJECT

public:
    explicit PomodoroSection(SettingsModel& model);
    Q_DISABLE_COPY_MOVE(PomodoroSection)

private:
    void addInterval();
    void addCheckinWindow();
    void addDetection();
    void addCoachStyle();
    void addCoachPrompt();
    void addReminders();
};

} // namespace flitmark
