// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QStringList>

#include <tl/expected.hpp>

namespace flitmark {

enum class VaultPathResolverError {
    /// The fallback subfolder is no name of a folder inside a vault.
    invalidFallbackSubfolder,
};

/// Finds the folder for notes inside a vault. Computes paths and reads links; creates nothing. Any thread.
class VaultPathResolver
{
public:
    VaultPathResolver() = delete;

    /// The absolute path of `subfolder` in the vault at `vaultURL`, an absolute path; links keep their names in it.
    ///
    /// A subfolder that is empty, absolute, home-relative or holds "." or "..", a colon or a NUL yields
    /// `fallbackSubfolder` instead, and so does one that leads out of the vault through a link, be the link's target
    /// there or not. The fallback itself must be a proper name, or the call fails; where it leads is up to the user: a
    /// link out of the vault in its place was put there on purpose, and there is no further folder to turn to.
    static tl::expected<QString, VaultPathResolverError>
    saveDirectory(const QString& vaultURL, const QString& subfolder, const QString& fallbackSubfolder);

    /// Whether `candidate` lies in the folder `base`, or is it, once all links in both are followed.
    static bool isContained(const QString& candidate, const QString& base);

private:
    static tl::expected<QStringList, VaultPathResolverError> sanitizedPathComponents(const QString& subfolder);
};

} // namespace flitmark
