// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <platform/WindowManager.h>
#include <platform/linux/Desktop.h>
#include <platform/linux/XcbReply.h>

#include <QGuiApplication>
#include <QWindow>

#include <xcb/shape.h>
#include <xcb/xcb.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>

namespace flitmark {

namespace {

/// The window manager of an X11 desktop, spoken to by the properties and messages of the Extended Window Manager Hints.
class X11WindowManager final : public WindowManager
{
public:
    explicit X11WindowManager(xcb_connection_t* connection)
        : m_connection(connection)
        , m_root(xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root)
    {
        // Asked for all at once, then read: one round trip instead of many.
        std::array<xcb_intern_atom_cookie_t, atomNames.size()> cookies{};
        for (size_t i = 0; i < atomNames.size(); ++i) {
            cookies.at(i) =
                xcb_intern_atom(connection, 0, static_cast<uint16_t>(atomNames.at(i).size()), atomNames.at(i).data());
        }
        for (size_t i = 0; i < atomNames.size(); ++i) {
            const XcbReply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(connection, cookies.at(i), nullptr));
            m_atoms.at(i) = reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
        }
    }

    bool isCompositing() const override
    {
        const auto cookie = xcb_get_selection_owner(m_connection, atom(CompositingManager));
        const XcbReply<xcb_get_selection_owner_reply_t> reply(
            xcb_get_selection_owner_reply(m_connection, cookie, nullptr));
        return reply && reply->owner != XCB_NONE;
    }

    void makeCompanion(QWindow& window) override
    {
        const auto id = static_cast<xcb_window_t>(window.winId());
        constexpr uint32_t allDesktops = 0xFFFFFFFF;
        xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, id, atom(WmDesktop), XCB_ATOM_CARDINAL, 32, 1,
                            &allDesktops);
        // Some keep every dialog in the task bar; those that arrange tiles look for one anywhere among the types.
        replaceAtoms(id, WindowType, std::array{atom(TypeNormal), atom(TypeDialog)});
        // Qt adds its own states to these when it shows the window. Sticky is for those that misread the desktop.
        replaceAtoms(id, WmState, std::array{atom(SkipTaskbar), atom(SkipPager), atom(Sticky)});
        if (window.flags().testFlag(Qt::WindowDoesNotAcceptFocus)) {
            refuseFocus(id);
        }
        if (window.isVisible()) {
            send(id, WmDesktop, {allDesktops, applicationSource});
            send(id, WmState, {addState, atom(SkipTaskbar), atom(SkipPager), applicationSource});
        }
        xcb_flush(m_connection);
    }

    void keepAbove(QWindow& upper, QWindow& lower) override
    {
        // Qt's own transient parents would not do: it tells of them when it shows the upper window, which is there
        // already.
        const auto upperId = static_cast<xcb_window_t>(upper.winId());
        const auto lowerId = static_cast<xcb_window_t>(lower.winId());
        xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, upperId, XCB_ATOM_WM_TRANSIENT_FOR, XCB_ATOM_WINDOW,
                            32, 1, &lowerId);
        // The lower one may have been laid above it by then, and not every window manager puts that right.
        upper.raise();
        xcb_flush(m_connection);
        // Written again with the same window it would be no news to most, which forgot it with the hiding.
        QObject::disconnect(&lower, &QWindow::visibleChanged, &upper, nullptr);
        QObject::connect(
            &lower, &QWindow::visibleChanged, &upper,
            [this, upperId] {
                xcb_delete_property(m_connection, upperId, XCB_ATOM_WM_TRANSIENT_FOR);
                xcb_flush(m_connection);
            },
            Qt::SingleShotConnection);
    }

    void setInputArea(QWindow& window, const QRect& area) override
    {
        const double scale = window.devicePixelRatio();
        const xcb_rectangle_t pixels{static_cast<int16_t>(std::lround(area.x() * scale)),
                                     static_cast<int16_t>(std::lround(area.y() * scale)),
                                     static_cast<uint16_t>(std::lround(area.width() * scale)),
                                     static_cast<uint16_t>(std::lround(area.height() * scale))};
        xcb_shape_rectangles(m_connection, XCB_SHAPE_SO_SET, XCB_SHAPE_SK_INPUT, XCB_CLIP_ORDERING_UNSORTED,
                             static_cast<xcb_window_t>(window.winId()), 0, 0, 1, &pixels);
        xcb_flush(m_connection);
    }

    void answerActivation(QWindow& window, const QString& token) override
    {
        const QByteArray id = token.toUtf8();
        const auto windowId = static_cast<xcb_window_t>(window.winId());
        xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, windowId, atom(StartupId), atom(Utf8String), 8,
                            static_cast<uint32_t>(id.size()), id.constData());
        // The message is longer than an event: it goes in pieces of twenty bytes, the last one with its NUL.
        const QByteArray message = "remove: ID=\"" + QByteArray(id).replace('\\', "\\\\").replace('"', "\\\"") + "\"";
        xcb_client_message_event_t event{};
        event.response_type = XCB_CLIENT_MESSAGE;
        event.format = 8;
        event.window = windowId;
        event.type = atom(StartupInfoBegin);
        for (qsizetype start = 0; start <= message.size(); start += qsizetype{sizeof event.data.data8}) {
            const QByteArray piece = message.mid(start, sizeof event.data.data8);
            std::fill(std::begin(event.data.data8), std::end(event.data.data8), uint8_t{0});
            std::copy(piece.begin(), piece.end(), std::begin(event.data.data8));
            xcb_send_event(m_connection, 0, m_root, XCB_EVENT_MASK_PROPERTY_CHANGE,
                           reinterpret_cast<const char*>(&event));
            event.type = atom(StartupInfo);
        }
        xcb_flush(m_connection);
    }

    WindowId activeWindow() const override
    {
        const auto cookie = xcb_get_property(m_connection, 0, m_root, atom(ActiveWindow), XCB_ATOM_WINDOW, 0, 1);
        const XcbReply<xcb_get_property_reply_t> reply(xcb_get_property_reply(m_connection, cookie, nullptr));
        if (!reply || xcb_get_property_value_length(reply.get()) < static_cast<int>(sizeof(xcb_window_t))) {
            return 0;
        }
        return *static_cast<const xcb_window_t*>(xcb_get_property_value(reply.get()));
    }

    void activate(WindowId window) override
    {
        // As a pager would: the user's own act asks for it, whatever window had the keyboard last.
        constexpr uint32_t pagerSource = 2;
        send(static_cast<xcb_window_t>(window), ActiveWindow, {pagerSource, XCB_CURRENT_TIME, XCB_NONE});
        xcb_flush(m_connection);
    }

private:
    enum Atom {
        CompositingManager,
        WmDesktop,
        WmState,
        SkipTaskbar,
        SkipPager,
        ActiveWindow,
        WindowType,
        TypeNormal,
        TypeDialog,
        Sticky,
        Protocols,
        TakeFocus,
        StartupId,
        StartupInfoBegin,
        StartupInfo,
        Utf8String
    };
    static constexpr std::array<std::string_view, 16> atomNames{"_NET_WM_CM_S0",
                                                                "_NET_WM_DESKTOP",
                                                                "_NET_WM_STATE",
                                                                "_NET_WM_STATE_SKIP_TASKBAR",
                                                                "_NET_WM_STATE_SKIP_PAGER",
                                                                "_NET_ACTIVE_WINDOW",
                                                                "_NET_WM_WINDOW_TYPE",
                                                                "_NET_WM_WINDOW_TYPE_NORMAL",
                                                                "_NET_WM_WINDOW_TYPE_DIALOG",
                                                                "_NET_WM_STATE_STICKY",
                                                                "WM_PROTOCOLS",
                                                                "WM_TAKE_FOCUS",
                                                                "_NET_STARTUP_ID",
                                                                "_NET_STARTUP_INFO_BEGIN",
                                                                "_NET_STARTUP_INFO",
                                                                "UTF8_STRING"};
    static constexpr uint32_t applicationSource = 1;
    static constexpr uint32_t addState = 1;

    xcb_atom_t atom(Atom name) const { return m_atoms.at(name); }

    template<size_t count>
    void replaceAtoms(xcb_window_t window, Atom property, const std::array<xcb_atom_t, count>& atoms)
    {
        xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, window, atom(property), XCB_ATOM_ATOM, 32, count,
                            atoms.data());
    }

    /// Takes back Qt's promise that the window takes the focus when it is asked to.
    void refuseFocus(xcb_window_t window)
    {
        constexpr uint32_t most = 32;
        const auto cookie = xcb_get_property(m_connection, 0, window, atom(Protocols), XCB_ATOM_ATOM, 0, most);
        const XcbReply<xcb_get_property_reply_t> reply(xcb_get_property_reply(m_connection, cookie, nullptr));
        if (!reply) {
            return;
        }
        auto* first = static_cast<xcb_atom_t*>(xcb_get_property_value(reply.get()));
        auto* end = first + xcb_get_property_value_length(reply.get()) / static_cast<int>(sizeof(xcb_atom_t));
        end = std::remove(first, end, atom(TakeFocus));
        xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, window, atom(Protocols), XCB_ATOM_ATOM, 32,
                            static_cast<uint32_t>(end - first), first);
    }

    void send(xcb_window_t window, Atom message, const std::array<uint32_t, 5>& data)
    {
        xcb_client_message_event_t event{};
        event.response_type = XCB_CLIENT_MESSAGE;
        event.format = 32;
        event.window = window;
        event.type = atom(message);
        std::copy(data.begin(), data.end(), std::begin(event.data.data32));
        xcb_send_event(m_connection, 0, m_root,
                       XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                       reinterpret_cast<const char*>(&event));
    }

    xcb_connection_t* m_connection;
    xcb_window_t m_root;
    std::array<xcb_atom_t, atomNames.size()> m_atoms{};
};

/// A desktop that offers none of it: Wayland, or no display at all.
class PlainWindowManager final : public WindowManager
{
public:
    bool isCompositing() const override { return true; }
    void makeCompanion(QWindow&) override {}
    void keepAbove(QWindow& upper, QWindow& lower) override { upper.setTransientParent(&lower); }
    void setInputArea(QWindow&, const QRect&) override {}
    void answerActivation(QWindow&, const QString&) override {}
    WindowId activeWindow() const override { return 0; }
    void activate(WindowId) override {}
};

} // namespace

std::unique_ptr<WindowManager> makeWindowManager()
{
    // Without a display the interface may be there, and no connection behind it.
    if (const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
        x11 != nullptr && x11->connection() != nullptr) {
        return std::make_unique<X11WindowManager>(x11->connection());
    }
    return std::make_unique<PlainWindowManager>();
}

} // namespace flitmark
