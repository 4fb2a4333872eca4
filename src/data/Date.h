#pragma once

#include <QString>

#include <cstdint>
#include <optional>

/// Calendar fields of a date in the user's calendar and time zone. Weekdays: 1 = Sunday ... 7 = Saturday.
struct DateComponents {
    int year = 0;
    int month = 0; ///< 1 is the first month
    int day = 0;
    int hour = 0;
    int minute = 0;
    int second = 0;
    int week = 0; ///< week of year
    int yearForWeekOfYear = 0;
    int weekday = 0;
    int weekdayOrdinal = 0; ///< which occurrence of that weekday in the month

    bool operator==(const DateComponents&) const = default;
};

/// An instant, and what the user's calendar says of it. "Adding days" is a fixed step of 86,400 s, so a day
/// across a daylight-saving change ends an hour beside midnight; totals rest on that.
///
/// To the calendar an instant beyond the years 1 to 9999 is the nearest one inside, and one that is not a
/// number is 1970-01-01 UTC.
class Date {
public:
    static constexpr double kMinute = 60;
    static constexpr double kHour = 3600;
    static constexpr double kDay = 86400;
    static constexpr double kWeek = 604800;

    Date() = default;
    explicit Date(double secondsSince1970)
        : m_seconds(secondsSince1970)
    {
    }

    static Date now();
    static Date dateWithDaysFromNow(int64_t days);
    static Date dateWithDaysBeforeNow(int64_t days);
    static Date dateTomorrow();
    static Date dateYesterday();
    static Date dateWithHoursFromNow(int64_t hours);
    static Date dateWithHoursBeforeNow(int64_t hours);
    static Date dateWithMinutesFromNow(int64_t minutes);
    static Date dateWithMinutesBeforeNow(int64_t minutes);
    /// The start of a day of the Gregorian calendar, whose year 2013 is the same for every user.
    static Date dateFromComponents(int year, int month, int day);

    [[nodiscard]] double secondsSince1970() const { return m_seconds; }
    [[nodiscard]] double timeIntervalSinceDate(Date date) const { return m_seconds - date.m_seconds; }
    [[nodiscard]] Date dateByAddingSeconds(double seconds) const { return Date(m_seconds + seconds); }

    [[nodiscard]] bool isEqualToDateIgnoringTime(Date date) const;
    [[nodiscard]] bool isToday() const;
    [[nodiscard]] bool isTomorrow() const;
    [[nodiscard]] bool isYesterday() const;
    [[nodiscard]] bool isSameWeekAsDate(Date date) const;
    [[nodiscard]] bool isThisWeek() const;
    [[nodiscard]] bool isNextWeek() const;
    [[nodiscard]] bool isLastWeek() const;
    [[nodiscard]] bool isSameMonthAsDate(Date date) const;
    [[nodiscard]] bool isThisMonth() const;
    [[nodiscard]] bool isSameYearAsDate(Date date) const;
    [[nodiscard]] bool isThisYear() const;
    [[nodiscard]] bool isNextYear() const;
    [[nodiscard]] bool isLastYear() const;
    [[nodiscard]] bool isEarlierThanDate(Date date) const { return m_seconds < date.m_seconds; }
    [[nodiscard]] bool isLaterThanDate(Date date) const { return m_seconds > date.m_seconds; }
    [[nodiscard]] bool isInFuture() const;
    [[nodiscard]] bool isInPast() const;
    [[nodiscard]] bool isTypicallyWeekend() const;
    [[nodiscard]] bool isTypicallyWorkday() const;

    [[nodiscard]] Date dateByAddingDays(int64_t days) const;
    [[nodiscard]] Date dateBySubtractingDays(int64_t days) const;
    [[nodiscard]] Date dateByAddingHours(int64_t hours) const;
    [[nodiscard]] Date dateBySubtractingHours(int64_t hours) const;
    [[nodiscard]] Date dateByAddingMinutes(int64_t minutes) const;
    [[nodiscard]] Date dateBySubtractingMinutes(int64_t minutes) const;
    [[nodiscard]] Date dateAtStartOfDay() const;
    /// Monday 00:00, whatever the locale's first weekday; where weeks begin on Sunday, a Sunday gives the day
    /// after.
    [[nodiscard]] Date dateAtStartOfWeek() const;
    [[nodiscard]] Date dateAtStartOfMonth() const;
    [[nodiscard]] Date dateAtStartOfYear() const;

    [[nodiscard]] DateComponents componentsWithOffsetFromDate(Date date) const;
    [[nodiscard]] int64_t minutesAfterDate(Date date) const;
    [[nodiscard]] int64_t minutesBeforeDate(Date date) const;
    [[nodiscard]] int64_t hoursAfterDate(Date date) const;
    [[nodiscard]] int64_t hoursBeforeDate(Date date) const;
    [[nodiscard]] int64_t daysAfterDate(Date date) const;
    [[nodiscard]] int64_t daysBeforeDate(Date date) const;
    /// Whole days to the date, counted in the Gregorian calendar even where the user's calendar is another.
    [[nodiscard]] int64_t distanceInDaysToDate(Date date) const;

    /// The hour of half an hour from now; the receiver's own value is not used.
    [[nodiscard]] int nearestHour() const;
    [[nodiscard]] int hour() const;
    [[nodiscard]] int minute() const;
    [[nodiscard]] int seconds() const;
    [[nodiscard]] int day() const;
    [[nodiscard]] int month() const;
    [[nodiscard]] int week() const;
    [[nodiscard]] int weekday() const;
    [[nodiscard]] int nthWeekday() const;
    [[nodiscard]] int year() const;
    [[nodiscard]] QString monthName() const;
    [[nodiscard]] DateComponents components() const;

    friend bool operator==(Date, Date) = default;

private:
    double m_seconds = 0;
};
