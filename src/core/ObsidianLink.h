// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QUrl>

#include <optional>

namespace flitmark {

/// The link that opens the note at `notePath` in Obsidian, in the vault at `vaultPath` (both absolute, in any form;
/// neither has to exist). Nothing when the names can't be written in a link.
std::optional<QUrl> obsidianLink(QString vaultPath, QString notePath);

} // namespace flitmark
