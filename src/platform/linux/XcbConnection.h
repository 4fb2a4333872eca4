#pragma once

#include <QSocketNotifier>

#include <cstdint>
#include <cstdlib>
#include <functional>
#include <memory>
#include <xcb/xcb.h>

struct XcbDisconnect {
    void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
};
/// A connection to an X server of the program's own, beside the one that Qt may have.
using XcbConnectionRef = std::unique_ptr<xcb_connection_t, XcbDisconnect>;

struct XcbFree {
    void operator()(void* memory) const { std::free(memory); }
};
/// A reply, an event or an error, which xcb allocates with malloc().
template <typename T>
using XcbReply = std::unique_ptr<T, XcbFree>;

/// The X server that DISPLAY names.
struct XcbServer {
    XcbConnectionRef connection; ///< never null, but of no use where the screen is missing
    int screenNumber = 0;
    const xcb_screen_t* screen = nullptr; ///< that one's; null where no server answers
};
[[nodiscard]] XcbServer connectToXServer();
/// Null where there is no screen or the server lacks the extension.
[[nodiscard]] const xcb_query_extension_reply_t* screenSaverOf(const XcbServer& server);

/// Calls back from the main loop whenever the server has sent something.
[[nodiscard]] std::unique_ptr<QSocketNotifier> whenReadable(
    xcb_connection_t& connection, std::function<void()> read);

/// What kind of event it is, whoever sent it.
[[nodiscard]] inline uint8_t typeOf(const xcb_generic_event_t& event)
{
    constexpr uint8_t kType = 0x7F; // Without the mark of what programs sent.
    return event.response_type & kType;
}
