#include "data/ActivityPeriod.h"

bool ActivityPeriod::meets(Date fromDate, Date toDate, std::optional<bool> withPosture) const
{
    const double start = startDate.secondsSince1970();
    const double end = endDate.secondsSince1970();
    const double from = fromDate.secondsSince1970();
    const double to = toDate.secondsSince1970();
    const bool hasPosture = !withPosture || *withPosture == isStanding;
    return (hasPosture && start >= from && end < to) || (start <= from && end >= from)
        || (start < to && end > to);
}

double ActivityPeriod::secondsInside(Date fromDate, Date toDate) const
{
    const Date start = startDate.isLaterThanDate(fromDate) ? startDate : fromDate;
    const Date end = endDate.isLaterThanDate(toDate) ? toDate : endDate;
    return end.timeIntervalSinceDate(start);
}
