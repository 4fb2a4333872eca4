#include "screens/GoalSentence.h"

#include "data/ActivityMode.h"
#include "data/CalorieCalculator.h"
#include "data/Saturation.h"
#include "platform/Bundle.h"

#include <algorithm>
#include <cmath>

namespace {
constexpr double kShortestStandUp = 0.5;
}

QString goalSentence(const ChosenGoal& chosen)
{
    double goal = chosen.goal;
    if (chosen.activityMode == kCalorieGoal) {
        const auto kilograms = saturated<int32_t>(chosen.kilograms);
        if (kilograms == 0)
            return {};
        goal = CalorieCalculator::standingPerHourForDailyCalories(goal, kilograms);
    }
    const double minutes = timeOfEachStandUp(goal, chosen.standUps);
    const int decimals = minutes == std::trunc(minutes) ? 0 : 1;
    return qtTrId("SliderText").arg(Bundle::main().locale().toString(minutes, 'f', decimals));
}

double timeOfEachStandUp(double goal, int32_t standUps)
{
    const auto minutes = float(standUps != 0 ? goal / standUps : goal);
    return std::max(std::floor(2 * double(minutes)) * 0.5, kShortestStandUp);
}
