#include "data/GoalProgress.h"

#include "data/ActivityMode.h"
#include "data/ActivityPersister.h"
#include "data/AppProperties.h"

#include <cmath>

namespace {
constexpr double kFullScale = 100.0;
}

GoalProgress GoalProgress::onDay(Date day, ActivityPersister& persister)
{
    AppProperties& properties = AppProperties::instance();
    GoalProgress progress {properties.activityMode()};
    if (progress.mode == kCalorieGoal) {
        progress.value = persister.caloriesBurnedOnDay(day);
        progress.target = properties.activityGoal();
    } else if (progress.mode == kTimeGoal) {
        progress.value = persister.minutesActiveOnDay(day, true);
        progress.target = properties.activityGoal() * properties.averageWorkDayHours();
    } else {
        return progress;
    }
    // fmin() takes the number where the other is none: a goal of 0 counts as reached.
    progress.percent = std::fmin(progress.value / progress.target * kFullScale, kFullScale);
    return progress;
}
