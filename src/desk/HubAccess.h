#pragma once

#include "desk/ZelvoController.h"

#include <cstdint>

// What the windows ask of the one desk hub, which may not exist yet.

/// The hub, or null before it has been started.
[[nodiscard]] ZelvoController* hub();
/// The adopted desk, or null.
[[nodiscard]] ZelvoHIDDevice* device();
/// Raw height and table offset together, in whole millimetres (truncated toward zero); the offset alone
/// without a desk.
[[nodiscard]] int64_t deskHeightMillimetres();
