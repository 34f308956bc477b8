// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace flitmark {

/// What a desktop entry in the autostart folder says, as far as it matters here.
struct AutostartEntry
{
    /// What it starts: an absolute path, or a name to be looked for in `$PATH`.
    QString program;
    /// The user switched it off in the desktop's own settings.
    bool isSwitchedOff = false;

    bool operator==(const AutostartEntry&) const = default;
};

/// The entry that starts `program`, an absolute path of any characters, at login.
QByteArray autostartEntryText(const QString& program);

/// Reads an entry, whoever wrote it. None for a text that is no desktop entry or starts nothing.
std::optional<AutostartEntry> parseAutostartEntry(const QByteArray& text);

} // namespace flitmark
