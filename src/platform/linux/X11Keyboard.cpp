// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <platform/linux/X11Keyboard.h>
#include <platform/linux/XcbReply.h>
#include <platform/linux/XcbXkb.h>

#include <QByteArray>

#include <algorithm>
#include <string_view>

namespace flitmark {

namespace {

constexpr int modifierCount = 8;

/// The key's place, fourth row from the space bar's and sixth from the left, as keyboard descriptions call it.
constexpr std::string_view hotkeyName = "AB06";
/// That key on the keyboards of Linux, for a server that names no keys.
constexpr xcb_keycode_t usualHotkey = 57;

constexpr bool isAlt(xcb_keysym_t symbol)
{
    constexpr xcb_keysym_t leftAlt = 0xffe9;
    constexpr xcb_keysym_t rightAlt = 0xffea;
    return symbol == leftAlt || symbol == rightAlt;
}

xcb_keycode_t hotkeyOf(const xcb_xkb_get_names_reply_t* reply)
{
    if (reply == nullptr) {
        return usualHotkey;
    }
    xcb_xkb_get_names_value_list_t list = {};
    xcb_xkb_get_names_value_list_unpack(xcb_xkb_get_names_value_list(reply), reply->nTypes, reply->indicators,
                                        reply->virtualMods, reply->groupNames, reply->nKeys, reply->nKeyAliases,
                                        reply->nRadioGroups, reply->which, &list);
    for (int i = 0; i < reply->nKeys; ++i) {
        const char* name = list.keyNames[i].name;
        if (std::string_view(name, qstrnlen(name, sizeof(list.keyNames[i].name))) == hotkeyName) {
            return static_cast<xcb_keycode_t>(reply->firstKey + i);
        }
    }
    return usualHotkey;
}

} // namespace

uint8_t X11Keyboard::modifiersOf(const Keys& keys) const
{
    uint8_t bits = 0;
    for (size_t key = 0; key < keys.size(); ++key) {
        bits |= keys.test(key) ? modifiers.at(key) : uint8_t{0};
    }
    return bits;
}

std::optional<X11Keyboard> X11Keyboard::read(xcb_connection_t* connection)
{
    const xcb_setup_t* setup = xcb_get_setup(connection);
    const xcb_keycode_t first = setup->min_keycode;
    const auto count = static_cast<uint8_t>(setup->max_keycode - first + 1);
    const auto namesAsked = xcb_xkb_get_names(connection, XCB_XKB_ID_USE_CORE_KBD, XCB_XKB_NAME_DETAIL_KEY_NAMES);
    const auto modifiersAsked = xcb_get_modifier_mapping(connection);
    const auto symbolsAsked = xcb_get_keyboard_mapping(connection, first, count);
    const XcbReply<xcb_xkb_get_names_reply_t> names(xcb_xkb_get_names_reply(connection, namesAsked, nullptr));
    const XcbReply<xcb_get_modifier_mapping_reply_t> mapping(
        xcb_get_modifier_mapping_reply(connection, modifiersAsked, nullptr));
    const XcbReply<xcb_get_keyboard_mapping_reply_t> symbols(
        xcb_get_keyboard_mapping_reply(connection, symbolsAsked, nullptr));
    if (!mapping || !symbols) {
        return {};
    }

    X11Keyboard keyboard{.hotkey = hotkeyOf(names.get())};
    const xcb_keycode_t* keys = xcb_get_modifier_mapping_keycodes(mapping.get());
    const xcb_keysym_t* written = xcb_get_keyboard_mapping_keysyms(symbols.get());
    const int perKey = symbols->keysyms_per_keycode;
    for (int i = 0; i < modifierCount * mapping->keycodes_per_modifier; ++i) {
        const auto bit = static_cast<uint8_t>(1U << (i / mapping->keycodes_per_modifier));
        if (keys[i] < first) {
            continue;
        }
        keyboard.modifiers.at(keys[i]) |= bit;
        const xcb_keysym_t* ofKey = written + (ptrdiff_t{keys[i] - first} * perKey);
        if (keyboard.option == 0 && std::any_of(ofKey, ofKey + perKey, isAlt)) {
            keyboard.option = bit;
        }
    }
    if (keyboard.option == 0) {
        keyboard.option = XCB_MOD_MASK_1;
    }
    return keyboard;
}

} // namespace flitmark
