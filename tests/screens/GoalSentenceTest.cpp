#include "screens/GoalSentence.h"

#include "fakes/ControlTest.h"

namespace {
using GoalSentenceTest = ControlTest;
}

TEST_F(GoalSentenceTest, tellsTheMinutesOfEachStandUpInWholeHalves)
{
    const std::pair<ChosenGoal, QString> kCases[] = {{{2, 10, 0, 4}, "2,5"}, {{2, 40, 0.5, 1}, "40"},
        {{2, 15, 63, 2}, "7,5"}, {{2, 10, 0, 6}, "1,5"}, {{2, 10, 0, 0}, "10"}, {{2, 0.99, 0, 1}, "0,5"},
        {{2, 1, 0, 1}, "1"}, {{2, -7, 0, 2}, "0,5"}, {{2, 29.99, 0, 10}, "2,5"},
        {{2, 29.999999999, 0, 10}, "3"}, // Single precision.
        {{1, 200, 63.9, 4}, "8,5"}, // 34 an hour; with the fraction of a kilogram 33.
        {{1, 200, 63.9, 1}, "34"}, {{1, 50, 999, 6}, "0,5"}, {{1, 50, 1, 0}, "60"}, {{1, 200, 0.9, 1}, ""}};
    installTexts(*qApp, QStringLiteral("en"));
    for (const auto& [chosen, minutes] : kCases) {
        const QString expected = QString("That is %1 min on your feet each time you stand up.").arg(minutes);
        EXPECT_EQ(goalSentence(chosen).simplified(), minutes.isEmpty() ? QString() : expected);
    }
}
