#include "data/LocalTime.h"

#include <algorithm>
#include <cmath>
#include <ctime>

namespace {
constexpr double kDay = 86400;

/// Seconds east of UTC.
double offset(double instant)
{
    const auto seconds = time_t(instant);
    tm local {};
    localtime_r(&seconds, &local);
    return double(local.tm_gmtoff);
}

/// The first whole second with the offset that holds at `after` but not at `before`.
double changeOfOffset(double before, double after)
{
    const double offsetAfter = offset(after);
    before = std::floor(before);
    while (after - before > 1) {
        const double middle = std::floor((before + after) / 2);
        (offset(middle) == offsetAfter ? after : before) = middle;
    }
    return std::floor(after);
}
}

void LocalTime::followTimeZone()
{
    tzset();
}

double LocalTime::atInstant(double instant)
{
    return instant + offset(instant);
}

double LocalTime::firstInstant(double wallTime)
{
    // Taken as an instant, yesterday's wall time lies some hours before the wall time, in every zone.
    const double yesterday = wallTime - kDay;
    const double offsetBefore = offset(yesterday);
    const double instant = wallTime - offsetBefore;
    const double offsetThen = offset(instant);
    if (offsetThen == offsetBefore)
        return instant;
    return std::max(changeOfOffset(yesterday, instant), wallTime - offsetThen);
}
