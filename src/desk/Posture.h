#pragma once

#include <cstdint>

/// Where the desk is and where its user should take it, as adapters, timers and reminders number it. The
/// state of a desk whose height is not known yet is none of these: 0.
enum Posture : int32_t { kStanding = 1, kSitting = 2 };
