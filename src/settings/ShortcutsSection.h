// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <settings/SettingsSection.h>

namespace flitmark {

class KeyMonitor;

/// The keys, to be read.
class ShortcutsSection final : public SettingsSection
{
    Q_OBJECT

public:
    /// The key monitor must outlive it.
    ShortcutsSection(SettingsModel& model, const KeyMonitor& keyMonitor);
    Q_DISABLE_COPY_MOVE(ShortcutsSection)

private:
    static QWidget* makeRow(const QString& key, const QString& text);
};

} // namespace flitmark
