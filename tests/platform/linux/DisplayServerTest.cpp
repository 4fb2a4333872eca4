#include "platform/linux/DisplayServer.h"

#include "TestBus.h"

TEST(DisplayServer, isWhereAServerAnswersUnlessTheUserChose)
{
    const QByteArray before = qgetenv("QT_QPA_PLATFORM");
    const XvfbServer server;
    const QByteArray display = qgetenv("DISPLAY");
    const QByteArray kTestCases[][5] = {
        // QT_QPA_PLATFORM, DISPLAY, WAYLAND_DISPLAY; the first one then, and what is wrong
        {"", display, "/dev/null", "xcb", ""}, // "/dev/null" is something that exists.
        {"", ":47110", "/dev/null", "wayland", ""},
        {"", ":47110", "", "", "The display :47110 does not answer."},
        {"", ":47110", "/dev/no such", "", "The display /dev/no such does not answer."},
        {"", "", "", "", "There is no display: neither DISPLAY nor WAYLAND_DISPLAY is set."},
        {"offscreen", display, "", "offscreen", ""},
    };
    for (const auto& [chosen, x11, wayland, expected, reason] : kTestCases) {
        qputenv("QT_QPA_PLATFORM", chosen);
        qputenv("DISPLAY", x11);
        qputenv("WAYLAND_DISPLAY", wayland);
        EXPECT_EQ(chooseDisplayServer(), reason);
        EXPECT_EQ(qgetenv("QT_QPA_PLATFORM"), expected);
    }
    qunsetenv("WAYLAND_DISPLAY");
    qputenv("QT_QPA_PLATFORM", before);
}
