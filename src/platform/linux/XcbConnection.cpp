#include "platform/linux/XcbConnection.h"

#include <utility>
#include <xcb/screensaver.h>

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

const xcb_query_extension_reply_t* screenSaverOf(const XcbServer& server)
{
    const xcb_query_extension_reply_t* const extension =
        server.screen ? xcb_get_extension_data(server.connection.get(), &xcb_screensaver_id) : nullptr;
    return extension && extension->present ? extension : nullptr;
}

std::unique_ptr<QSocketNotifier> whenReadable(xcb_connection_t& connection, std::function<void()> read)
{
    auto notifier =
        std::make_unique<QSocketNotifier>(xcb_get_file_descriptor(&connection), QSocketNotifier::Read);
    QObject::connect(notifier.get(), &QSocketNotifier::activated, notifier.get(), std::move(read));
    return notifier;
}
