#include "desk/IdleObserver.h"

#include "fakes/TestPlatform.h"

#include <gtest/gtest.h>

namespace {
class IdleObserverTest : public testing::Test, public IdleObserverDelegate {
protected:
    void updatedIdleObserverIsIdle(bool isIdle) override { heard.emplace_back(now(), isIdle); }
    [[nodiscard]] double now() const { return platform.runLoop.now() - TestPlatform::kStart; }

    /// Lets time pass without a hand on mouse or keyboard.
    void beAway(double seconds)
    {
        for (double passed = 0; passed < seconds; ++passed) {
            ++eventSource.idleSeconds;
            platform.runLoop.advance(1);
        }
    }

    using Heard = std::vector<std::pair<double, bool>>;

    TestPlatform platform;
    FakeEventSource eventSource;
    Heard heard;
};
}

TEST_F(IdleObserverTest, CombinesTheAnswersWithItsRunningMinimum)
{
    constexpr double kLarge = 1000;
    const struct {
        const char* what;
        std::vector<double> answers; // For the first types in order; kLarge for the rest.
        double expected;
    } cases[] = {
        {"the smallest", {50, 7, 30}, 7},
        {"a zero drops the minimum so far", {5, 0, 100}, 100},
        {"a zero first", {0, 40, 30}, 30},
        {"two zeros in a row", {5, 0, 0, 60, 80}, 60},
        {"a zero for the fifteenth type stays", {5, 5, 5, 5, 5, 5, 5, 5, 5, 5, 5, 5, 5, 5, 0, 3}, 0},
        {"the sixteenth type does not count", {9, 9, 9, 9, 9, 9, 9, 9, 9, 9, 9, 9, 9, 9, 9, 1}, 9},
        {"nothing but zeros", std::vector<double>(16, 0), 0},
    };
    const std::vector<int> types {1, 2, 3, 4, 5, 6, 7, 10, 11, 12, 22, 23, 24, 25, 26, 27};

    for (const auto& testCase : cases) {
        eventSource.idleSeconds = kLarge;
        eventSource.byType.clear();
        for (size_t i = 0; i < testCase.answers.size(); ++i)
            eventSource.byType.insert(types[i], testCase.answers[i]);
        eventSource.asked.clear();
        IdleObserver observer(eventSource);
        EXPECT_EQ(observer.idleTimeInSeconds(), testCase.expected) << testCase.what;
        EXPECT_EQ(eventSource.asked, types) << testCase.what;
    }
}

TEST_F(IdleObserverTest, TellsOfTransitionsOnlyWithinTenSeconds)
{
    IdleObserver observer(eventSource, 300);
    observer.setDelegate(this);

    beAway(299);
    EXPECT_TRUE(heard.empty());
    EXPECT_FALSE(observer.isIdle());
    beAway(200);
    EXPECT_TRUE(observer.isIdle());
    eventSource.idleSeconds = 0;
    platform.runLoop.advance(60);
    EXPECT_EQ(heard, (Heard {{300, true}, {500, false}}));
}

TEST_F(IdleObserverTest, StaysIdleAtExactlyTheLimit)
{
    IdleObserver observer(eventSource, 300);
    observer.setDelegate(this);
    eventSource.idleSeconds = 400;
    platform.runLoop.advance(10);
    eventSource.idleSeconds = 300;
    platform.runLoop.advance(10);
    EXPECT_TRUE(observer.isIdle());
    eventSource.idleSeconds = 299.9;
    platform.runLoop.advance(10);
    EXPECT_EQ(heard, (Heard {{10, true}, {30, false}}));
}

TEST_F(IdleObserverTest, PollsEveryTenSecondsUntilStopped)
{
    auto observer = std::make_unique<IdleObserver>(eventSource, 300);
    platform.runLoop.advance(100);
    EXPECT_EQ(eventSource.asked.size(), 16u * 10);
    observer->stopIdleObserverTimer();
    platform.runLoop.advance(100);
    EXPECT_EQ(eventSource.asked.size(), 16u * 10);
    observer->startIdleObserverTimer();
    observer->startIdleObserverTimer();
    platform.runLoop.advance(10);
    EXPECT_EQ(eventSource.asked.size(), 16u * 11);
    observer.reset();
    EXPECT_EQ(platform.runLoop.pendingTimerCount(), 0u);
}
