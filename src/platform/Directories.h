// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace flitmark {

/// The folders of the user that the program works with: absolute paths without a trailing slash.
struct Directories
{
    QString home;
    /// Where applications keep their data; ours lies in a folder "Flitmark" below it.
    QString applicationSupport;
    QString cache;
    /// Where other programs keep their settings: `$XDG_CONFIG_HOME`, else `~/.config`.
    QString configHome = {};

    /// The folders of the current user, from the environment. `~/Library/Application Support` is taken where it
    /// exists, else `$XDG_CONFIG_HOME`, else `~/.config`. Relative values of XDG variables are ignored.
    static Directories ofUser();

    /// The program's own folder, `Flitmark` below `applicationSupport`.
    QString ownFolder() const { return applicationSupport + QStringLiteral("/Flitmark"); }
};

} // namespace flitmark
