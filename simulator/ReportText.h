#pragma once

#include "simulator/DeskModel.h"

#include <string>

/// How transfers and reports are written for people.

[[nodiscard]] std::string text(TransferResult result);
/// In hexadecimal; of a long report without the zeros at its end.
[[nodiscard]] std::string text(std::span<const uint8_t> report);
