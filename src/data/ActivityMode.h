#pragma once

#include <cstdint>

/// What the daily goal counts, as the settings file numbers it; 0 stands for "not chosen yet".
enum ActivityMode : int32_t { kCalorieGoal = 1, kTimeGoal = 2 };
