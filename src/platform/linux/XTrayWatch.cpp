#include "platform/linux/XTrayWatch.h"

#include <QByteArray>

#include <utility>

XTrayWatch::XTrayWatch(Callback appeared)
    : m_appeared(std::move(appeared))
{
    XcbServer server = connectToXServer();
    if (!server.screen)
        return;
    m_connection = std::move(server.connection);
    xcb_connection_t* const connection = m_connection.get();
    const QByteArray name = "_NET_SYSTEM_TRAY_S" + QByteArray::number(server.screenNumber);
    const auto cookie = xcb_intern_atom(connection, 0, uint16_t(name.size()), name.constData());
    const XcbReply<xcb_intern_atom_reply_t> atom(xcb_intern_atom_reply(connection, cookie, nullptr));
    if (!atom)
        return;
    m_selection = atom->atom;

    // Listening begins before the question, so that a tray that starts in between is not missed.
    const uint32_t eventMask = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    xcb_change_window_attributes(connection, server.screen->root, XCB_CW_EVENT_MASK, &eventMask);
    m_notifier = whenReadable(*connection, [this] { readEvents(); });
    askForOwner();
}

void XTrayWatch::readEvents()
{
    bool somebodyCame = false;
    while (const XcbReply<xcb_generic_event_t> event {xcb_poll_for_event(m_connection.get())})
        somebodyCame = somebodyCame || typeOf(*event) == XCB_CLIENT_MESSAGE;
    if (xcb_connection_has_error(m_connection.get()) != 0) {
        m_notifier->setEnabled(false);
        return;
    }
    if (!somebodyCame || m_isTrayThere)
        return;
    // Any manager of a selection announces itself with such a message; the owner tells whether it was the
    // tray.
    askForOwner();
    if (m_isTrayThere && m_appeared)
        m_appeared();
}

void XTrayWatch::askForOwner()
{
    xcb_connection_t* const connection = m_connection.get();
    const auto cookie = xcb_get_selection_owner(connection, m_selection);
    const XcbReply<xcb_get_selection_owner_reply_t> reply(
        xcb_get_selection_owner_reply(connection, cookie, nullptr));
    m_isTrayThere = reply && reply->owner != XCB_WINDOW_NONE;
}
