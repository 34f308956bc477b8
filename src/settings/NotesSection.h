// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <settings/SettingsSection.h>

namespace flitmark {

/// How notes are saved, and how the note panel stands on the desktop.
class NotesSection final : public SettingsSection
{
    Q_OBJECT

public:
    explicit NotesSection(SettingsModel& model);
    Q_DISABLE_COPY_MOVE(NotesSection)

private:
    void addWindowOpacity();
};

} // namespace flitmark
