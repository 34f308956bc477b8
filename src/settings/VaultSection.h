// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <settings/SettingsSection.h>

namespace flitmark {

class Dialogs;

/// Where notes are saved.
class VaultSection final : public SettingsSection
{
    Q_OBJECT

public:
    /// The dialogs must outlive it.
    VaultSection(SettingsModel& model, Dialogs& dialogs);
    Q_DISABLE_COPY_MOVE(VaultSection)

private:
    void browseForFolder();

    Dialogs& m_dialogs;
};

} // namespace flitmark
