// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <platform/Workspace.h>

#include <QList>

namespace flitmark {

/// Remembers what it was asked to open.
class TestWorkspace final : public Workspace
{
public:
    bool open(const QUrl& url) override
    {
        opened.append(url);
        return true;
    }

    QList<QUrl> opened;
};

} // namespace flitmark
