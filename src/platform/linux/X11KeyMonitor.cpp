// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <platform/RunLoop.h>
#include <platform/linux/X11KeyMonitor.h>

#include <utility>

namespace flitmark {

X11KeyMonitor::X11KeyMonitor(RunLoop& runLoop, X11HotkeyWatch::OwnWindows ownWindows)
    : m_runLoop(runLoop)
    , m_watch(ownWindows, handlers())
{
}

X11KeyMonitor::~X11KeyMonitor()
{
    if (m_thread.joinable()) {
        m_watch.stop();
        m_thread.join();
    }
}

void X11KeyMonitor::start()
{
    if (!std::exchange(m_isStarted, true)) {
        m_runLoop.after(startDelay, this, [this] { m_thread = std::thread([this] { m_watch.run(); }); });
    }
}

void X11KeyMonitor::giveTypingTo(WindowId window)
{
    m_watch.giveTypingTo(window);
}

X11HotkeyWatch::Handlers X11KeyMonitor::handlers()
{
    return {
        .pressed = [this] { m_runLoop.async(this, [this] { Q_EMIT hotkeyPressed(); }); },
        .stateChanged = [this](const State& state) { m_runLoop.async(this, [this, state] { setState(state); }); },
    };
}

void X11KeyMonitor::setState(const State& state)
{
    m_state = state;
    Q_EMIT stateChanged();
}

} // namespace flitmark
