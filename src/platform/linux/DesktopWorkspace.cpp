// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <platform/Workspace.h>
#include <platform/linux/Desktop.h>

#include <QDesktopServices>

namespace flitmark {

namespace {

class DesktopWorkspace final : public Workspace
{
public:
    bool open(const QUrl& url) override { return url.isValid() && QDesktopServices::openUrl(url); }
};

} // namespace

std::unique_ptr<Workspace> makeWorkspace()
{
    return std::make_unique<DesktopWorkspace>();
}

} // namespace flitmark
