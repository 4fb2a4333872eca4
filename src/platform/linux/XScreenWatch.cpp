#include "platform/linux/XScreenWatch.h"

#include <utility>
#include <xcb/screensaver.h>

namespace {
constexpr uint8_t kEventTypeMask = 0x7F; ///< without the mark of what programs sent
}

XScreenWatch::XScreenWatch(Callback changed)
    : m_changed(std::move(changed))
{
    XcbServer server = connectToXServer();
    m_connection = std::move(server.connection);
    xcb_connection_t* const connection = m_connection.get();
    const xcb_query_extension_reply_t* const extension =
        server.screen ? xcb_get_extension_data(connection, &xcb_screensaver_id) : nullptr;
    if (!extension || !extension->present)
        return;
    m_eventType = uint8_t(extension->first_event + XCB_SCREENSAVER_NOTIFY);
    xcb_screensaver_select_input(connection, server.screen->root, XCB_SCREENSAVER_EVENT_NOTIFY_MASK);
    xcb_flush(connection);
    m_notifier =
        std::make_unique<QSocketNotifier>(xcb_get_file_descriptor(connection), QSocketNotifier::Read);
    QObject::connect(
        m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(), [this] { readEvents(); });
}

void XScreenWatch::readEvents()
{
    while (const XcbReply<xcb_generic_event_t> event {xcb_poll_for_event(m_connection.get())}) {
        if ((event->response_type & kEventTypeMask) != m_eventType)
            continue;
        const uint8_t state = reinterpret_cast<const xcb_screensaver_notify_event_t*>(event.get())->state;
        if (state == XCB_SCREENSAVER_STATE_ON || state == XCB_SCREENSAVER_STATE_OFF)
            m_changed(state == XCB_SCREENSAVER_STATE_ON);
    }
    if (xcb_connection_has_error(m_connection.get()) != 0)
        m_notifier->setEnabled(false);
}
