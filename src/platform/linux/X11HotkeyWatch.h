// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <platform/Descriptor.h>
#include <platform/KeyMonitor.h>
#include <platform/linux/X11Input.h>

#include <QDeadlineTimer>

#include <functional>
#include <mutex>
#include <optional>

namespace flitmark {

/// Watches for the hotkey on an X11 display, over a connection of its own and on a thread of its own, so that nothing
/// the program does can keep the keyboard waiting.
///
/// The key is grabbed with Alt and every mix of the other modifiers and locks, in a way that has the server hold back
/// what is typed next. A press while one of the program's own windows has the keyboard goes on to that window. Any
/// other press is reported, and typing is held back until the window that takes it has the keyboard, for
/// `longestHold` at most. A mix that another program holds is watched without a grab, and reaches that program too.
class X11HotkeyWatch final
{
public:
    /// The range of the ids of the program's own windows.
    struct OwnWindows
    {
        quint32 base = 0;
        quint32 mask = 0;
    };
    /// Called on the watching thread.
    struct Handlers
    {
        std::function<void()> pressed;
        std::function<void(const KeyMonitor::State&)> stateChanged;
    };

    static constexpr int longestHold = 1000; // milliseconds

    X11HotkeyWatch(OwnWindows ownWindows, Handlers handlers);
    ~X11HotkeyWatch();
    Q_DISABLE_COPY_MOVE(X11HotkeyWatch)

    /// Watches until `stop`, or until the display is lost.
    void run();

    /// From any thread.
    void stop();
    /// Lets typing go on as soon as `window` has the keyboard; at once for none. From any thread.
    void giveTypingTo(KeyMonitor::WindowId window);

private:
    struct Wish
    {
        bool stop = false;
        std::optional<xcb_window_t> heir;
    };

    bool readKeyboard();
    void grab();
    KeyMonitor::State state() const;

    bool step();
    void wait();
    void wake();
    void handle(const xcb_generic_event_t& event);
    void handleGrabbedPress();
    void handleRaw(xcb_keycode_t key, bool isDown);
    void waitForFocus(xcb_window_t window);
    void letGo();
    void setHeld(bool isHeld);
    void listen();

    bool isOwn(xcb_window_t window) const;

    OwnWindows m_ownWindows;
    Handlers m_handlers;
    Descriptor m_wake;
    std::mutex m_mutex;
    Wish m_wish;

    // The watching thread's own.
    X11Input m_input;
    X11Keyboard m_keyboard;
    bool m_keyboardHasChanged = false;
    /// The mixes of modifiers with which another program holds the key.
    X11Input::Mixes m_refused;
    std::optional<KeyMonitor::State> m_state;
    uint32_t m_listened = 0;
    X11Keyboard::Keys m_down;
    bool m_isHeld = false;
    QDeadlineTimer m_letGoAt{QDeadlineTimer::Forever};
    xcb_window_t m_heir = XCB_NONE;
};

} // namespace flitmark
