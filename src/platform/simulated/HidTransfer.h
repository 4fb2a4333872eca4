#pragma once

#include "platform/HidMailbox.h"

#include <cstdint>
#include <vector>

/// One feature report that went over the wire, or failed to.
struct HidTransfer {
    using Direction = HidMailbox::Direction;

    double seconds; ///< when it began on the run loop's wall clock, since 1970-01-01 UTC
    double duration;
    Direction direction;
    /// Byte 0 is the report ID. Written: as handed over; read: the buffer after the read.
    std::vector<uint8_t> bytes;
    HidStatus status;
};
