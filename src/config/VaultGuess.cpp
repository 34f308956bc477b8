// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <config/VaultGuess.h>

#include <QFileInfo>

namespace flitmark {

QString inferDefaultVaultPath(const QString& home)
{
    static const QString candidates[] = {
        QStringLiteral("/Documents/Obsidian"),
        QStringLiteral("/Documents/Obsidian Vault"),
        QStringLiteral("/Obsidian"),
        QStringLiteral("/Vault"),
        QStringLiteral("/Notes"),
    };
    for (const QString& candidate : candidates) {
        if (QFileInfo::exists(home + candidate)) {
            return home + candidate;
        }
    }
    return home + QStringLiteral("/Documents");
}

} // namespace flitmark
