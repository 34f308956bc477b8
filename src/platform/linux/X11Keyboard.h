// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <xcb/xcb.h>

#include <array>
#include <bitset>
#include <optional>

namespace flitmark {

/// What the X server's keyboard says of the keys the hotkey is made of.
struct X11Keyboard
{
    using Keys = std::bitset<256>;

    /// The key where a US keyboard has its N, whatever the layout writes with it.
    xcb_keycode_t hotkey = 0;
    /// The modifier bit of the Alt keys.
    uint8_t option = 0;
    /// The modifier bits each key holds while it is down.
    std::array<uint8_t, 256> modifiers = {};

    bool operator==(const X11Keyboard&) const = default;

    /// The modifier bits of these keys together.
    uint8_t modifiersOf(const Keys& keys) const;

    /// The keyboard as it is now; none when the server does not answer. The connection must know the XKB extension.
    static std::optional<X11Keyboard> read(xcb_connection_t* connection);
};

} // namespace flitmark
