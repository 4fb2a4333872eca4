#include "ui/WindowSystem.h"

#include <QGuiApplication>
#include <QWidget>

#include <cstdlib>
#include <memory>
#include <string_view>
#include <xcb/xcb.h>

namespace {
template <typename Reply>
using XcbReply = std::unique_ptr<Reply, decltype(&std::free)>;

xcb_atom_t atomNamed(xcb_connection_t* connection, std::string_view name)
{
    const auto cookie = xcb_intern_atom(connection, 1, uint16_t(name.size()), name.data());
    const XcbReply<xcb_intern_atom_reply_t> reply(
        xcb_intern_atom_reply(connection, cookie, nullptr), &std::free);
    return reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
}
}

bool WindowSystem::isWayland()
{
    return QGuiApplication::platformName().startsWith(QLatin1String("wayland"));
}

bool WindowSystem::isX11()
{
    return QGuiApplication::platformName() == QLatin1String("xcb");
}

bool WindowSystem::isPointerKnown()
{
    return qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") && qgetenv("XDG_SESSION_TYPE") != "wayland";
}

void WindowSystem::moveToCurrentWorkspace(const QWidget& window)
{
    const auto* const x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (!x11 || !x11->connection()) // Qt without a display has one without a connection.
        return;
    xcb_connection_t* const connection = x11->connection();
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
    const auto cookie = xcb_get_property(
        connection, 0, root, atomNamed(connection, "_NET_CURRENT_DESKTOP"), XCB_ATOM_CARDINAL, 0, 1);
    const XcbReply<xcb_get_property_reply_t> current(
        xcb_get_property_reply(connection, cookie, nullptr), &std::free);
    if (!current || xcb_get_property_value_length(current.get()) != sizeof(uint32_t))
        return;
    constexpr uint32_t kFromApplication = 1;
    xcb_client_message_event_t message {};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = xcb_window_t(window.winId());
    message.type = atomNamed(connection, "_NET_WM_DESKTOP");
    message.data.data32[0] = *static_cast<const uint32_t*>(xcb_get_property_value(current.get()));
    message.data.data32[1] = kFromApplication;
    xcb_send_event(connection, 0, root,
        XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
        reinterpret_cast<const char*>(&message));
}

void WindowSystem::restore(QWidget& window)
{
    window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
}
