#pragma once

#include <QString>

#include <cstdint>

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
/// across a daylight-saving change ends an hour beside midnight; totals rest on that. Differences are
/// truncated toward zero.
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
    static Date dateWithDaysFromNow(int64_t days) { return now().dateByAddingDays(days); }
    static Date dateWithDaysBeforeNow(int64_t days) { return now().dateBySubtractingDays(days); }
    static Date dateTomorrow() { return dateWithDaysFromNow(1); }
    static Date dateYesterday() { return dateWithDaysBeforeNow(1); }
    static Date dateWithHoursFromNow(int64_t hours) { return now().dateByAddingHours(hours); }
    static Date dateWithHoursBeforeNow(int64_t hours) { return now().dateBySubtractingHours(hours); }
    static Date dateWithMinutesFromNow(int64_t minutes) { return now().dateByAddingMinutes(minutes); }
    static Date dateWithMinutesBeforeNow(int64_t minutes) { return now().dateBySubtractingMinutes(minutes); }
    /// The start of a day of the Gregorian calendar, whose year 2013 is the same for every user.
    static Date dateFromComponents(int year, int month, int day);

    [[nodiscard]] double secondsSince1970() const { return m_seconds; }
    [[nodiscard]] double timeIntervalSinceDate(Date date) const { return m_seconds - date.m_seconds; }
    [[nodiscard]] Date dateByAddingSeconds(double seconds) const { return Date(m_seconds + seconds); }

    [[nodiscard]] bool isEqualToDateIgnoringTime(Date date) const;
    [[nodiscard]] bool isToday() const { return isEqualToDateIgnoringTime(now()); }
    [[nodiscard]] bool isTomorrow() const { return isEqualToDateIgnoringTime(dateTomorrow()); }
    [[nodiscard]] bool isYesterday() const { return isEqualToDateIgnoringTime(dateYesterday()); }
    [[nodiscard]] bool isSameWeekAsDate(Date date) const;
    [[nodiscard]] bool isThisWeek() const { return isSameWeekAsDate(now()); }
    [[nodiscard]] bool isNextWeek() const { return isSameWeekAsDate(now().dateByAddingSeconds(kWeek)); }
    [[nodiscard]] bool isLastWeek() const { return isSameWeekAsDate(now().dateByAddingSeconds(-kWeek)); }
    [[nodiscard]] bool isSameMonthAsDate(Date date) const;
    [[nodiscard]] bool isThisMonth() const { return isSameMonthAsDate(now()); }
    [[nodiscard]] bool isSameYearAsDate(Date date) const { return year() == date.year(); }
    [[nodiscard]] bool isThisYear() const { return isSameYearAsDate(now()); }
    [[nodiscard]] bool isNextYear() const { return year() == now().year() + 1; }
    [[nodiscard]] bool isLastYear() const { return year() == now().year() - 1; }
    [[nodiscard]] bool isEarlierThanDate(Date date) const { return m_seconds < date.m_seconds; }
    [[nodiscard]] bool isLaterThanDate(Date date) const { return m_seconds > date.m_seconds; }
    [[nodiscard]] bool isInFuture() const { return isLaterThanDate(now()); }
    [[nodiscard]] bool isInPast() const { return isEarlierThanDate(now()); }
    [[nodiscard]] bool isTypicallyWeekend() const;
    [[nodiscard]] bool isTypicallyWorkday() const { return !isTypicallyWeekend(); }

    [[nodiscard]] Date dateByAddingDays(int64_t days) const
    {
        return dateByAddingSeconds(double(days) * kDay);
    }
    [[nodiscard]] Date dateBySubtractingDays(int64_t days) const { return dateByAddingDays(-days); }
    [[nodiscard]] Date dateByAddingHours(int64_t hours) const
    {
        return dateByAddingSeconds(double(hours) * kHour);
    }
    [[nodiscard]] Date dateBySubtractingHours(int64_t hours) const { return dateByAddingHours(-hours); }
    [[nodiscard]] Date dateByAddingMinutes(int64_t minutes) const
    {
        return dateByAddingSeconds(double(minutes) * kMinute);
    }
    [[nodiscard]] Date dateBySubtractingMinutes(int64_t minutes) const
    {
        return dateByAddingMinutes(-minutes);
    }
    [[nodiscard]] Date dateAtStartOfDay() const;
    /// Monday 00:00, whatever the locale's first weekday. Where weeks begin on Sunday, a Sunday gives the
    /// Monday after it.
    [[nodiscard]] Date dateAtStartOfWeek() const;
    [[nodiscard]] Date dateAtStartOfMonth() const;
    [[nodiscard]] Date dateAtStartOfYear() const;

    [[nodiscard]] DateComponents componentsWithOffsetFromDate(Date date) const;
    [[nodiscard]] int64_t minutesAfterDate(Date date) const
    {
        return int64_t(timeIntervalSinceDate(date) / kMinute);
    }
    [[nodiscard]] int64_t minutesBeforeDate(Date date) const { return date.minutesAfterDate(*this); }
    [[nodiscard]] int64_t hoursAfterDate(Date date) const
    {
        return int64_t(timeIntervalSinceDate(date) / kHour);
    }
    [[nodiscard]] int64_t hoursBeforeDate(Date date) const { return date.hoursAfterDate(*this); }
    [[nodiscard]] int64_t daysAfterDate(Date date) const
    {
        return int64_t(timeIntervalSinceDate(date) / kDay);
    }
    [[nodiscard]] int64_t daysBeforeDate(Date date) const { return date.daysAfterDate(*this); }
    /// Whole days to the date; in the Gregorian calendar, so that they are the same for every user.
    [[nodiscard]] int64_t distanceInDaysToDate(Date date) const;

    /// The hour of half an hour from now: the present is what is rounded, not the receiver.
    [[nodiscard]] int nearestHour() const { return now().dateByAddingSeconds(kHour / 2).hour(); }
    [[nodiscard]] int hour() const { return components().hour; }
    [[nodiscard]] int minute() const { return components().minute; }
    /// In the plural, unlike minute() and hour(): "second" is also the one after the first.
    [[nodiscard]] int seconds() const { return components().second; }
    [[nodiscard]] int day() const { return components().day; }
    [[nodiscard]] int month() const { return components().month; }
    [[nodiscard]] int week() const { return components().week; }
    [[nodiscard]] int weekday() const { return components().weekday; }
    [[nodiscard]] int nthWeekday() const { return components().weekdayOrdinal; }
    [[nodiscard]] int year() const { return components().year; }
    [[nodiscard]] QString monthName() const;
    [[nodiscard]] DateComponents components() const;

    friend bool operator==(Date, Date) = default;

private:
    double m_seconds = 0;
};
