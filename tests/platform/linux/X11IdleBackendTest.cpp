#include "platform/linux/X11IdleBackend.h"

#include "TestBus.h"
#include "fakes/TestPlatform.h"
#include "platform/linux/IdleTimeSource.h"

#include <QThread>
#include <QtCore/qtestsupport_core.h>

#include <csignal>

TEST(X11IdleBackend, readsSecondsWithoutWaitingUntilTheServerDies)
{
    const TestPlatform platform; // Its clock stands at 0.
    XvfbServer server;
    X11IdleBackend backend;
    std::vector<double> idle; // Seconds, -1 where it cannot be told.
    const auto ask = [&] { backend.ask([&](auto at) { idle.push_back(-at.value_or(1)); }); };
    const auto moveMouse = [] { return QProcess::execute("xdotool", {"mousemove_relative", "5", "5"}); };
    const auto isAnswered = [&](size_t times) {
        return QTest::qWaitFor([&] { return idle.size() == times; });
    };
    for (const size_t times : {1U, 2U, 3U}) {
        if (times != 2)
            ASSERT_EQ(moveMouse(), 0);
        else
            QThread::msleep(300);
        ask();
        EXPECT_LT(idle.size(), times) << "not within the question";
        ASSERT_TRUE(isAnswered(times));
    }
    EXPECT_TRUE(idle[1] >= idle[0] + 0.29 && idle[1] < idle[0] + 2.9) << "seconds";
    EXPECT_LT(idle[2], idle[1]);

    kill(pid_t(server.process.processId()), SIGSTOP);
    ask();
    ask(); // The one before is unanswered.
    EXPECT_EQ(idle.size(), 4U);
    kill(pid_t(server.process.processId()), SIGCONT);
    ASSERT_EQ(moveMouse(), 0);
    ask(); // Its reply has come meanwhile.
    EXPECT_EQ(idle.size(), 5U);
    ASSERT_TRUE(isAnswered(6));
    server.stop();
    ask(); // On its way when the server dies.
    ASSERT_TRUE(isAnswered(7));
    ask();
    EXPECT_TRUE(idle.at(3) == -1 && idle[4] >= 0 && idle[6] == -1 && idle.at(7) == -1);
}

TEST(X11IdleBackend, isAskedOnlyWhereAllInputGoesThroughTheServer)
{
    const TestPlatform platform;
    const XvfbServer server;
    TestBus bus;
    const QDBusConnection desktop = bus.connect();
    const char* const gnome = "/org/gnome/Mutter/IdleMonitor/Core";
    const char* const saver = "/org/freedesktop/ScreenSaver";
    const char* const kTestCases[][4] = {{"", "", "/none", "X11"}, {"", "x11", saver, "X11"},
        {"", "x11", gnome, "GNOME"}, {"wayland-7", "", "/none", "none"},
        {"", "wayland", saver, "the screen saver"}, {"", "wayland", gnome, "GNOME"}};
    for (const auto& [display, type, path, expected] : kTestCases) {
        const TestService service(desktop, QString(path).mid(1).replace('/', '.').remove(".Core"), path,
            [](const QDBusMessage&) { return 1; });
        qputenv("WAYLAND_DISPLAY", display);
        qputenv("XDG_SESSION_TYPE", type);
        const auto source = makeIdleTimeSource(bus.connect());
        bool isReady = false;
        source->refresh([&] { isReady = true; });
        EXPECT_TRUE(QTest::qWaitFor([&] { return isReady; }) && source->name().startsWith(expected));
    }
    qunsetenv("WAYLAND_DISPLAY");
    qunsetenv("XDG_SESSION_TYPE");
}
