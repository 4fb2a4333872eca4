#pragma once

#include "data/Date.h"

#include <optional>

/// The values of a period that the totals need, without the identity of its record.
struct ActivityPeriod {
    Date startDate;
    Date endDate;
    bool isStanding = false;

    /// Whether the period lies inside [fromDate, toDate), covers fromDate or covers toDate. The posture is
    /// asked of periods that lie inside only, never of those that cover an end: shown totals rest on it.
    [[nodiscard]] bool meets(Date fromDate, Date toDate, std::optional<bool> withPosture) const;

    /// Seconds of the period inside the interval; negative for a period that does not meet it.
    [[nodiscard]] double secondsInside(Date fromDate, Date toDate) const;

    bool operator==(const ActivityPeriod&) const = default;
};
