// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <tl/expected.hpp>

namespace flitmark {

/// What says where a day's note is.
enum class DailyNoteRule {
    /// It is `Daily/yyyy/yyyy-MM-dd.md` in the vault.
    FixedPlace,
    /// The settings of the plugin "periodic notes".
    PeriodicNotes,
    /// Those of Obsidian's own daily notes.
    DailyNotes,
};

/// What the settings of a vault in Obsidian say of its daily notes.
struct DailyNoteSettings
{
    /// The fixed place where they say nothing; the rest is empty then.
    DailyNoteRule rule = DailyNoteRule::FixedPlace;
    /// The file that says it.
    QString file;
    /// As written, or Obsidian's default.
    QString folder;
    QString format;
};

/// Why settings can't be used.
struct DailyNoteProblem
{
    QString file;
    QString message;
};

/// Reads what the settings of the vault at `vault` say. A file that isn't there is all defaults; one that is no
/// ordinary file, is larger than 1 MB, or is not the JSON it should be, is a problem.
tl::expected<DailyNoteSettings, DailyNoteProblem> readDailyNoteSettings(const QString& vault);

} // namespace flitmark
