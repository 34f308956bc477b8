// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QList>
#include <QString>
#include <QUuid>

#include <optional>

namespace flitmark {

/// A vault that Obsidian knows.
struct DetectedVault
{
    /// Made anew at every detection; tells rows of one list apart.
    QUuid id;
    QString name;
    /// The vault's absolute path as Obsidian stores it. The folder may be gone.
    QString path;
};

/// The vaults in Obsidian's own list, sorted by name in the order of Unicode code points; nothing when there is no list
/// that makes sense. The list is looked for in the user's Library below `home`, then in `configHome`, then where
/// Flatpak and Snap keep it; the first with a vault in it counts. Read only, and silent.
std::optional<QList<DetectedVault>> detectObsidianVaults(const QString& home, const QString& configHome);

} // namespace flitmark
