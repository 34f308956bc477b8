// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <config/VaultGuess.h>

#include <QCoreApplication>
#include <QFileInfo>
#include <QStringList>

namespace flitmark {

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(VaultPath)
};

} // namespace

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
    if (path.isEmpty()) {
        return Texts::tr("Choose the folder of your vault.");
    }
    if (!path.startsWith(u'/')) {
        return Texts::tr("This is not a full path: it has to begin with a slash.");
    }
    const QFileInfo info(path);
    if (!info.exists()) {
        return Texts::tr("There is no folder at this path.");
    }
    return info.isDir() ? QString() : Texts::tr("This is a file, not a folder.");
}

} // namespace flitmark
