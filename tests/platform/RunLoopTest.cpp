#include "platform/ProcessServices.h"
#include "platform/qt/QtRunLoop.h"
#include "platform/simulated/VirtualRunLoop.h"

#include <QCoreApplication>
#include <QEventLoop>

#include <ctime>
#include <gtest/gtest.h>
#include <limits>
#include <optional>
#include <thread>

namespace {
using Repeat = RunLoop::Repeat;
constexpr double kStart = 1'700'000'000.0;
constexpr double kEndless = std::numeric_limits<double>::infinity();

class VirtualRunLoopTest : public testing::Test {
protected:
    /// Notes the seconds since the start and a name when the timer fires.
    TimerRef note(double seconds, const char* name, Repeat repeats = Repeat::No)
    {
        return m_loop.scheduleTimer(
            seconds, repeats,
            [this](
                Timer& timer) { m_fired.emplace_back(m_loop.now() - kStart, timer.userInfo().toString()); },
            name);
    }

    using Fired = std::vector<std::pair<double, QString>>;
    VirtualRunLoop m_loop {kStart};
    ProcessServices m_services {{&m_loop}};
    Fired m_fired;
};

TEST_F(VirtualRunLoopTest, runsDueTimersInTheirOrderAndTiesAsScheduled)
{
    note(2, "c");
    note(1, "a", Repeat::Yes);
    note(1, "b");
    note(3.5, "too late");
    m_loop.advance(3);
    EXPECT_EQ(m_fired, (Fired {{1, "a"}, {1, "b"}, {2, "c"}, {2, "a"}, {3, "a"}}));
    EXPECT_EQ(m_loop.secondsToNextTimer(), 0.5);
    m_fired.clear();
    m_loop.jump(35.5); // A stall: the late ticks come once, and the rhythm stays.
    m_loop.advance(1);
    EXPECT_EQ(m_fired, (Fired {{38.5, "too late"}, {38.5, "a"}, {39, "a"}}));
}

TEST_F(VirtualRunLoopTest, aCallbackMayScheduleCancelAndAdvance)
{
    const TimerRef cancelled = note(2, "cancelled");
    m_loop.scheduleTimer(1, Repeat::No, [&](Timer& timer) {
        EXPECT_FALSE(timer.isValid()) << "a one-shot timer has ended when its callback runs";
        cancelled->invalidate();
        note(0, "at once");
        m_loop.advance(5); // A callback that shows a dialog lets time pass inside.
    });
    note(4, "inside");
    m_loop.scheduleTimer(2.5, Repeat::Yes, [&](Timer& self) {
        note(0, "once");
        self.invalidate();
    });
    m_loop.advance(3);
    EXPECT_EQ(m_fired, (Fired {{1, "at once"}, {2.5, "once"}, {4, "inside"}}));
    EXPECT_EQ(m_loop.now(), kStart + 6) << "time never goes back";
    EXPECT_EQ(m_loop.pendingTimerCount(), 0U);
}

TEST_F(VirtualRunLoopTest, oddIntervals)
{
    note(-5, "negative");
    note(std::numeric_limits<double>::quiet_NaN(), "undefined");
    note(kEndless, "endless");
    note(1e300, "ages");
    m_loop.performSoon([&] { m_loop.performSoon([&] { m_fired.emplace_back(0, "soon"); }); });
    m_loop.advance(0);
    EXPECT_EQ(m_fired, (Fired {{0, "soon"}, {0, "negative"}, {0, "undefined"}}));
    m_loop.advance(1e9);
    EXPECT_EQ(m_fired.size(), 3U);

    m_fired.clear();
    note(0.2, "fifth", Repeat::Yes);
    note(0, "tick", Repeat::Yes); // Leaves time to others.
    m_loop.advance(1);
    EXPECT_EQ(m_fired.size(), 1005U);
}

TEST_F(VirtualRunLoopTest, aScopeEndsItsTimersAndNoOthers)
{
    auto scope = std::make_unique<TimerScope>();
    auto witness = std::make_shared<int>(0);
    note(2, "kept");
    const TimerRef bound = scope->schedule(1.5, Repeat::Yes, [](Timer&) { ADD_FAILURE() << "it has ended"; });
    scope->schedule(1, Repeat::Yes, [&scope, witness](Timer& timer) {
        scope.reset();
        EXPECT_FALSE(timer.isValid());
        EXPECT_EQ(witness.use_count(), 2) << "what the callback captured lives on until it returns";
    });
    m_loop.advance(5);
    EXPECT_FALSE(bound->isValid());
    EXPECT_EQ(m_fired, (Fired {{2, "kept"}}));
    EXPECT_EQ(witness.use_count(), 1);
}

/// The real loop.
class QtRunLoopTest : public testing::Test {
protected:
    bool runUntil(const std::function<bool()>& condition)
    {
        const double end = m_loop->monotonicNow() + 5;
        while (!condition() && m_loop->monotonicNow() < end)
            QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents, 20);
        return condition();
    }

    std::optional<QtRunLoop> m_loop {std::in_place};
};

TEST_F(QtRunLoopTest, aWaitIsAsLongAsItsInterval)
{
    // Coarse seconds that start at other parts of the second: what waits for full seconds ends one early.
    int ended = 0;
    const auto wait = [&](double seconds, Repeat repeats, RunLoop::Precision precision, double shortest) {
        return m_loop->scheduleTimer(
            seconds, repeats,
            [&, repeats, shortest, start = m_loop->monotonicNow()](Timer& timer) {
                EXPECT_GE(m_loop->monotonicNow() - start, shortest);
                EXPECT_EQ(timer.isValid(), repeats == Repeat::Yes);
                ++ended;
                timer.invalidate();
            },
            {}, precision);
    };
    for (const Repeat repeats : {Repeat::No, Repeat::Yes})
        wait(0.0445, repeats, RunLoop::Precision::Precise, 0.0445);
    for (const double delay : {0.05, 0.35, 0.65}) {
        m_loop->scheduleTimer(
            delay, Repeat::No, [&](Timer&) { wait(1, Repeat::No, RunLoop::Precision::Coarse, 0.94); });
    }
    EXPECT_TRUE(runUntil([&] { return ended == 5; }));
    EXPECT_NEAR(m_loop->now(), double(std::time(nullptr)), 2);
    EXPECT_GE(m_loop->bootTimeNow(), m_loop->monotonicNow() - 0.01);
}

TEST_F(QtRunLoopTest, longWaitsAndThreadsWorkEndWithTheLoop)
{
    for (const Repeat repeats : {Repeat::No, Repeat::Yes}) {
        for (const double seconds : {30 * 86400.0, 1e15, kEndless}) // More milliseconds than an int holds.
            m_loop->scheduleTimer(seconds, repeats, [&](Timer&) { ADD_FAILURE() << seconds; });
    }
    std::optional<std::thread::id> ranOn;
    std::thread worker([&] { m_loop->performSoon([&] { ranOn = std::this_thread::get_id(); }); });
    worker.join();
    EXPECT_FALSE(ranOn);
    EXPECT_TRUE(runUntil([&] { return ranOn.has_value(); }));
    EXPECT_EQ(ranOn, std::this_thread::get_id());

    const auto isGone = [] { ADD_FAILURE() << "the loop is gone"; };
    const TimerRef timer = m_loop->scheduleTimer(0, Repeat::No, [&](Timer&) { isGone(); });
    m_loop->performSoon(isGone);
    m_loop.reset();
    QCoreApplication::processEvents();
    EXPECT_FALSE(timer->isValid());
}
}
