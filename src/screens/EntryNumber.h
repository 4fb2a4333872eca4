#pragma once

#include <QString>

#include <cstdint>

// The value of an entry field is the number that its text begins with, written in the decimal digits of any
// script; a text that begins with none has the value 0. The user's locale plays no part.

/// Saturates at the ends of the range.
[[nodiscard]] int32_t integerValue(const QString& text);
/// With a full stop before the decimals. "72.5.1" has the value 72.5.
[[nodiscard]] double decimalValue(const QString& text);
