#pragma once

#include <QString>

#include <cstdint>

/// A goal as it stands on the setup screen.
struct ChosenGoal {
    int32_t activityMode = 0; ///< 1 calories, 2 time
    double goal = 0; ///< kcal a day, or standing minutes an hour
    double kilograms = 0; ///< whole ones count, and for calories only
    int32_t standUps = 0; ///< an hour
};

/// Says in the user's language how long each stand-up has to last for the goal. Without a weight nothing is
/// known of calories, and the sentence is empty.
[[nodiscard]] QString goalSentence(const ChosenGoal& chosen);

/// Minutes in whole halves, rounded down; half a minute at least. Without stand-ups all of the goal.
/// @param goal standing minutes an hour
[[nodiscard]] double timeOfEachStandUp(double goal, int32_t standUps);
