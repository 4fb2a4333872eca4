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

class VirtualRunLoopTest : public testing::Test {
protected:
    /// Notes the seconds since the start and a name when the timer fires.
    TimerRef note(double seconds, const char* name, Repeat repeats = Repeat::No)
    {
        return m_loop.scheduleTimer(
            seconds, repeats, [this, name](Timer&) { m_fired.emplace_back(m_loop.now() - kStart, name); });
    }

    using Fired = std::vector<std::pair<double, std::string>>;
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
    EXPECT_EQ(m_loop.now(), kStart + 3);
    EXPECT_EQ(m_loop.secondsToNextTimer(), 0.5);
    m_fired.clear();
    m_loop.jump(35.5); // A stall: the late ticks come once, and the rhythm stays.
    EXPECT_TRUE(m_fired.empty());
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
        note(0.5, "soon");
        m_loop.advance(5); // A callback that shows a dialog lets time pass inside.
        EXPECT_EQ(m_loop.now(), kStart + 6);
    });
    note(4, "inside");
    m_loop.scheduleTimer(
        2.5, Repeat::Yes,
        [&](Timer& self) {
            m_fired.emplace_back(m_loop.now() - kStart, self.userInfo().toString().toStdString());
            self.invalidate();
        },
        QStringLiteral("ends itself"));
    m_loop.advance(3);
    EXPECT_EQ(m_fired, (Fired {{1, "at once"}, {1.5, "soon"}, {2.5, "ends itself"}, {4, "inside"}}));
    EXPECT_EQ(m_loop.now(), kStart + 6) << "time never goes back";
    EXPECT_EQ(m_loop.pendingTimerCount(), 0U);
}

TEST_F(VirtualRunLoopTest, oddIntervals)
{
    note(-5, "negative");
    note(std::numeric_limits<double>::quiet_NaN(), "undefined");
    note(std::numeric_limits<double>::infinity(), "endless");
    note(1e300, "ages");
    m_loop.performSoon([&] {
        m_fired.emplace_back(0, "soon");
        m_loop.performSoon([&] { m_fired.emplace_back(0, "sooner still"); });
    });
    EXPECT_TRUE(m_fired.empty());
    m_loop.advance(0);
    EXPECT_EQ(m_fired, (Fired {{0, "soon"}, {0, "sooner still"}, {0, "negative"}, {0, "undefined"}}));
    m_loop.advance(1e9);
    EXPECT_EQ(m_fired.size(), 4U);

    int ticks = 0;
    int fifths = 0;
    m_loop.scheduleTimer(0, Repeat::Yes, [&](Timer&) { ++ticks; });
    m_loop.scheduleTimer(0.2, Repeat::Yes, [&](Timer&) { ++fifths; });
    m_loop.advance(1);
    EXPECT_EQ(ticks, 1000) << "a repeating timer leaves time to others";
    EXPECT_EQ(fifths, 5);
}

TEST_F(VirtualRunLoopTest, aScopeEndsItsTimersAndNoOthers)
{
    auto scope = std::make_unique<TimerScope>();
    auto witness = std::make_shared<int>(0);
    note(2, "kept");
    const TimerRef bound =
        scope->schedule(1.5, Repeat::Yes, [](Timer&) { ADD_FAILURE() << "its object is gone"; });
    scope->schedule(1, Repeat::Yes, [&scope, witness](Timer& timer) {
        scope.reset();
        ++*witness; // What the callback captured lives on until it returns.
        EXPECT_FALSE(timer.isValid());
    });
    m_loop.advance(5);
    EXPECT_FALSE(bound->isValid());
    EXPECT_EQ(m_fired, (Fired {{2, "kept"}}));
    EXPECT_EQ(*witness, 1);
    EXPECT_EQ(witness.use_count(), 1) << "and not longer";
}

/// The real loop, with intervals of milliseconds.
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
    for (const Repeat repeats : {Repeat::No, Repeat::Yes}) {
        std::vector<double> firedAt;
        const double start = m_loop->monotonicNow();
        const TimerRef timer = m_loop->scheduleTimer(
            0.0445, repeats, [&](Timer&) { firedAt.push_back(m_loop->monotonicNow() - start); }, {},
            RunLoop::Precision::Precise);
        const size_t expected = repeats == Repeat::Yes ? 2 : 1;
        ASSERT_TRUE(runUntil([&] { return firedAt.size() == expected; }));
        for (size_t i = 0; i < expected; ++i)
            EXPECT_GE(firedAt[i], 0.0445 * double(i + 1));
        EXPECT_EQ(timer->isValid(), repeats == Repeat::Yes);
        timer->invalidate();
    }
}

TEST_F(QtRunLoopTest, aCoarseSecondIsASecondFromItsStart)
{
    // Three that start at other parts of the second: what waits for full seconds ends one of them early.
    std::vector<double> lasted;
    for (const double delay : {0.05, 0.35, 0.65}) {
        const auto measure = [&](Timer&) {
            const double start = m_loop->monotonicNow();
            m_loop->scheduleTimer(
                1, Repeat::No, [&, start](Timer&) { lasted.push_back(m_loop->monotonicNow() - start); });
        };
        m_loop->scheduleTimer(delay, Repeat::No, measure, {}, RunLoop::Precision::Precise);
    }
    EXPECT_NEAR(m_loop->now(), double(std::time(nullptr)), 2);
    EXPECT_GE(m_loop->bootTimeNow(), m_loop->monotonicNow() - 0.01);
    ASSERT_TRUE(runUntil([&] { return lasted.size() == 3; }));
    for (const double seconds : lasted)
        EXPECT_GE(seconds, 0.94);
}

TEST_F(QtRunLoopTest, longWaitsAndThreadsWorkEndWithTheLoop)
{
    const double kThirtyDays = 30 * 86400.0; // More milliseconds than an int holds.
    for (const Repeat repeats : {Repeat::No, Repeat::Yes}) {
        for (const double seconds : {kThirtyDays, 1e15, std::numeric_limits<double>::infinity()})
            m_loop->scheduleTimer(seconds, repeats, [&](Timer&) { ADD_FAILURE() << seconds; });
    }
    std::optional<std::thread::id> ranOn;
    std::thread worker([&] { m_loop->performSoon([&] { ranOn = std::this_thread::get_id(); }); });
    worker.join();
    EXPECT_FALSE(ranOn);
    EXPECT_TRUE(runUntil([&] { return ranOn.has_value(); }));
    EXPECT_EQ(ranOn, std::this_thread::get_id());

    const TimerRef timer =
        m_loop->scheduleTimer(0, Repeat::No, [](Timer&) { ADD_FAILURE() << "the loop is gone"; });
    m_loop->performSoon([] { ADD_FAILURE() << "the loop is gone"; });
    m_loop.reset();
    QCoreApplication::processEvents();
    EXPECT_FALSE(timer->isValid());
}
}
