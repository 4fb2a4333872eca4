#include "data/ActivityManager.h"
#include "data/AppProperties.h"
#include "data/CalorieCalculator.h"
#include "fakes/TestPlatform.h"

TEST(ActivityManager, translatesBetweenStepsAndGoals)
{
    const QList<int> kGoals[] = {{}, {50, 100, 150, 200, 250}, {10, 15, 20, 30, 40}, {}};
    const ActivityManager manager;
    for (int32_t mode = 0; mode < 4; ++mode) {
        const auto& goals = kGoals[mode];
        EXPECT_EQ(manager.dictForActivityMode(mode) != nullptr, !goals.empty());
        for (int32_t step = -1; step < 6; ++step)
            EXPECT_EQ(manager.goalFromIndex(step, mode), goals.value(step));
        for (const int goal : goals)
            EXPECT_EQ(manager.indexFromGoal(goal, mode), float(goals.indexOf(goal)));
        EXPECT_EQ(manager.indexFromGoal(25, mode), 0);
    }
}

TEST(CalorieCalculator, spreadsADaysCaloriesOverItsHours)
{
    EXPECT_DOUBLE_EQ(CalorieCalculator::caloriesBurnedInMinutes(60, 80), 57.1536);
    EXPECT_NEAR(CalorieCalculator::minutesToBurnCalories(100, 71.5), 117.46, 0.005);
    // Calories, weight, hours of a working day; minutes an hour.
    const std::tuple<double, double, QVariant, int32_t> kCases[] = {{100, 80, 8.0, 14}, {250, 50, 8.0, 53},
        {250, 40, 8.0, 60}, // would be 66
        {100, 80, 4.0, 27}, {100, 80, "4", 27}, {0, 80, 8.0, 0}, {100, 0, 8.0, 60}, // endless
        {0, 0, 8.0, 0}, {100, -80, 8.0, 0}, {100, 80, 25.0, 14}}; // No day is that long: the default counts.
    TestPlatform platform;
    for (const auto& [calories, weight, hours, minutesPerHour] : kCases) {
        platform.defaults.values.insert("AverageWorkDayHours", hours);
        EXPECT_EQ(CalorieCalculator::standingPerHourForDailyCalories(calories, weight), minutesPerHour)
            << calories << " kcal, " << weight << " kg, " << qPrintable(hours.toString()) << " h";
    }
}
