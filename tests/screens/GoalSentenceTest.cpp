#include "screens/GoalSentence.h"

#include "fakes/ControlTest.h"

namespace {
using GoalSentenceTest = ControlTest;
}

TEST_F(GoalSentenceTest, tellsTheMinutesOfEachStandUp)
{
    const std::pair<ChosenGoal, QString> kCases[] = {{{2, 10, 0, 4}, "2,5"}, {{2, 40, 0.5, 1}, "40"},
        {{2, 15, 63, 2}, "7,5"},
        {{1, 200, 63.9, 4}, "8,5"}, // 34 an hour; with the fraction of a kilogram 33.
        {{1, 200, 63.9, 1}, "34"}, {{1, 50, 999, 6}, "0,5"}, {{1, 50, 1, 0}, "60"}, {{1, 200, 0.9, 1}, ""}};
    installTexts(*qApp, QStringLiteral("en"));
    for (const auto& [chosen, minutes] : kCases) {
        const QString expected = QString("That is %1 min on your feet each time you stand up.").arg(minutes);
        EXPECT_EQ(goalSentence(chosen).simplified(), minutes.isEmpty() ? QString() : expected);
    }
}

TEST(GoalSentence, countsInWholeHalves)
{
    const std::tuple<double, int, double> kCases[] = {{10, 6, 1.5}, {10, 0, 10}, {0.99, 1, 0.5}, {1, 1, 1},
        {0.4, 1, 0.5}, {-7, 2, 0.5}, {29.99, 10, 2.5}, {29.999999999, 10, 3}}; // Single precision.
    for (const auto& [goal, standUps, minutes] : kCases)
        EXPECT_EQ(timeOfEachStandUp(goal, standUps), minutes) << goal << " / " << standUps;
}
