#include "platform/linux/XcbConnection.h"

xcb_screen_t* xcbScreen(xcb_connection_t* connection, int number)
{
    xcb_screen_iterator_t screens = xcb_setup_roots_iterator(xcb_get_setup(connection));
    while (screens.rem > 0 && number-- > 0)
        xcb_screen_next(&screens);
    return screens.rem > 0 ? screens.data : nullptr;
}
