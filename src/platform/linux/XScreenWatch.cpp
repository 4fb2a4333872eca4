#include "platform/linux/XScreenWatch.h"

#include <utility>
#include <xcb/screensaver.h>

XScreenWatch::XScreenWatch(Callback changed)
    : m_changed(std::move(changed))
{
    XcbServer server = connectToXServer();
    const xcb_query_extension_reply_t* const screenSaver = screenSaverOf(server);
    if (!screenSaver)
        return;
    m_eventType = uint8_t(screenSaver->first_event + XCB_SCREENSAVER_NOTIFY);
    m_connection = std::move(server.connection);
    xcb_screensaver_select_input(m_connection.get(), server.screen->root, XCB_SCREENSAVER_EVENT_NOTIFY_MASK);
    xcb_flush(m_connection.get());
    m_notifier = whenReadable(*m_connection, [this] { readEvents(); });
}

void XScreenWatch::readEvents()
{
    while (const XcbReply<xcb_generic_event_t> event {xcb_poll_for_event(m_connection.get())}) {
        if (typeOf(*event) != m_eventType)
            continue;
        const uint8_t state = reinterpret_cast<const xcb_screensaver_notify_event_t*>(event.get())->state;
        if (state == XCB_SCREENSAVER_STATE_ON || state == XCB_SCREENSAVER_STATE_OFF)
            m_changed(state == XCB_SCREENSAVER_STATE_ON);
    }
    if (xcb_connection_has_error(m_connection.get()) != 0)
        m_notifier->setEnabled(false);
}
