#pragma once

/// The user's wall clock, as the C library reads it from TZ or the system's time zone and from the system's
/// zone data. Other libraries carry zone data of their own, which grows old on an updated system. Wall time
/// is seconds since 1970-01-01 00:00 on the wall, instants are seconds since 1970-01-01 UTC.
namespace LocalTime {

/// To be called when TZ or the system's time zone may have changed.
void followTimeZone();
[[nodiscard]] double atInstant(double instant);
/// The first instant at which the wall clock shows the time; where the clocks leave it out, the one at which
/// it would have, had they not changed.
[[nodiscard]] double firstInstant(double wallTime);

}
