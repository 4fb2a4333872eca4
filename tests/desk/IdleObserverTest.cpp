#include "desk/IdleObserver.h"

#include "fakes/TestPlatform.h"

namespace {
struct IdleObserverTest : testing::Test, EventSource {
    [[nodiscard]] double secondsSinceLastEventType(EventType eventType) override
    {
        asked.push_back(int(eventType));
        return asked.size() <= answers.size() ? answers[asked.size() - 1] : 1000;
    }
    void refresh(std::function<void()> ready) override { late = std::move(ready); }

    TestPlatform platform;
    std::vector<double> answers; ///< to the first questions
    std::vector<int> asked; ///< types of event
    std::function<void()> late; ///< tells that the answers are fresh
};
}

TEST_F(IdleObserverTest, combinesTheAnswersWithItsRunningMinimum)
{
    const std::tuple<const char*, std::vector<double>, double> kCases[] = {
        {"the smallest", {50, 7, 30}, 7},
        {"a zero drops the minimum so far", {5, 0, 100}, 100},
        {"two zeros in a row", {5, 0, 0, 60, 80}, 60},
        {"a zero for the fifteenth type stays", {5, 5, 5, 5, 5, 5, 5, 5, 5, 5, 5, 5, 5, 5, 0, 3}, 0},
        {"the sixteenth type does not count", {9, 9, 9, 9, 9, 9, 9, 9, 9, 9, 9, 9, 9, 9, 9, 1}, 9},
    };
    for (const auto& [what, given, expected] : kCases) {
        answers = given;
        asked.clear();
        EXPECT_EQ(IdleObserver(*this).idleTimeInSeconds(), expected) << what;
        EXPECT_EQ(asked, (std::vector {1, 2, 3, 4, 5, 6, 7, 10, 11, 12, 22, 23, 24, 25, 26, 27}));
    }
}

TEST_F(IdleObserverTest, hearsNoAnswerThatComesAfterItsEnd)
{
    auto observer = std::make_unique<IdleObserver>(*this, 170);
    platform.runLoop.advance(10);
    observer.reset();
    late();
    EXPECT_TRUE(asked.empty());
}
