#include "platform/linux/DisplayServer.h"

#include "XvfbServer.h"

#include <gtest/gtest.h>

TEST(DisplayServer, isWhereAServerAnswersUnlessTheUserChose)
{
    const QByteArray before = qgetenv("QT_QPA_PLATFORM");
    XvfbServer server;
    const QByteArray deadDisplay = qgetenv("DISPLAY");
    const XvfbServer live;
    const QByteArray display = qgetenv("DISPLAY");
    server.stop();
    const struct {
        QByteArray chosen;
        QByteArray x11;
        QByteArray wayland; // "/dev/null" is something that exists.
        QByteArray expected;
        const char* reason;
    } kTestCases[] = {
        {"", display, "/dev/null", "xcb", ""},
        {"", deadDisplay, "/dev/null", "wayland", ""},
        {"", deadDisplay, "", "", "The display %1 does not answer."},
        {"", "", "/dev/no such", "", "The display /dev/no such does not answer."},
        {"", "", "", "", "There is no display: neither DISPLAY nor WAYLAND_DISPLAY is set."},
        {"offscreen", display, "", "offscreen", ""},
    };
    for (const auto& [chosen, x11, wayland, expected, reason] : kTestCases) {
        qputenv("QT_QPA_PLATFORM", chosen);
        qputenv("DISPLAY", x11);
        qputenv("WAYLAND_DISPLAY", wayland);
        EXPECT_EQ(chooseDisplayServer(),
            QString::fromLatin1(reason).replace(QStringLiteral("%1"), QString::fromLatin1(x11)));
        EXPECT_EQ(qgetenv("QT_QPA_PLATFORM"), expected);
    }
    qunsetenv("WAYLAND_DISPLAY");
    qputenv("QT_QPA_PLATFORM", before);
}
