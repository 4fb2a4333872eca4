#pragma once

#include "data/Date.h"

#include <QString>

#include <cstdint>
#include <memory>
#include <unicode/calendar.h>

/// The user's calendar in the user's time zone, which Date asks. A new one costs as much as a hundred
/// questions, so one is kept, and remade when the locale or the time zone is another than before.
///
/// Instants are seconds since 1970-01-01 UTC. Main thread only.
class UserCalendar {
public:
    static UserCalendar& current();

    [[nodiscard]] DateComponents components(double instant);
    /// The calendar steps from one instant to the other, the longest ones first; negative back in time.
    [[nodiscard]] DateComponents difference(double fromInstant, double toInstant);
    [[nodiscard]] int64_t gregorianDays(double fromInstant, double toInstant);

    [[nodiscard]] double startOfDay(double instant);
    [[nodiscard]] double startOfWeek(double instant);
    [[nodiscard]] double startOfMonth(double instant);
    [[nodiscard]] double startOfYear(double instant);
    /// The start of a day of the Gregorian calendar.
    [[nodiscard]] double gregorianDay(int year, int month, int day);

    /// The full name of a month, 1 being the first.
    [[nodiscard]] QString monthName(int month) const;

private:
    struct Kept;
    explicit UserCalendar(const icu::Locale& locale);

    void moveTo(double instant);
    [[nodiscard]] int field(UCalendarDateFields field) const;

    icu::Locale m_locale;
    // Both count wall time as if it were UTC: ICU's own zone data may be years older than the system's.
    std::unique_ptr<icu::Calendar> m_calendar;
    std::unique_ptr<icu::Calendar> m_gregorian;
};
