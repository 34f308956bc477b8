// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <platform/linux/X11Keyboard.h>
#include <platform/linux/XcbReply.h>

#include <QtGlobal>

#include <xcb/xinput.h>

namespace flitmark {

/// A connection of one's own to the X server, for what concerns keys and who gets them. What it is told to do it sends
/// at the next `flush` or question.
class X11Input final
{
public:
    /// Mixes of modifiers, by their bits.
    using Mixes = std::bitset<256>;

    X11Input() = default;
    ~X11Input();
    Q_DISABLE_COPY_MOVE(X11Input)

    /// Connects to the display. False where there is none, or one that cannot tell what is needed.
    bool open();
    bool isLost() const;
    int descriptor() const;
    void flush();

    /// The next event, without waiting; none when there is none.
    XcbReply<xcb_generic_event_t> nextEvent();
    /// The event as one about a raw key press or release; null for all others.
    const xcb_input_raw_key_press_event_t* rawKey(const xcb_generic_event_t& event) const;

    std::optional<X11Keyboard> readKeyboard() const;
    /// Grabs the hotkey with every mix that holds Option, so that its press freezes the keyboard. Gives the mixes that
    /// another program has.
    Mixes grab(const X11Keyboard& keyboard);
    void ungrab(const X11Keyboard& keyboard);

    /// Thaws the keyboard: the press goes on to the window it was meant for.
    void replay();
    /// Thaws the keyboard: the press is used up, what came after it goes to the window that has the keyboard.
    void letGo();

    /// Selects raw key events of the whole keyboard, by the bits of the input extension; 0 for none.
    void listen(uint32_t events);
    void tellOfFocus(xcb_window_t window, bool isWanted);

    xcb_window_t focus() const;
    X11Keyboard::Keys keysDown() const;
    uint8_t lockedModifiers() const;

private:
    bool initialize();

    xcb_connection_t* m_connection = nullptr;
    xcb_window_t m_root = XCB_NONE;
    uint8_t m_opcode = 0;
};

} // namespace flitmark
