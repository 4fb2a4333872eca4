#include "data/ActivityManager.h"

#include <gtest/gtest.h>

TEST(ActivityManager, translatesBetweenStepsAndGoals)
{
    const struct {
        int32_t mode;
        int32_t step;
        int32_t goal;
    } kTestCases[] = {
        {1, 0, 50},
        {1, 1, 100},
        {1, 2, 150},
        {1, 3, 200},
        {1, 4, 250},
        {2, 0, 10},
        {2, 1, 15},
        {2, 2, 20},
        {2, 3, 30},
        {2, 4, 40},
    };
    const ActivityManager manager;
    for (const auto& [mode, step, goal] : kTestCases) {
        SCOPED_TRACE(testing::Message() << "mode " << mode << ", step " << step);
        EXPECT_EQ(manager.goalFromIndex(step, mode), goal);
        EXPECT_EQ(manager.indexFromGoal(goal, mode), float(step));
        EXPECT_EQ(manager.dictForActivityMode(mode)->size(), 5);
    }
}

TEST(ActivityManager, answersZeroForUnknownStepsGoalsAndModes)
{
    const ActivityManager manager;
    EXPECT_EQ(manager.goalFromIndex(7, 1), 0);
    EXPECT_EQ(manager.goalFromIndex(-1, 2), 0);
    EXPECT_EQ(manager.indexFromGoal(25, 2), 0);
    for (const int32_t mode : {0, 3, -1}) {
        EXPECT_EQ(manager.dictForActivityMode(mode), nullptr);
        EXPECT_EQ(manager.goalFromIndex(1, mode), 0);
        EXPECT_EQ(manager.indexFromGoal(100, mode), 0);
    }
}
