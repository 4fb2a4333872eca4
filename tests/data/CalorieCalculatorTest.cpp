#include "data/CalorieCalculator.h"

#include "data/AppProperties.h"
#include "fakes/TestPlatform.h"

#include <cmath>
#include <gtest/gtest.h>

namespace {
class CalorieCalculatorTest : public testing::Test {
protected:
    CalorieCalculatorTest() { AppProperties::resetInstance(); }
    ~CalorieCalculatorTest() override { AppProperties::resetInstance(); }

    TestPlatform platform;
};
}

TEST_F(CalorieCalculatorTest, convertsBetweenMinutesAndCalories)
{
    EXPECT_DOUBLE_EQ(CalorieCalculator::caloriesBurnedInMinutes(60, 80), 57.1536);
    EXPECT_NEAR(CalorieCalculator::minutesToBurnCalories(100, 80), 104.98, 0.005);
    EXPECT_EQ(CalorieCalculator::caloriesBurnedInMinutes(60, 0), 0);
    EXPECT_TRUE(std::isinf(CalorieCalculator::minutesToBurnCalories(100, 0)));
}

TEST_F(CalorieCalculatorTest, spreadsADaysCaloriesOverItsHours)
{
    constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
    const struct {
        double calories;
        double weight;
        QVariant workDayHours;
        int32_t minutesPerHour;
    } kTestCases[] = {
        {100, 80, 8.0, 14}, {250, 50, 8.0, 53}, {250, 40, 8.0, 60}, // would be 66
        {100, 80, 4.0, 27}, {100, 80, QStringLiteral("4"), 27}, {0, 80, 8.0, 0}, {100, 0, 8.0, 60}, // endless
        {0, 0, 8.0, 0}, {1e300, 1e-300, 8.0, 60}, {kNan, 80, 8.0, 0}, {100, -80, 8.0, 0},
        {100, 80, 25.0, 14}, // No day is that long: the default counts.
    };
    for (const auto& [calories, weight, workDayHours, minutesPerHour] : kTestCases) {
        SCOPED_TRACE(testing::Message()
            << calories << " kcal, " << weight << " kg, " << qPrintable(workDayHours.toString()) << " h");
        platform.defaults.values.insert(QStringLiteral("AverageWorkDayHours"), workDayHours);
        EXPECT_EQ(CalorieCalculator::standingPerHourForDailyCalories(calories, weight), minutesPerHour);
    }
}
