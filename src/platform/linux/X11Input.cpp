// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <platform/linux/X11Input.h>
#include <platform/linux/XcbXkb.h>

#include <array>
#include <utility>
#include <vector>

namespace flitmark {

X11Input::~X11Input()
{
    if (m_connection != nullptr) {
        xcb_disconnect(m_connection);
    }
}

bool X11Input::open()
{
    int screen = 0;
    m_connection = xcb_connect(nullptr, &screen);
    if (isLost()) {
        return false;
    }
    for (auto roots = xcb_setup_roots_iterator(xcb_get_setup(m_connection)); roots.rem > 0; xcb_screen_next(&roots)) {
        if (screen-- == 0) {
            m_root = roots.data->root;
        }
    }
    return initialize();
}

bool X11Input::initialize()
{
    xcb_prefetch_extension_data(m_connection, &xcb_xkb_id);
    xcb_prefetch_extension_data(m_connection, &xcb_input_id);
    const xcb_query_extension_reply_t* keyboard = xcb_get_extension_data(m_connection, &xcb_xkb_id);
    const xcb_query_extension_reply_t* input = xcb_get_extension_data(m_connection, &xcb_input_id);
    if (keyboard == nullptr || keyboard->present == 0 || input == nullptr || input->present == 0) {
        return false;
    }
    m_opcode = input->major_opcode;
    const auto keyboardAsked = xcb_xkb_use_extension(m_connection, 1, 0);
    // From 2.1 on raw events come whoever holds a grab.
    const auto inputAsked = xcb_input_xi_query_version(m_connection, 2, 1);
    const XcbReply<xcb_xkb_use_extension_reply_t> keyboardUsed(
        xcb_xkb_use_extension_reply(m_connection, keyboardAsked, nullptr));
    const XcbReply<xcb_input_xi_query_version_reply_t> inputUsed(
        xcb_input_xi_query_version_reply(m_connection, inputAsked, nullptr));
    return keyboardUsed && keyboardUsed->supported != 0 && inputUsed &&
           std::pair(inputUsed->major_version, inputUsed->minor_version) >= std::pair<uint16_t, uint16_t>(2, 1);
}

bool X11Input::isLost() const
{
    return xcb_connection_has_error(m_connection) != 0;
}

int X11Input::descriptor() const
{
    return xcb_get_file_descriptor(m_connection);
}

void X11Input::flush()
{
    xcb_flush(m_connection);
}

XcbReply<xcb_generic_event_t> X11Input::nextEvent()
{
    return XcbReply<xcb_generic_event_t>(xcb_poll_for_event(m_connection));
}

const xcb_input_raw_key_press_event_t* X11Input::rawKey(const xcb_generic_event_t& event) const
{
    const auto& raw = reinterpret_cast<const xcb_input_raw_key_press_event_t&>(event);
    const bool isRawKey = event.response_type == XCB_GE_GENERIC && raw.extension == m_opcode &&
                          (raw.event_type == XCB_INPUT_RAW_KEY_PRESS || raw.event_type == XCB_INPUT_RAW_KEY_RELEASE);
    return isRawKey ? &raw : nullptr;
}

std::optional<X11Keyboard> X11Input::readKeyboard() const
{
    return X11Keyboard::read(m_connection);
}

X11Input::Mixes X11Input::grab(const X11Keyboard& keyboard)
{
    Mixes refused;
    std::vector<std::pair<size_t, xcb_void_cookie_t>> asked;
    for (size_t mix = 0; mix < refused.size(); ++mix) {
        if ((mix & keyboard.option) != 0) {
            asked.emplace_back(mix, xcb_grab_key_checked(m_connection, 0, m_root, static_cast<uint16_t>(mix),
                                                         keyboard.hotkey, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_SYNC));
        }
    }
    for (const auto& [mix, cookie] : asked) {
        const XcbReply<xcb_generic_error_t> error(xcb_request_check(m_connection, cookie));
        refused.set(mix, error != nullptr);
    }
    return refused;
}

void X11Input::ungrab(const X11Keyboard& keyboard)
{
    xcb_ungrab_key(m_connection, keyboard.hotkey, m_root, XCB_MOD_MASK_ANY);
}

void X11Input::replay()
{
    xcb_allow_events(m_connection, XCB_ALLOW_REPLAY_KEYBOARD, XCB_CURRENT_TIME);
}

void X11Input::letGo()
{
    // Not only a thaw: the grab would last until the key is released, and take what is typed meanwhile.
    xcb_ungrab_keyboard(m_connection, XCB_CURRENT_TIME);
}

void X11Input::listen(uint32_t events)
{
    struct
    {
        xcb_input_event_mask_t head{XCB_INPUT_DEVICE_ALL_MASTER, 1};
        uint32_t events = 0;
    } selected{.events = events};
    xcb_input_xi_select_events(m_connection, m_root, 1, &selected.head);
}

void X11Input::tellOfFocus(xcb_window_t window, bool isWanted)
{
    const uint32_t events = isWanted ? XCB_EVENT_MASK_FOCUS_CHANGE : XCB_EVENT_MASK_NO_EVENT;
    xcb_change_window_attributes(m_connection, window, XCB_CW_EVENT_MASK, &events);
}

xcb_window_t X11Input::focus() const
{
    const XcbReply<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
    return reply ? reply->focus : xcb_window_t{XCB_NONE};
}

X11Keyboard::Keys X11Input::keysDown() const
{
    X11Keyboard::Keys keys;
    const XcbReply<xcb_query_keymap_reply_t> reply(
        xcb_query_keymap_reply(m_connection, xcb_query_keymap(m_connection), nullptr));
    for (size_t key = 0; reply && key < keys.size(); ++key) {
        keys.set(key, (reply->keys[key / 8] >> (key % 8) & 1) != 0);
    }
    return keys;
}

uint8_t X11Input::lockedModifiers() const
{
    const XcbReply<xcb_xkb_get_state_reply_t> reply(
        xcb_xkb_get_state_reply(m_connection, xcb_xkb_get_state(m_connection, XCB_XKB_ID_USE_CORE_KBD), nullptr));
    return reply ? reply->lockedMods : 0;
}

} // namespace flitmark
