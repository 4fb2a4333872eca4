#include "platform/qt/QtRunLoop.h"

#include <QCoreApplication>
#include <QtCore/qtestsupport_core.h>

#include <ctime>
#include <gtest/gtest.h>
#include <thread>

namespace {
using Repeat = RunLoop::Repeat;
constexpr double kEndless = std::numeric_limits<double>::infinity();

TEST(QtRunLoopTest, aWaitIsAsLongAsItsInterval)
{
    QtRunLoop loop;
    int ended = 0;
    const auto wait = [&](double seconds, Repeat repeats, RunLoop::Precision precision, double shortest) {
        const auto fired = [&, repeats, shortest, start = loop.monotonicNow()](Timer& timer) {
            ended += loop.monotonicNow() - start >= shortest && timer.isValid() == (repeats == Repeat::Yes);
            timer.invalidate();
        };
        loop.scheduleTimer(seconds, repeats, fired, {}, precision);
    };
    for (const Repeat repeats : {Repeat::No, Repeat::Yes})
        wait(0.0445, repeats, RunLoop::Precision::Precise, 0.0445);
    // Coarse seconds that start at other parts of the second: what waits for full seconds ends one early.
    const auto waitCoarsely = [&](Timer&) { wait(1, Repeat::No, RunLoop::Precision::Coarse, 0.94); };
    for (const double delay : {0.05, 0.35, 0.65})
        loop.scheduleTimer(delay, Repeat::No, waitCoarsely);
    EXPECT_TRUE(QTest::qWaitFor([&] { return ended == 5; }, 20'000));
    EXPECT_NEAR(loop.now(), double(std::time(nullptr)), 2);
    EXPECT_TRUE(loop.bootTimeNow() >= loop.monotonicNow() - 0.01 && loop.bootTimeNow() < 1e9);
}

TEST(QtRunLoopTest, longWaitsAndThreadsWorkEndWithTheLoop)
{
    std::optional<QtRunLoop> loop {std::in_place};
    const auto tooEarly = [](Timer&) { ADD_FAILURE() << "a wait of weeks has ended"; };
    for (const double seconds : {30 * 86400.0, 1e15, kEndless}) // More milliseconds than an int holds.
        loop->scheduleTimer(seconds, Repeat::Yes, tooEarly);
    std::optional<std::thread::id> ranOn;
    std::thread([&] { loop->performSoon([&] { ranOn = std::this_thread::get_id(); }); }).join();
    EXPECT_FALSE(ranOn);
    EXPECT_TRUE(QTest::qWaitFor([&] { return ranOn == std::this_thread::get_id(); }));

    const auto isGone = [] { ADD_FAILURE() << "the loop is gone"; };
    const TimerRef timer = loop->scheduleTimer(0, Repeat::No, [&](Timer&) { isGone(); });
    loop->performSoon(isGone);
    loop.reset();
    QCoreApplication::processEvents();
    EXPECT_FALSE(timer->isValid());
}
}
