#include "data/AppProperties.h"
#include "data/CalorieCalculator.h"
#include "data/Helper.h"
#include "fakes/TestPlatform.h"

TEST(Helper, convertsByFactorsThatAreRoundedApart)
{
    // The locale; 71.5 kg and 176.4 units of weight, 100 cm and 10 units of length; the unit; heights of the
    // millimetres below.
    const std::tuple<const char*, QList<double>, const char*, const char*> kCases[] = {
        {"de_DE", {71.5, 176.4, 100, 10}, "Centimeter", "73 74 74 75 74 0 0 6554"},
        {"en_US", {71.5 * 2.205, 176.4 * 0.454, 39.3701, 25.4}, "Inches",
            "28.6 29.3 28.9 29.3 29.3 0.0 0.0 2580.1"},
    };
    TestPlatform platform;
    AppProperties::instance().setIsMetric(true); // What is said there counts for nothing: the locale does.
    for (const auto& [locale, values, unit, expected] : kCases) {
        platform.bundle.userLocale = QLocale(locale);
        EXPECT_EQ((QList<double> {Helper::kiloToSystemUnit(71.5), Helper::systemUnitToKilo(176.4),
                      Helper::cmToSystemUnit(100), Helper::systemUnitToCm(10)}),
            values);
        EXPECT_EQ(Helper::TableHeightUnit(), unit); // A key without a text answers itself.
        QStringList heights;
        // An exact half goes to the even digit; 74.5001 cm is rounded to 74.500 before.
        for (const double millimetres : {726.0, 745.0, 735.0, 745.1, 745.001, 0.0, -10.0, 65535.0})
            heights.append(Helper::formattedTableHeight(millimetres));
        EXPECT_EQ(heights.join(' '), expected);
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
