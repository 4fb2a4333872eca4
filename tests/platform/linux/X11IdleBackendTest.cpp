#include "platform/linux/X11IdleBackend.h"

#include "TestBus.h"
#include "XvfbServer.h"
#include "platform/ProcessServices.h"
#include "platform/linux/IdleTimeSource.h"
#include "platform/simulated/VirtualRunLoop.h"

#include <QThread>
#include <QtCore/qtestsupport_core.h>

#include <gtest/gtest.h>

namespace {
using Answers = std::vector<std::optional<double>>;

TEST(X11IdleBackend, readsSecondsWithoutWaitingUntilTheServerDies)
{
    VirtualRunLoop runLoop;
    const ProcessServices services({&runLoop});
    XvfbServer server;
    X11IdleBackend backend;
    Answers idleSeconds;
    const auto ask = [&] {
        backend.ask([&](std::optional<double> at) {
            idleSeconds.push_back(at ? std::optional(runLoop.monotonicNow() - *at) : std::nullopt);
        });
    };
    const auto answer = [&] {
        const size_t count = idleSeconds.size();
        ask();
        EXPECT_EQ(idleSeconds.size(), count) << "not within the question";
        EXPECT_TRUE(QTest::qWaitFor([&] { return idleSeconds.size() > count; }));
        return idleSeconds.back().value_or(-1);
    };
    const QString xdotool = "xdotool";
    ASSERT_EQ(QProcess::execute(xdotool, {"mousemove_relative", "5", "5"}), 0);
    const double first = answer();
    QThread::msleep(300);
    const double later = answer();
    EXPECT_GE(later, first + 0.29) << "seconds, not milliseconds";
    EXPECT_LT(later, first + 3);
    ASSERT_EQ(QProcess::execute(xdotool, {"mousemove_relative", "5", "5"}), 0);
    EXPECT_LT(answer(), later);

    idleSeconds.clear();
    server.freeze();
    ask();
    EXPECT_EQ(idleSeconds, Answers());
    ask();
    EXPECT_EQ(idleSeconds, Answers {std::nullopt}) << "the one before is unanswered";
    server.thaw();
    EXPECT_TRUE(QTest::qWaitFor([&] { return idleSeconds.size() == 2; }));
    EXPECT_GE(answer(), 0);
    server.stop();
    EXPECT_EQ(answer(), -1) << "on its way when the server dies";
    ask();
    EXPECT_EQ(idleSeconds.back(), std::nullopt);
}

TEST(X11IdleBackend, isAskedOnlyWhereAllInputGoesThroughTheServer)
{
    VirtualRunLoop runLoop;
    const ProcessServices services({&runLoop});
    const XvfbServer server;
    TestBus bus;
    const char* const kTestCases[][3] = {
        {"", "", "X11 s"}, {"", "x11", "X11 s"}, {"wayland-7", "", "none,"}, {"", "wayland", "none,"}};
    for (const auto& [display, type, expected] : kTestCases) {
        qputenv("WAYLAND_DISPLAY", display);
        qputenv("XDG_SESSION_TYPE", type);
        testing::internal::CaptureStderr();
        const auto source = makeIdleTimeSource(bus.connect());
        bool isReady = false;
        source->refresh([&] { isReady = true; });
        EXPECT_TRUE(QTest::qWaitFor([&] { return isReady; }));
        const QString log = QString::fromStdString(testing::internal::GetCapturedStderr());
        EXPECT_EQ(log.section("comes from: ", 1).left(5).toStdString(), expected);
    }
    qunsetenv("WAYLAND_DISPLAY");
    qunsetenv("XDG_SESSION_TYPE");
}
}
