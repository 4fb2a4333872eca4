#include "data/CalorieCalculator.h"

#include "data/AppProperties.h"
#include "data/Helper.h"
#include "data/Saturation.h"

#include <algorithm>
#include <cmath>

namespace {
constexpr double kCaloriesPerPoundAndMinute = 0.0054;
constexpr int32_t kMinutesPerHour = 60;
}

double CalorieCalculator::caloriesBurnedInMinutes(double minutes, double withWeight)
{
    return minutes * (withWeight * Helper::kPoundsPerKilogram) * kCaloriesPerPoundAndMinute;
}

double CalorieCalculator::minutesToBurnCalories(double calories, double withWeight)
{
    return calories / (withWeight * Helper::kPoundsPerKilogram * kCaloriesPerPoundAndMinute);
}

int32_t CalorieCalculator::standingPerHourForDailyCalories(double calories, double withWeight)
{
    const double minutes = minutesToBurnCalories(calories, withWeight);
    const double perHour = std::ceil(minutes / AppProperties::instance().averageWorkDayHours());
    // Endless for a weight or a working day of 0; negative only where a stored setting is nonsense.
    return std::clamp(saturated<int32_t>(perHour), 0, kMinutesPerHour);
}
