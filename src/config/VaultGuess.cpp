// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <config/VaultGuess.h>

#include <QCoreApplication>
#include <QFileInfo>
#include <QStringList>

namespace flitmark {

QString inferDefaultVaultPath(const QString& home)
{
    static const QStringList candidates = {
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

QString vaultPathProblem(const QString& path)
{
    const auto tr = [](const char* text) { return QCoreApplication::translate("VaultPath", text); };
    if (path.isEmpty()) {
        return tr("Choose the folder of your vault.");
    }
    if (!path.startsWith(u'/')) {
        return tr("This is not a full path: it has to begin with a slash.");
    }
    const QFileInfo info(path);
    if (!info.exists()) {
        return tr("There is no folder at this path.");
    }
    return info.isDir() ? QString() : tr("This is a file, not a folder.");
}

} // namespace flitmark
