// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <platform/Directories.h>

#include <QDir>
#include <QFileInfo>

namespace flitmark {

namespace {

QString fromEnvironment(const char* name, const QString& fallback)
{
    const QString value = qEnvironmentVariable(name);
    return QDir::isAbsolutePath(value) ? QDir::cleanPath(value) : fallback;
}

} // namespace

Directories Directories::ofUser()
{
    const QString home = QDir::homePath();
    const QString configHome = fromEnvironment("XDG_CONFIG_HOME", home + QStringLiteral("/.config"));
    const QString library = home + QStringLiteral("/Library/Application Support");
    return {
        .home = home,
        .applicationSupport = QFileInfo(library).isDir() ? library : configHome,
        .cache = fromEnvironment("XDG_CACHE_HOME", home + QStringLiteral("/.cache")),
        .configHome = configHome,
    };
}

} // namespace flitmark
