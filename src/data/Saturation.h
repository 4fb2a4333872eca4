#pragma once

#include <cmath>
#include <limits>

/// The number truncated toward zero to an integer type. What lies outside the type's range gives the range's
/// end, and what is not a number gives 0: stored numbers may be anything, and a plain conversion of such a
/// value has no defined result.
template <typename Integer>
[[nodiscard]] Integer saturated(double value)
{
    using Limits = std::numeric_limits<Integer>;
    if (std::isnan(value))
        return 0;
    // The largest 64-bit integer is no double, its rounded neighbour is: the cast stays defined.
    if (value >= static_cast<double>(Limits::max()))
        return Limits::max();
    if (value <= static_cast<double>(Limits::min()))
        return Limits::min();
    return static_cast<Integer>(value);
}
