// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <platform/KeyMonitor.h>
#include <platform/RunLoop.h>
#include <platform/linux/Desktop.h>
#include <platform/linux/PortalKeyMonitor.h>
#include <platform/linux/X11KeyMonitor.h>

#include <QGuiApplication>

#include <xcb/xcb.h>

namespace flitmark {

namespace {

/// A desktop without keys to watch.
class NoKeyMonitor final : public KeyMonitor
{
public:
    void start() override {}
    State state() const override { return {}; }
    void giveTypingTo(WindowId) override {}
};

/// Also when the program's own windows are X11 windows of a Wayland desktop: there the X server sees only the keys that
/// go to such windows.
bool isWaylandSession()
{
    return !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") || qgetenv("XDG_SESSION_TYPE") == "wayland";
}

} // namespace

std::unique_ptr<KeyMonitor> makeKeyMonitor(RunLoop& runLoop)
{
    if (isWaylandSession()) {
        return std::make_unique<PortalKeyMonitor>(runLoop);
    }
    // Without a display the interface may be there, and no connection behind it.
    if (const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
        x11 != nullptr && x11->connection() != nullptr) {
        const xcb_setup_t* setup = xcb_get_setup(x11->connection());
        return std::make_unique<X11KeyMonitor>(
            runLoop, X11HotkeyWatch::OwnWindows{.base = setup->resource_id_base, .mask = setup->resource_id_mask});
    }
    return std::make_unique<NoKeyMonitor>();
}

} // namespace flitmark
