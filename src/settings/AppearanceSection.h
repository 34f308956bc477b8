// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <settings/SettingsSection.h>

namespace flitmark {

/// The palettes, of which one is chosen.
class AppearanceSection final : public SettingsSection
{
    Q_OBJECT

public:
    explicit AppearanceSection(SettingsModel& model);
    Q_DISABLE_COPY_MOVE(AppearanceSection)
};

} // namespace flitmark
