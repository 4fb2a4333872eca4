#pragma once

#include <cstdint>

/// Standing minutes, calories and body weight. Standing burns 0.0054 kcal a pound a minute.
class CalorieCalculator {
public:
    static double caloriesBurnedInMinutes(double minutes, double withWeight);
    /// Endless for a weight of 0.
    static double minutesToBurnCalories(double calories, double withWeight);
    /// Standing minutes an hour (0 to 60) that burn the calories in one average working day.
    static int32_t standingPerHourForDailyCalories(double calories, double withWeight);
};
