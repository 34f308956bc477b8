// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <platform/Workspace.h>

#include <QList>
#include <QStringList>

namespace flitmark {

/// Remembers what it was asked to open.
class TestWorkspace final : public Workspace
{
public:
    bool open(const QUrl& url) override
    {
        opened.append(url);
        return !missingSchemes.contains(url.scheme());
    }

    QList<QUrl> opened;
    /// The schemes that no application is registered for.
    QStringList missingSchemes;
};

} // namespace flitmark
