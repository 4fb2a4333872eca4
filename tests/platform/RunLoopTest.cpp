#include "platform/ProcessServices.h"
#include "platform/qt/QtRunLoop.h"
#include "platform/simulated/VirtualRunLoop.h"

#include <QCoreApplication>
#include <QtCore/qtestsupport_core.h>

#include <ctime>
#include <gtest/gtest.h>
#include <thread>

namespace {
using Repeat = RunLoop::Repeat;
constexpr double kStart = 1'700'000'000.0;
constexpr double kEndless = std::numeric_limits<double>::infinity();

class VirtualRunLoopTest : public testing::Test {
protected:
    /// Notes the seconds since the start and a name when the timer fires; one that fires once has ended then.
    TimerRef note(double seconds, const char* name, Repeat repeats = Repeat::No)
    {
        const auto fired = [this, name, repeats](const Timer& timer) {
            EXPECT_EQ(timer.isValid(), repeats == Repeat::Yes);
            m_fired << QString::number(m_loop.now() - kStart) + name;
        };
        return m_loop.scheduleTimer(seconds, repeats, fired);
    }
    /// What has fired since the last look.
    std::string fired() { return std::exchange(m_fired, {}).join(u' ').toStdString(); }

    VirtualRunLoop m_loop {kStart};
    ProcessServices m_services {{&m_loop}};
    QStringList m_fired;
};

TEST_F(VirtualRunLoopTest, runsDueTimersInTheirOrderAndTiesAsScheduled)
{
    note(2, "c");
    note(1, "a", Repeat::Yes);
    note(1, "b");
    note(3.5, "late");
    note(-5, "negative");
    note(std::numeric_limits<double>::quiet_NaN(), "undefined");
    for (const double never : {kEndless, 1e300})
        note(never, "never");
    m_loop.performSoon([&] { m_loop.performSoon([&] { m_fired << "soon"; }); });
    m_loop.advance(3);
    EXPECT_EQ(fired(), "soon 0negative 0undefined 1a 1b 2c 2a 3a");
    EXPECT_EQ(m_loop.secondsToNextTimer(), 0.5);
    m_loop.jump(35.5); // A stall: the late ticks come once, and the rhythm stays.
    m_loop.advance(1);
    EXPECT_EQ(fired(), "38.5late 38.5a 39a");
    note(0.2, "fifth", Repeat::Yes);
    note(0, "tick", Repeat::Yes); // Leaves time to others.
    m_loop.advance(0.5);
    m_loop.advance(0.5);
    EXPECT_EQ(m_fired.size(), 1 + 5 + 1000U);
}

TEST_F(VirtualRunLoopTest, aCallbackMayScheduleAdvanceAndEndTheScopeOfItsTimer)
{
    VirtualRunLoop other;
    (void)ProcessServices({&other}); // The former ones come back.
    auto scope = std::make_unique<TimerScope>();
    auto witness = std::make_shared<int>(0);
    note(2, "kept");
    const TimerRef bound = scope->schedule(1.5, Repeat::Yes, [](Timer&) { ADD_FAILURE() << "it has ended"; });
    scope->schedule(1, Repeat::Yes, [&, witness](Timer&) {
        scope.reset();
        EXPECT_EQ(witness.use_count(), 2) << "what the callback captured lives on until it returns";
        note(4, "inside");
        m_loop.advance(5); // A callback that shows a dialog lets time pass inside.
    });
    m_loop.advance(3);
    EXPECT_EQ(fired(), "2kept 5inside");
    EXPECT_EQ(m_loop.now(), kStart + 6) << "time never goes back";
    EXPECT_TRUE(m_loop.pendingTimerCount() == 0 && !bound->isValid() && witness.use_count() == 1);
}

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
