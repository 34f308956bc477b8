// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <platform/SharedServices.h>
#include <platform/Workspace.h>

#include <QDesktopServices>

namespace flitmark {

namespace {

class DesktopWorkspace final : public Workspace
{
public:
    bool open(const QUrl& url) override { return url.isValid() && QDesktopServices::openUrl(url); }
};

} // namespace

Workspace& Workspace::shared()
{
    return SharedServices::get<Workspace>([] { return std::make_unique<DesktopWorkspace>(); });
}

} // namespace flitmark
