#pragma once

#include <QString>

/// The number with that many decimals, a full stop before them whatever the locale, and an exact half rounded
/// to the even digit: 74.5 gives "74". Qt would round it up.
[[nodiscard]] QString fixed(double value, int decimals);
