#include "data/ActivityManager.h"
#include "data/AppProperties.h"
#include "data/CalorieCalculator.h"
#include "fakes/TestPlatform.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

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

TEST(CalorieCalculator, spreadsADaysCaloriesOverItsHours)
{
    EXPECT_DOUBLE_EQ(CalorieCalculator::caloriesBurnedInMinutes(60, 80), 57.1536);
    EXPECT_NEAR(CalorieCalculator::minutesToBurnCalories(100, 80), 104.98, 0.005);
    EXPECT_TRUE(std::isinf(CalorieCalculator::minutesToBurnCalories(100, 0)));
    const struct {
        double calories, weight;
        QVariant workDayHours;
        int32_t minutesPerHour;
    } kCases[] = {{100, 80, 8.0, 14}, {250, 50, 8.0, 53}, {250, 40, 8.0, 60}, // would be 66
        {100, 80, 4.0, 27}, {100, 80, "4", 27}, {0, 80, 8.0, 0}, {100, 0, 8.0, 60}, // endless
        {0, 0, 8.0, 0}, {1e300, 1e-300, 8.0, 60}, {std::nan(""), 80, 8.0, 0}, {100, -80, 8.0, 0},
        {100, 80, 25.0, 14}}; // No day is that long: the default counts.
    TestPlatform platform;
    for (const auto& [calories, weight, hours, minutesPerHour] : kCases) {
        platform.defaults.values.insert("AverageWorkDayHours", hours);
        EXPECT_EQ(CalorieCalculator::standingPerHourForDailyCalories(calories, weight), minutesPerHour)
            << calories << " kcal, " << weight << " kg, " << qPrintable(hours.toString()) << " h";
    }
}
