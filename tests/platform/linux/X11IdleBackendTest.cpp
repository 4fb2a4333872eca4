#include "platform/linux/X11IdleBackend.h"

#include "TestBus.h"
#include "fakes/TestPlatform.h"
#include "platform/linux/IdleTimeSource.h"

#include <QtCore/qtestsupport_core.h>

#include <csignal>

TEST(X11IdleBackend, readsWithoutWaitingUntilTheServerDies)
{
    const TestPlatform platform; // Its clock stands at 0.
    XvfbServer server;
    X11IdleBackend backend;
    std::vector<double> idle; // Seconds, -1 where it cannot be told.
    const auto ask = [&] { backend.ask([&](auto at) { idle.push_back(-at.value_or(1)); }); };
    const auto isAnswered = [&](size_t times) {
        return QTest::qWaitFor([&] { return idle.size() == times; });
    };
    ask();
    EXPECT_TRUE(idle.empty()) << "not within the question";
    ASSERT_TRUE(isAnswered(1));
    kill(pid_t(server.process.processId()), SIGSTOP);
    ask();
    ask(); // The one before is unanswered.
    EXPECT_EQ(idle.size(), 2U);
    kill(pid_t(server.process.processId()), SIGCONT);
    ASSERT_EQ(QProcess::execute("xdotool", {"mousemove_relative", "5", "5"}), 0);
    ask(); // Its reply has come meanwhile.
    EXPECT_EQ(idle.size(), 3U);
    ASSERT_TRUE(isAnswered(4));
    server.stop();
    ask(); // On its way when the server dies.
    ASSERT_TRUE(isAnswered(5));
    ask();
    EXPECT_TRUE(idle.at(1) == -1 && idle[2] >= 0 && idle[4] == -1 && idle.at(5) == -1);
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
