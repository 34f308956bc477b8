// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <settings/SettingsSection.h>

namespace flitmark {

/// Starting at login, and updates. What is changed here takes effect at once.
class AppSection final : public SettingsSection
{
    Q_OBJECT

public:
    explicit AppSection(SettingsModel& model);
    Q_DISABLE_COPY_MOVE(AppSection)

private:
    SwitchRow* makeLoginRow();
    SwitchRow* makeUpdatesRow();
};

} // namespace flitmark
