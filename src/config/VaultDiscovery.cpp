// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <config/VaultDiscovery.h>
#include <platform/Files.h>
#include <platform/Json.h>

#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace flitmark {

namespace {

/// The places where Obsidian's list may lie.
QStringList vaultListPlaces(const QString& home, const QString& configHome)
{
    return {
        home + QStringLiteral("/Library/Application Support/obsidian/obsidian.json"),
        configHome + QStringLiteral("/obsidian/obsidian.json"),
        home + QStringLiteral("/.var/app/md.obsidian.Obsidian/config/obsidian/obsidian.json"),
        home + QStringLiteral("/snap/obsidian/current/.config/obsidian/obsidian.json"),
        home + QStringLiteral("/snap/obsidian/common/.config/obsidian/obsidian.json"),
    };
}

QString lastComponent(const QString& path)
{
    return QFileInfo(QDir::cleanPath(path)).fileName();
}

/// By code points, unlike QString's own order, which is by UTF-16 units and puts U+FF5E after an emoji.
bool isBeforeByCodePoints(const DetectedVault& a, const DetectedVault& b)
{
    const QList<uint> left = a.name.toUcs4();
    const QList<uint> right = b.name.toUcs4();
    return std::lexicographical_compare(left.begin(), left.end(), right.begin(), right.end());
}

/// The vaults in the list at `path`; nothing when there is none or it makes no sense.
std::optional<QList<DetectedVault>> readVaultList(const QString& path)
{
    const QJsonValue entries =
        parseJsonObject(readFile(path).value_or(QByteArray())).value_or(QJsonObject()).value(u"vaults");
    if (!entries.isObject()) {
        return std::nullopt;
    }
    const QJsonObject listed = entries.toObject();
    QList<DetectedVault> vaults;
    for (const auto& entry : listed) {
        const QJsonValue vault = entry.toObject().value(u"path");
        if (vault.isString()) {
            vaults.append({QUuid::createUuid(), lastComponent(vault.toString()), vault.toString()});
        }
    }
    std::stable_sort(vaults.begin(), vaults.end(), isBeforeByCodePoints);
    return vaults;
}

} // namespace

std::optional<QList<DetectedVault>> detectObsidianVaults(const QString& home, const QString& configHome)
{
    std::optional<QList<DetectedVault>> found;
    for (const QString& place : vaultListPlaces(home, configHome)) {
        std::optional<QList<DetectedVault>> vaults = readVaultList(place);
        if (vaults && !vaults->isEmpty()) {
            return vaults;
        }
        found = found ? found : vaults;
    }
    return found;
}

} // namespace flitmark
