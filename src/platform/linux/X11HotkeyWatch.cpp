// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <platform/KeyMonitor.h>
#include <platform/linux/X11HotkeyWatch.h>

#include <poll.h>
#include <sys/eventfd.h>

#include <array>
#include <utility>

namespace flitmark {

X11HotkeyWatch::X11HotkeyWatch(OwnWindows ownWindows, Handlers handlers)
    : m_ownWindows(ownWindows)
    , m_handlers(std::move(handlers))
    , m_wake(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK))
{
}

X11HotkeyWatch::~X11HotkeyWatch() = default;

void X11HotkeyWatch::run()
{
    if (m_input.open() && readKeyboard()) {
        while (!m_input.isLost()) {
            if (step()) {
                continue;
            }
            wait();
            if (const std::lock_guard lock(m_mutex); m_wish.stop) {
                return;
            }
        }
    }
    m_handlers.stateChanged({.reason = KeyMonitor::tr("The X server offers no way to watch for a key.")});
}

void X11HotkeyWatch::stop()
{
    {
        const std::lock_guard lock(m_mutex);
        m_wish.stop = true;
    }
    wake();
}

void X11HotkeyWatch::giveTypingTo(KeyMonitor::WindowId window)
{
    {
        const std::lock_guard lock(m_mutex);
        m_wish.heir = static_cast<xcb_window_t>(window);
    }
    wake();
}

void X11HotkeyWatch::wake()
{
    const quint64 one = 1;
    std::ignore = ::write(m_wake.get(), &one, sizeof(one));
}

/// Finds the key anew and grabs it. Called again whenever the layout has changed.
bool X11HotkeyWatch::readKeyboard()
{
    m_keyboardHasChanged = false;
    const std::optional<X11Keyboard> keyboard = m_input.readKeyboard();
    if (!keyboard) {
        return false;
    }
    if (m_keyboard.hotkey != 0 &&
        std::pair(m_keyboard.hotkey, m_keyboard.option) != std::pair(keyboard->hotkey, keyboard->option)) {
        m_input.ungrab(m_keyboard);
    }
    m_keyboard = *keyboard;
    grab();
    return true;
}

void X11HotkeyWatch::grab()
{
    m_refused = m_input.grab(m_keyboard);
    listen();
    if (const KeyMonitor::State now = state(); m_state != now) {
        m_state = now;
        m_handlers.stateChanged(now);
    }
}

KeyMonitor::State X11HotkeyWatch::state() const
{
    KeyMonitor::State state{.status = KeyMonitor::Status::Working};
    if (m_refused.test(m_keyboard.option)) {
        state.reason = KeyMonitor::tr("Another program uses Alt+N too, and gets the key as well.");
    } else if (m_refused.any()) {
        state.reason =
            KeyMonitor::tr("Another program uses Alt+N with further keys, such as Shift, and gets those as well.");
    }
    return state;
}

/// Does one thing that is due. False when there is none.
bool X11HotkeyWatch::step()
{
    if (const auto event = m_input.nextEvent()) {
        handle(*event);
        return true;
    }
    std::optional<xcb_window_t> heir;
    {
        const std::lock_guard lock(m_mutex);
        heir = std::exchange(m_wish.heir, {});
    }
    if (heir && !m_letGoAt.isForever()) {
        waitForFocus(*heir);
        return true;
    }
    if (m_letGoAt.hasExpired()) {
        letGo();
        return true;
    }
    // Last, because a change of layout is told by several events.
    if (m_keyboardHasChanged) {
        readKeyboard();
        return true;
    }
    return false;
}

void X11HotkeyWatch::wait()
{
    m_input.flush();
    std::array<pollfd, 2> ready = {{{m_input.descriptor(), POLLIN, 0}, {m_wake.get(), POLLIN, 0}}};
    ::poll(ready.data(), ready.size(), static_cast<int>(m_letGoAt.remainingTime()));
    quint64 count = 0;
    std::ignore = ::read(m_wake.get(), &count, sizeof(count));
}

void X11HotkeyWatch::handle(const xcb_generic_event_t& event)
{
    // Events that another program made up have one bit more and are none of these.
    switch (event.response_type) {
    case XCB_KEY_PRESS:
        handleGrabbedPress();
        break;
    case XCB_FOCUS_IN:
        if (m_heir != XCB_NONE && m_input.focus() == m_heir) {
            letGo();
        }
        break;
    case XCB_MAPPING_NOTIFY:
        m_keyboardHasChanged = true;
        break;
    case XCB_GE_GENERIC:
        if (const auto* raw = m_input.rawKey(event)) {
            handleRaw(static_cast<xcb_keycode_t>(raw->detail), raw->event_type == XCB_INPUT_RAW_KEY_PRESS);
        }
        break;
    default:
        break;
    }
}

void X11HotkeyWatch::handleGrabbedPress()
{
    if (m_isHeld) {
        // A repeat, which is nobody's.
        letGo();
    } else if (isOwn(m_input.focus())) {
        m_input.replay();
    } else {
        m_letGoAt.setRemainingTime(longestHold);
        setHeld(true);
        m_handlers.pressed();
    }
}

void X11HotkeyWatch::handleRaw(xcb_keycode_t key, bool isDown)
{
    m_down.set(key, isDown);
    if (key != m_keyboard.hotkey) {
        return;
    }
    if (!isDown) {
        setHeld(false);
        return;
    }
    // Not the server's word for the modifiers: it is that of now, and they may have been let go since.
    const auto mix = static_cast<uint8_t>(m_keyboard.modifiersOf(m_down) | m_input.lockedModifiers());
    if (!m_isHeld && m_refused.test(mix)) {
        setHeld(true);
        if (!isOwn(m_input.focus())) {
            m_handlers.pressed();
        }
        // The other program may have gone.
        grab();
    }
}

void X11HotkeyWatch::waitForFocus(xcb_window_t window)
{
    if (window != XCB_NONE) {
        m_heir = window;
        m_input.tellOfFocus(window, true);
    }
    if (window == XCB_NONE || m_input.focus() == window) {
        letGo();
    }
}

/// Ends the grab, so that what was typed since goes to the window that has the keyboard, also while the key is down.
void X11HotkeyWatch::letGo()
{
    m_letGoAt = QDeadlineTimer(QDeadlineTimer::Forever);
    if (m_heir != XCB_NONE) {
        m_input.tellOfFocus(std::exchange(m_heir, XCB_NONE), false);
    }
    m_input.letGo();
    // The key may have been released before anybody listened.
    if (m_isHeld && !m_input.keysDown().test(m_keyboard.hotkey)) {
        setHeld(false);
    }
}

void X11HotkeyWatch::setHeld(bool isHeld)
{
    m_isHeld = isHeld;
    listen();
}

/// Listens to all keys of the keyboard while there is a mix that cannot be grabbed, and until a held key is released.
void X11HotkeyWatch::listen()
{
    const uint32_t release = XCB_INPUT_XI_EVENT_MASK_RAW_KEY_RELEASE;
    const uint32_t wanted = m_refused.any() ? XCB_INPUT_XI_EVENT_MASK_RAW_KEY_PRESS | release : m_isHeld ? release : 0U;
    if (std::exchange(m_listened, wanted) == wanted) {
        return;
    }
    m_input.listen(wanted);
    if (m_refused.any()) {
        m_down = m_input.keysDown();
    }
}

bool X11HotkeyWatch::isOwn(xcb_window_t window) const
{
    return window > XCB_INPUT_FOCUS_POINTER_ROOT && (window & ~m_ownWindows.mask) == m_ownWindows.base;
}

} // namespace flitmark
