// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <core/Links.h>
#include <core/Text.h>
#include <core/VaultPathResolver.h>

#include <QDir>

#include <algorithm>

namespace flitmark {

tl::expected<QString, VaultPathResolverError>
VaultPathResolver::saveDirectory(const QString& vaultURL, const QString& subfolder, const QString& fallbackSubfolder)
{
    const auto fallback = sanitizedPathComponents(fallbackSubfolder);
    if (!fallback) {
        return tl::unexpected(fallback.error());
    }
    const QString base = QDir::cleanPath(vaultURL);
    const auto folderInVault = [&base](const QStringList& components) {
        return QDir::cleanPath(base + u'/' + components.join(u'/'));
    };
    const QString candidate = folderInVault(sanitizedPathComponents(subfolder).value_or(*fallback));
    return isContained(candidate, base) ? candidate : folderInVault(*fallback);
}

tl::expected<QStringList, VaultPathResolverError> VaultPathResolver::sanitizedPathComponents(const QString& subfolder)
{
    const tl::unexpected rejected(VaultPathResolverError::invalidFallbackSubfolder);
    const QString trimmed = trimSpacesAndNewlines(subfolder).toString();
    if (trimmed.isEmpty() || trimmed.startsWith(u'/') || trimmed.startsWith(u'~') || trimmed.contains(QChar::Null)) {
        return rejected;
    }
    const QStringList components = trimmed.split(u'/', Qt::SkipEmptyParts);
    const bool isAnyBad = std::any_of(components.begin(), components.end(), [](const QString& component) {
        return component == u"." || component == u".." || component.contains(u':');
    });
    if (components.isEmpty() || isAnyBad) {
        return rejected;
    }
    return components;
}

bool VaultPathResolver::isContained(const QString& candidate, const QString& base)
{
    const auto realCandidate = resolveLinks(candidate);
    auto realBase = resolveLinks(base);
    if (!realCandidate || !realBase) {
        return false;
    }
    if (*realCandidate == *realBase) {
        return true;
    }
    if (!realBase->endsWith(u'/')) {
        *realBase += u'/';
    }
    return realCandidate->startsWith(*realBase);
}

} // namespace flitmark
