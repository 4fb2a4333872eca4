#pragma once

#include "data/Date.h"

#include <cstdint>

class ActivityPersister;

/// What a day has brought towards the goal, in the goal's own unit: kcal, or minutes on one's feet.
struct GoalProgress {
    int32_t mode = 0; ///< an ActivityMode; with any other number there is no goal
    double value = 0;
    double target = 0; ///< of the whole day
    double percent = 0; ///< at most 100

    [[nodiscard]] static GoalProgress onDay(Date day, ActivityPersister& persister);
};
