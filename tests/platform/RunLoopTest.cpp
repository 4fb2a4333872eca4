#include "platform/qt/QtRunLoop.h"
#include "platform/simulated/VirtualRunLoop.h"

#include <QCoreApplication>
#include <QEventLoop>

#include <gtest/gtest.h>
#include <limits>
#include <optional>
#include <thread>

namespace {
using Repeat = RunLoop::Repeat;
constexpr double kStart = 1'700'000'000.0;

class VirtualRunLoopTest : public testing::Test {
protected:
    void SetUp() override { RunLoop::setMain(&m_loop); }
    void TearDown() override { RunLoop::setMain(nullptr); }

    /// Notes the seconds since the start and a name when the timer fires.
    TimerRef note(double seconds, const char* name, Repeat repeats = Repeat::No)
    {
        return m_loop.scheduleTimer(
            seconds, repeats, [this, name](Timer&) { m_fired.emplace_back(m_loop.now() - kStart, name); });
    }

    using Fired = std::vector<std::pair<double, std::string>>;
    VirtualRunLoop m_loop {kStart};
    Fired m_fired;
};

TEST_F(VirtualRunLoopTest, runsDueTimersInTheirOrderAndTiesAsScheduled)
{
    note(2, "c");
    note(1, "a");
    note(1, "b");
    note(3.5, "too late");
    m_loop.advance(3);
    EXPECT_EQ(m_fired, (Fired {{1, "a"}, {1, "b"}, {2, "c"}}));
    EXPECT_EQ(m_loop.now(), kStart + 3);
    EXPECT_EQ(m_loop.secondsToNextTimer(), 0.5);
}

TEST_F(VirtualRunLoopTest, fiveFifthsOfASecondAreASecond)
{
    int ticks = 0;
    m_loop.scheduleTimer(0.2, Repeat::Yes, [&](Timer&) { ++ticks; });
    m_loop.advance(1.0);
    EXPECT_EQ(ticks, 5);
    m_loop.advance(9.0);
    EXPECT_EQ(ticks, 50);
}

TEST_F(VirtualRunLoopTest, aRepeatingTimerAndAOneShotOfTheSameMomentKeepTheirOrder)
{
    note(1, "tick", Repeat::Yes);
    m_loop.advance(1);
    note(1, "once");
    m_loop.advance(1);
    EXPECT_EQ(m_fired, (Fired {{1, "tick"}, {2, "tick"}, {2, "once"}}));
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
    m_loop.advance(3);
    EXPECT_EQ(m_fired, (Fired {{1, "at once"}, {1.5, "soon"}, {4, "inside"}}));
    EXPECT_EQ(m_loop.now(), kStart + 6) << "time never goes back";
}

TEST_F(VirtualRunLoopTest, aRepeatingTimerMayEndItself)
{
    int ticks = 0;
    const TimerRef timer = m_loop.scheduleTimer(
        1, Repeat::Yes,
        [&](Timer& self) {
            if (++ticks == 3)
                self.invalidate();
        },
        QStringLiteral("handed over"));
    EXPECT_EQ(timer->userInfo().toString(), QStringLiteral("handed over"));
    m_loop.advance(10);
    EXPECT_EQ(ticks, 3);
    EXPECT_FALSE(timer->isValid());
    EXPECT_EQ(m_loop.pendingTimerCount(), 0U);
}

TEST_F(VirtualRunLoopTest, afterAStallALateTickComesOnceAndTheRhythmStays)
{
    note(10, "tick", Repeat::Yes);
    m_loop.jump(35);
    EXPECT_TRUE(m_fired.empty());
    m_loop.advance(6);
    EXPECT_EQ(m_fired, (Fired {{35, "tick"}, {40, "tick"}}));
}

TEST_F(VirtualRunLoopTest, asleepOnlyTheWallAndBootClocksGoOn)
{
    note(10, "timer");
    m_loop.advance(4);
    m_loop.sleepMachine(1000);
    EXPECT_EQ(m_loop.now(), kStart + 1004);
    EXPECT_EQ(m_loop.monotonicNow(), 4);
    EXPECT_EQ(m_loop.bootTimeNow(), 1004);
    m_loop.advance(6);
    EXPECT_EQ(m_fired, (Fired {{1010, "timer"}}));
}

TEST_F(VirtualRunLoopTest, settingTheWallClockMovesNoTimer)
{
    note(10, "timer");
    m_loop.setWallClock(kStart - 3600);
    EXPECT_EQ(m_loop.monotonicNow(), 0);
    m_loop.advance(10);
    EXPECT_EQ(m_fired, (Fired {{-3590, "timer"}}));
}

TEST_F(VirtualRunLoopTest, oddIntervals)
{
    note(-5, "negative");
    note(std::numeric_limits<double>::quiet_NaN(), "undefined");
    note(std::numeric_limits<double>::infinity(), "endless");
    note(1e300, "ages");
    m_loop.advance(0);
    EXPECT_EQ(m_fired, (Fired {{0, "negative"}, {0, "undefined"}}));
    m_loop.advance(1e9);
    EXPECT_EQ(m_fired.size(), 2U);

    int ticks = 0;
    m_loop.scheduleTimer(0, Repeat::Yes, [&](Timer&) { ++ticks; });
    m_loop.advance(1);
    EXPECT_EQ(ticks, 1000) << "a repeating timer leaves time to others";
}

TEST_F(VirtualRunLoopTest, performSoonComesBeforeTheNextTimer)
{
    note(0, "timer");
    m_loop.performSoon([&] {
        m_fired.emplace_back(0, "soon");
        m_loop.performSoon([&] { m_fired.emplace_back(0, "sooner still"); });
    });
    EXPECT_TRUE(m_fired.empty());
    m_loop.advance(0);
    EXPECT_EQ(m_fired, (Fired {{0, "soon"}, {0, "sooner still"}, {0, "timer"}}));
}

TEST_F(VirtualRunLoopTest, aScopeEndsItsTimersAndNoOthers)
{
    TimerRef kept = note(1, "kept");
    TimerRef bound;
    {
        TimerScope scope;
        bound = scope.schedule(1, Repeat::Yes, [&](Timer&) { ADD_FAILURE() << "its object is gone"; });
        scope.schedule(1, Repeat::No, [&](Timer&) { ADD_FAILURE() << "nobody held it, the scope did"; });
    }
    EXPECT_FALSE(bound->isValid());
    EXPECT_EQ(m_loop.pendingTimerCount(), 1U);
    m_loop.advance(2);
    EXPECT_EQ(m_fired.size(), 1U);
}

TEST_F(VirtualRunLoopTest, anOwnerMayEndInItsTimersCallback)
{
    auto scope = std::make_unique<TimerScope>();
    auto witness = std::make_shared<int>(0);
    scope->schedule(1, Repeat::Yes, [&scope, witness](Timer& timer) {
        scope.reset();
        ++*witness; // What the callback captured lives on until it returns.
        EXPECT_FALSE(timer.isValid());
    });
    m_loop.advance(5);
    EXPECT_EQ(*witness, 1);
    EXPECT_EQ(witness.use_count(), 1) << "and not longer";
}

/// The real loop, with intervals of milliseconds.
class QtRunLoopTest : public testing::Test {
protected:
    void SetUp() override { RunLoop::setMain(&*m_loop); }
    void TearDown() override { RunLoop::setMain(nullptr); }

    bool runUntil(const std::function<bool()>& condition)
    {
        const double end = m_loop->monotonicNow() + 5;
        while (!condition() && m_loop->monotonicNow() < end)
            QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents, 20);
        return condition();
    }

    std::optional<QtRunLoop> m_loop {std::in_place};
};

TEST_F(QtRunLoopTest, firesOnceOrAgainAndAgain)
{
    int once = 0;
    int ticks = 0;
    double firedAt = 0;
    const double start = m_loop->monotonicNow();
    const TimerRef oneShot = m_loop->scheduleTimer(
        0.02, Repeat::No,
        [&](Timer& timer) {
            ++once;
            firedAt = m_loop->monotonicNow();
            EXPECT_FALSE(timer.isValid());
        },
        {}, RunLoop::Precision::Precise);
    m_loop->scheduleTimer(
        0.005, Repeat::Yes,
        [&](Timer& timer) {
            if (++ticks == 10)
                timer.invalidate();
        },
        {}, RunLoop::Precision::Precise);
    EXPECT_TRUE(runUntil([&] { return ticks == 10 && once == 1; }));
    EXPECT_GE(firedAt - start, 0.0195);
    EXPECT_FALSE(oneShot->isValid());
}

TEST_F(QtRunLoopTest, veryLongIntervalsNeitherFireNorOverflow)
{
    const double kThirtyDays = 30 * 86400.0; // More milliseconds than an int holds.
    for (const Repeat repeats : {Repeat::No, Repeat::Yes}) {
        for (const double seconds : {kThirtyDays, 1e15, std::numeric_limits<double>::infinity()}) {
            m_loop->scheduleTimer(seconds, repeats, [&](Timer&) { ADD_FAILURE() << seconds; });
        }
    }
    int passed = 0;
    m_loop->scheduleTimer(0.03, Repeat::No, [&](Timer&) { ++passed; });
    EXPECT_TRUE(runUntil([&] { return passed == 1; }));
}

TEST_F(QtRunLoopTest, aWaitOfSeveralLegsIsAsLongAsItsInterval)
{
    m_loop.emplace(0.01);
    RunLoop::setMain(&*m_loop);
    for (const Repeat repeats : {Repeat::No, Repeat::Yes}) {
        std::vector<double> firedAt;
        const double start = m_loop->monotonicNow();
        const TimerRef timer = m_loop->scheduleTimer(
            0.045, repeats, [&](Timer&) { firedAt.push_back(m_loop->monotonicNow() - start); }, {},
            RunLoop::Precision::Precise);
        const size_t expected = repeats == Repeat::Yes ? 2 : 1;
        ASSERT_TRUE(runUntil([&] { return firedAt.size() == expected; }));
        for (size_t i = 0; i < expected; ++i)
            EXPECT_GE(firedAt[i], 0.044 * double(i + 1));
        EXPECT_EQ(timer->isValid(), repeats == Repeat::Yes);
        timer->invalidate();
    }
}

TEST_F(QtRunLoopTest, aCallbackMayEndTheLoopsLastReferenceAndTheOwner)
{
    auto scope = std::make_unique<TimerScope>();
    int fired = 0;
    scope->schedule(0, Repeat::Yes, [&](Timer&) {
        scope.reset();
        ++fired;
    });
    EXPECT_TRUE(runUntil([&] { return fired == 1; }));
    QCoreApplication::processEvents();
    EXPECT_EQ(fired, 1);
}

TEST_F(QtRunLoopTest, timersEndWithTheLoop)
{
    const TimerRef timer =
        m_loop->scheduleTimer(0, Repeat::No, [](Timer&) { ADD_FAILURE() << "the loop is gone"; });
    m_loop->performSoon([] { ADD_FAILURE() << "the loop is gone"; });
    m_loop.reset();
    QCoreApplication::processEvents();
    EXPECT_FALSE(timer->isValid());
    timer->invalidate();
}

TEST_F(QtRunLoopTest, performSoonBringsAThreadsWorkToTheMainThread)
{
    const auto mainThread = std::this_thread::get_id();
    std::optional<std::thread::id> ranOn;
    std::thread worker([&] { m_loop->performSoon([&] { ranOn = std::this_thread::get_id(); }); });
    worker.join();
    EXPECT_FALSE(ranOn);
    EXPECT_TRUE(runUntil([&] { return ranOn.has_value(); }));
    EXPECT_EQ(ranOn, mainThread);
}
}
