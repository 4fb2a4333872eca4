#include "platform/linux/X11EventSource.h"

#include "platform/RunLoop.h"

#include <xcb/screensaver.h>

namespace {
constexpr double kAnswerLifeSeconds = 0.2;
constexpr double kMillisecondsPerSecond = 1000.0;
}

X11EventSource::X11EventSource(const QByteArray& displayName)
{
    int screenNumber = 0;
    m_connection.reset(xcb_connect(displayName.isEmpty() ? nullptr : displayName.constData(), &screenNumber));
    if (xcb_connection_has_error(m_connection.get()) != 0) {
        m_connection.reset();
        return;
    }
    const xcb_screen_t* const screen = xcbScreen(m_connection.get(), screenNumber);
    const xcb_query_extension_reply_t* const extension =
        xcb_get_extension_data(m_connection.get(), &xcb_screensaver_id);
    if (screen && extension && extension->present) {
        m_root = screen->root;
        askServer();
    } else {
        m_connection.reset();
    }
}

double X11EventSource::secondsSinceLastEventType(EventType)
{
    const double now = RunLoop::main().monotonicNow();
    if (m_connection && (m_askedAt < 0 || now - m_askedAt > kAnswerLifeSeconds)) {
        askServer();
        m_askedAt = now;
    }
    return m_idleSeconds;
}

void X11EventSource::askServer()
{
    const auto cookie = xcb_screensaver_query_info(m_connection.get(), m_root);
    const XcbReply<xcb_screensaver_query_info_reply_t> reply(
        xcb_screensaver_query_info_reply(m_connection.get(), cookie, nullptr));
    if (reply)
        m_idleSeconds = double(reply->ms_since_user_input) / kMillisecondsPerSecond;
    else
        m_connection.reset();
}
