#include "desk/IdleObserver.h"

#include "fakes/TestPlatform.h"

#include <gtest/gtest.h>

namespace {
class IdleObserverTest : public testing::Test, public IdleObserverDelegate {
protected:
    void updatedIdleObserverIsIdle(bool isIdle) override { note(isIdle ? "idle" : "active"); }
    void note(const char* what)
    {
        heard.append(QStringLiteral("%1 %2").arg(platform.runLoop.monotonicNow()).arg(QLatin1String(what)));
    }

    TestPlatform platform;
    FakeEventSource eventSource;
    QStringList heard;
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

TEST_F(IdleObserverTest, TellsOfTransitionsAndOfIdleUsersEveryTenSecondsUntilStopped)
{
    auto observer = std::make_unique<IdleObserver>(eventSource, 170);
    observer->setDelegate(this);
    observer->onStillIdle([this] { note("still idle"); });
    for (const double idleSeconds : {169.9, 170.0, 400.0, 170.0, 169.9, 0.0}) {
        eventSource.idleSeconds = idleSeconds;
        platform.runLoop.advance(10);
    }
    EXPECT_EQ(heard.join(QLatin1Char(',')).toStdString(), "20 idle,30 still idle,40 still idle,50 active");
    observer->stopIdleObserverTimer();
    platform.runLoop.advance(100);
    EXPECT_EQ(eventSource.asked.size(), 16u * 6);
    observer->startIdleObserverTimer();
    observer->startIdleObserverTimer();
    platform.runLoop.advance(10);
    EXPECT_EQ(eventSource.asked.size(), 16u * 7);
    observer.reset();
    EXPECT_EQ(platform.runLoop.pendingTimerCount(), 0u);
}
