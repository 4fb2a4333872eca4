#include "platform/SleepAwareEventSource.h"

#include "fakes/TestPlatform.h"

#include <gtest/gtest.h>

namespace {
constexpr auto kAnyEvent = EventSource::EventType::KeyDown;
constexpr double kNight = 8 * 3600.0;

/// Counts idle time as Linux does: on the monotonic clock.
class MonotonicSource final : public EventSource {
public:
    double lastInput = RunLoop::main().monotonicNow();
    [[nodiscard]] double secondsSinceLastEventType(EventType) override
    {
        return RunLoop::main().monotonicNow() - lastInput;
    }
};

class SleepAwareEventSourceTest : public testing::Test {
protected:
    TestPlatform m_platform;
    std::unique_ptr<MonotonicSource> m_owned = std::make_unique<MonotonicSource>();
    MonotonicSource& m_system = *m_owned;
    SleepAwareEventSource m_source {std::move(m_owned)};

    void input() { m_system.lastInput = m_platform.runLoop.monotonicNow(); }
    void pass(double seconds) { m_platform.runLoop.advance(seconds); }
    void sleep(double seconds) { m_platform.runLoop.sleepMachine(seconds); }
    double idle() { return m_source.secondsSinceLastEventType(kAnyEvent); }
};

TEST_F(SleepAwareEventSourceTest, withoutSleepTheAnswerIsTheSources)
{
    pass(7.5);
    EXPECT_DOUBLE_EQ(idle(), 7.5);
    input();
    EXPECT_DOUBLE_EQ(idle(), 0);
}

TEST_F(SleepAwareEventSourceTest, aNightAsleepCountsUntilTheNextInput)
{
    pass(10);
    sleep(kNight);
    EXPECT_DOUBLE_EQ(idle(), kNight + 10);
    pass(10);
    EXPECT_DOUBLE_EQ(idle(), kNight + 20) << "the machine woke by itself, nobody is there";
    input();
    pass(10);
    EXPECT_DOUBLE_EQ(idle(), 10);
}

TEST_F(SleepAwareEventSourceTest, theFirstAnswerIsAnAbsenceEvenWhenTheUserIsBackAlready)
{
    pass(10);
    sleep(kNight);
    pass(3);
    input();
    pass(2);
    EXPECT_GE(idle(), kNight);
    // The observer asks for sixteen kinds of event in a row, and all of them belong to the first answer.
    for (int i = 0; i < 16; ++i)
        EXPECT_GE(idle(), kNight);
    pass(8);
    input();
    pass(2);
    EXPECT_DOUBLE_EQ(idle(), 2);
}

TEST_F(SleepAwareEventSourceTest, inputWhileTheFirstAnswerIsGivenDoesNotHideTheAbsence)
{
    sleep(kNight);
    for (int i = 0; i < 16; ++i) {
        input();
        EXPECT_GE(idle(), kNight);
        pass(0.001);
    }
}

TEST_F(SleepAwareEventSourceTest, sleepsAddUpUntilSomebodyComes)
{
    sleep(1000);
    EXPECT_DOUBLE_EQ(idle(), 1000);
    pass(60);
    sleep(2000);
    EXPECT_DOUBLE_EQ(idle(), 3060);
    pass(10);
    input();
    pass(1);
    EXPECT_DOUBLE_EQ(idle(), 1);
    sleep(500);
    EXPECT_DOUBLE_EQ(idle(), 501) << "the earlier sleeps are no part of this absence";
}

TEST_F(SleepAwareEventSourceTest, clocksReadOneAfterTheOtherAreNoSleep)
{
    for (int i = 0; i < 10; ++i) {
        sleep(0.05);
        EXPECT_DOUBLE_EQ(idle(), 0);
        input();
    }
    for (int i = 0; i < 12; ++i)
        sleep(0.05);
    EXPECT_NEAR(idle(), 1.1, 1e-6) << "many short sleeps are one in the end";
}

TEST_F(SleepAwareEventSourceTest, aClockThatIsSetIsNoSleep)
{
    m_platform.runLoop.setWallClock(m_platform.runLoop.now() + kNight);
    EXPECT_DOUBLE_EQ(idle(), 0);
}
}
