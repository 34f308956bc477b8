// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QUrl>

#include <optional>

namespace flitmark {

/// The link that opens the note at `notePath` in Obsidian, in the vault at `vaultPath` (both absolute, in any form;
/// neither has to exist). Nothing when the names can't be written in a link.
std::optional<QUrl> obsidianLink(const QString& vaultPath, const QString& notePath);

/// The link that opens the note that a link in another note names.
std::optional<QUrl> obsidianNoteLink(const QString& vaultPath, const QString& name);

/// The link that has Obsidian make today's note in the vault at `vaultPath` by its own settings.
std::optional<QUrl> obsidianDailyLink(const QString& vaultPath);

/// The link that has Obsidian make the note `note`, a path in that vault.
std::optional<QUrl> obsidianNewNoteLink(const QString& vaultPath, const QString& note);

} // namespace flitmark
