// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <platform/KeyMonitor.h>
#include <platform/linux/X11HotkeyWatch.h>

#include <thread>

namespace flitmark {

class RunLoop;

/// The hotkey of an X11 desktop, brought from the watching thread to the main thread.
class X11KeyMonitor final : public KeyMonitor
{
    Q_OBJECT

public:
    X11KeyMonitor(RunLoop& runLoop, X11HotkeyWatch::OwnWindows ownWindows);
    ~X11KeyMonitor() override;
    Q_DISABLE_COPY_MOVE(X11KeyMonitor)

    void start() override;
    State state() const override { return m_state; }
    void giveTypingTo(WindowId window) override;

private:
    X11HotkeyWatch::Handlers handlers();
    void setState(const State& state);

    RunLoop& m_runLoop;
    State m_state{.status = Status::Waiting};
    bool m_isStarted = false;
    X11HotkeyWatch m_watch;
    std::thread m_thread;
};

} // namespace flitmark
