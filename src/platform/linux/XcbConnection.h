#pragma once

#include <cstdlib>
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
XcbServer connectToXServer();
