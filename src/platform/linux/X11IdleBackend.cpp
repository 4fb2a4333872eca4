#include "platform/linux/X11IdleBackend.h"

#include "platform/RunLoop.h"

#include <utility>
#include <xcb/screensaver.h>
#include <xcb/xcbext.h>

namespace {
constexpr double kMillisecondsPerSecond = 1000.0;
}

X11IdleBackend::X11IdleBackend()
{
    XcbServer server = connectToXServer();
    if (!screenSaverOf(server))
        return;
    m_root = server.screen->root;
    m_connection = std::move(server.connection);
    m_notifier = whenReadable(*m_connection, [this] { read(); });
}

X11IdleBackend::~X11IdleBackend() = default;

void X11IdleBackend::ask(Answer answer)
{
    if (m_answer)
        read(); // Sending may have read it already, and then the socket does not tell.
    if (!m_connection || m_answer)
        return answer(std::nullopt);
    m_answer = std::move(answer);
    m_question = xcb_screensaver_query_info(m_connection.get(), m_root).sequence;
    xcb_flush(m_connection.get());
}

void X11IdleBackend::read()
{
    // Some events go to everybody (a change of the keyboard's layout) and would pile up.
    while (const XcbReply<xcb_generic_event_t> event {xcb_poll_for_event(m_connection.get())}) { }
    if (m_answer)
        readReply();
    if (m_connection && xcb_connection_has_error(m_connection.get()) != 0)
        drop();
}

void X11IdleBackend::readReply()
{
    void* memory = nullptr;
    xcb_generic_error_t* errorMemory = nullptr;
    if (xcb_poll_for_reply(m_connection.get(), m_question, &memory, &errorMemory) == 0)
        return;
    const XcbReply<xcb_screensaver_query_info_reply_t> reply(
        static_cast<xcb_screensaver_query_info_reply_t*>(memory));
    const XcbReply<xcb_generic_error_t> error(errorMemory);
    std::optional<double> lastInputAt;
    if (reply)
        lastInputAt =
            RunLoop::main().monotonicNow() - double(reply->ms_since_user_input) / kMillisecondsPerSecond;
    std::exchange(m_answer, {})(lastInputAt);
}

void X11IdleBackend::drop()
{
    m_notifier->setEnabled(false);
    m_notifier.release()->deleteLater(); // It may be what called.
    m_connection.reset();
    if (m_answer)
        std::exchange(m_answer, {})(std::nullopt);
}
