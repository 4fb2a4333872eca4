#include "platform/linux/XcbConnection.h"

XcbServer connectToXServer()
{
    XcbServer server;
    server.connection.reset(xcb_connect(nullptr, &server.screenNumber));
    if (xcb_connection_has_error(server.connection.get()) != 0)
        return server;
    xcb_screen_iterator_t screens = xcb_setup_roots_iterator(xcb_get_setup(server.connection.get()));
    for (int number = server.screenNumber; screens.rem > 0 && number > 0; --number)
        xcb_screen_next(&screens);
    server.screen = screens.rem > 0 ? screens.data : nullptr;
    return server;
}
