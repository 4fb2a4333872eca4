#include "platform/linux/XScreenWatch.h"

#include "TestServer.h"

#include <QtCore/qtestsupport_core.h>

TEST(XScreenWatch, tellsOfEachTimeTheScreensGoDark)
{
    XvfbServer server;
    std::vector<bool> heard;
    const XScreenWatch watch([&](bool isDark) { heard.push_back(isDark); });
    const XcbConnectionRef connection(xcb_connect(nullptr, nullptr));
    for (const size_t times : {1U, 2U, 3U, 4U}) {
        xcb_force_screen_saver(connection.get(), times % 2); // Active, reset, ...
        xcb_flush(connection.get());
        ASSERT_TRUE(QTest::qWaitFor([&] { return heard.size() == times; }));
    }
    EXPECT_EQ(heard, (std::vector {true, false, true, false}));
    server.stop();
    QCoreApplication::processEvents();
}
