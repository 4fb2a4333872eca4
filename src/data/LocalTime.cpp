#include "data/LocalTime.h"

#include <algorithm>
#include <ctime>

namespace {
/// Seconds east of UTC.
double offset(double instant)
{
    const auto seconds = time_t(instant);
    tm local {};
    localtime_r(&seconds, &local);
    return double(local.tm_gmtoff);
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
    // Two offsets come into question: taken as an instant, yesterday's wall time lies before the wall time in
    // every zone, and tomorrow's after it.
    constexpr double kDay = 86400;
    const auto [smaller, larger] = std::minmax({offset(wallTime - kDay), offset(wallTime + kDay)});
    const double earlier = wallTime - larger;
    return atInstant(earlier) == wallTime ? earlier : wallTime - smaller;
}
