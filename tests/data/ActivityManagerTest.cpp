#include "data/ActivityManager.h"

#include <gtest/gtest.h>

TEST(ActivityManager, translatesBetweenStepsAndGoals)
{
    const int32_t kGoals[][5] = {{50, 100, 150, 200, 250}, {10, 15, 20, 30, 40}};
    const ActivityManager manager;
    for (const int32_t mode : {1, 2}) {
        EXPECT_EQ(manager.dictForActivityMode(mode)->size(), 5);
        for (int32_t step = 0; step < 5; ++step) {
            EXPECT_EQ(manager.goalFromIndex(step, mode), kGoals[mode - 1][step]);
            EXPECT_EQ(manager.indexFromGoal(kGoals[mode - 1][step], mode), float(step));
        }
    }
    EXPECT_EQ(manager.goalFromIndex(5, 1) + manager.goalFromIndex(-1, 2) + manager.indexFromGoal(25, 2), 0);
    for (const int32_t mode : {0, 3}) {
        EXPECT_EQ(manager.dictForActivityMode(mode), nullptr);
        EXPECT_EQ(manager.goalFromIndex(1, mode) + manager.indexFromGoal(100, mode), 0);
    }
}
