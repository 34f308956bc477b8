// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <config/VaultDiscovery.h>
#include <platform/Files.h>

#include <QDir>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace flitmark {

namespace {

/// The first of the places where Obsidian's list may lie that holds a file; empty when none does.
QString findVaultList(const QString& home, const QString& configHome)
{
    const QStringList places = {
        home + QStringLiteral("/Library/Application Support/obsidian/obsidian.json"),
        configHome + QStringLiteral("/obsidian/obsidian.json"),
        home + QStringLiteral("/.var/app/md.obsidian.Obsidian/config/obsidian/obsidian.json"),
        home + QStringLiteral("/snap/obsidian/current/.config/obsidian/obsidian.json"),
        home + QStringLiteral("/snap/obsidian/common/.config/obsidian/obsidian.json"),
    };
    const auto found =
        std::find_if(places.begin(), places.end(), [](const QString& place) { return QFileInfo::exists(place); });
    return found != places.end() ? *found : QString();
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

} // namespace

std::optional<QList<DetectedVault>> detectObsidianVaults(const QString& home, const QString& configHome)
{
    const QString listPath = findVaultList(home, configHome);
    if (listPath.isEmpty()) {
        return std::nullopt;
    }
    const QJsonValue entries =
        QJsonDocument::fromJson(readFile(listPath).value_or(QByteArray())).object().value(u"vaults");
    if (!entries.isObject()) {
        return std::nullopt;
    }
    const QJsonObject listed = entries.toObject();
    QList<DetectedVault> vaults;
    for (const auto& entry : listed) {
        const QJsonValue path = entry.toObject().value(u"path");
        if (path.isString()) {
            vaults.append({QUuid::createUuid(), lastComponent(path.toString()), path.toString()});
        }
    }
    std::stable_sort(vaults.begin(), vaults.end(), isBeforeByCodePoints);
    return vaults;
}

} // namespace flitmark
