// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QUrl>
#include <QtGlobal>

namespace flitmark {

/// Hands links, files and folders to the desktop.
class Workspace
{
public:
    Workspace() = default;
    virtual ~Workspace() = default;
    Q_DISABLE_COPY_MOVE(Workspace)

    /// Opens `url` with the application that the desktop has for it. False when there is none or it could not start.
    virtual bool open(const QUrl& url) = 0;
};

} // namespace flitmark
