#include "platform/linux/X11EventSource.h"

#include "XvfbServer.h"
#include "platform/ProcessServices.h"
#include "platform/linux/IdleTimeSource.h"
#include "platform/simulated/VirtualRunLoop.h"

#include <QThread>

#include <algorithm>
#include <gtest/gtest.h>

namespace {
/// The class asks the server at most every fifth of a second, and virtual time makes it ask.
double idleAfter(double seconds, VirtualRunLoop& runLoop, EventSource& source)
{
    runLoop.advance(seconds);
    return source.secondsSinceLastEventType(EventSource::EventType::MouseMoved);
}

TEST(X11EventSource, countsSecondsFromTheLastInputUntilTheServerDies)
{
    VirtualRunLoop runLoop;
    const ProcessServices services({&runLoop});
    XvfbServer server;
    const auto moveMouse = [] {
        EXPECT_EQ(QProcess::execute(QStringLiteral("xdotool"),
                      {QStringLiteral("mousemove_relative"), QStringLiteral("5"), QStringLiteral("5")}),
            0);
    };
    const auto source = makeIdleTimeSource();
    qputenv("WAYLAND_DISPLAY", "wayland-0");
    const auto underWayland = makeIdleTimeSource();
    qunsetenv("WAYLAND_DISPLAY");
    moveMouse();
    const double first = idleAfter(1, runLoop, *source);
    QThread::msleep(300);
    EXPECT_EQ(idleAfter(0.15, runLoop, *source), first) << "questions of one moment share one answer";
    const double later = idleAfter(0.1, runLoop, *source);
    EXPECT_GE(later, first + 0.29) << "seconds, not milliseconds";
    EXPECT_LT(later, first + 3);
    EXPECT_EQ(idleAfter(0, runLoop, *underWayland), 0) << "none is asked there";
    moveMouse();
    EXPECT_LT(idleAfter(1, runLoop, *source), later);

    server.stop();
    testing::internal::CaptureStderr();
    EXPECT_EQ(idleAfter(1, runLoop, *source), 0) << "nothing can tell any more: active";
    EXPECT_EQ(idleAfter(1, runLoop, *source), 0);
    const std::string log = testing::internal::GetCapturedStderr();
    EXPECT_NE(log.find("Idle time comes from: none"), std::string::npos) << log;
    EXPECT_EQ(std::count(log.begin(), log.end(), '\n'), 1) << "said once";
}
}
