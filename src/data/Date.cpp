#include "data/Date.h"

#include "data/Saturation.h"
#include "data/UserCalendar.h"
#include "platform/RunLoop.h"

#include <cmath>

namespace {
int64_t wholeUnits(double seconds, double unitSeconds)
{
    return saturated<int64_t>(seconds / unitSeconds);
}
}

Date Date::now()
{
    return Date(RunLoop::main().now());
}

Date Date::dateWithDaysFromNow(int64_t days)
{
    return now().dateByAddingDays(days);
}

Date Date::dateWithDaysBeforeNow(int64_t days)
{
    return now().dateBySubtractingDays(days);
}

Date Date::dateTomorrow()
{
    return dateWithDaysFromNow(1);
}

Date Date::dateYesterday()
{
    return dateWithDaysBeforeNow(1);
}

Date Date::dateWithHoursFromNow(int64_t hours)
{
    return now().dateByAddingHours(hours);
}

Date Date::dateWithHoursBeforeNow(int64_t hours)
{
    return now().dateBySubtractingHours(hours);
}

Date Date::dateWithMinutesFromNow(int64_t minutes)
{
    return now().dateByAddingMinutes(minutes);
}

Date Date::dateWithMinutesBeforeNow(int64_t minutes)
{
    return now().dateBySubtractingMinutes(minutes);
}

Date Date::dateFromComponents(int year, int month, int day)
{
    return Date(UserCalendar::current().gregorianDay(year, month, day));
}

bool Date::isEqualToDateIgnoringTime(Date date) const
{
    const DateComponents mine = components();
    const DateComponents other = date.components();
    return mine.year == other.year && mine.month == other.month && mine.day == other.day;
}

bool Date::isToday() const
{
    return isEqualToDateIgnoringTime(now());
}

bool Date::isTomorrow() const
{
    return isEqualToDateIgnoringTime(dateTomorrow());
}

bool Date::isYesterday() const
{
    return isEqualToDateIgnoringTime(dateYesterday());
}

bool Date::isSameWeekAsDate(Date date) const
{
    return week() == date.week() && std::abs(std::trunc(timeIntervalSinceDate(date))) < kWeek;
}

bool Date::isThisWeek() const
{
    return isSameWeekAsDate(now());
}

bool Date::isNextWeek() const
{
    return isSameWeekAsDate(now().dateByAddingSeconds(kWeek));
}

bool Date::isLastWeek() const
{
    return isSameWeekAsDate(now().dateByAddingSeconds(-kWeek));
}

bool Date::isSameMonthAsDate(Date date) const
{
    const DateComponents mine = components();
    const DateComponents other = date.components();
    return mine.month == other.month && mine.year == other.year;
}

bool Date::isThisMonth() const
{
    return isSameMonthAsDate(now());
}

bool Date::isSameYearAsDate(Date date) const
{
    return year() == date.year();
}

bool Date::isThisYear() const
{
    return isSameYearAsDate(now());
}

bool Date::isNextYear() const
{
    return year() == now().year() + 1;
}

bool Date::isLastYear() const
{
    return year() == now().year() - 1;
}

bool Date::isInFuture() const
{
    return isLaterThanDate(now());
}

bool Date::isInPast() const
{
    return isEarlierThanDate(now());
}

bool Date::isTypicallyWeekend() const
{
    constexpr int kSunday = 1;
    constexpr int kSaturday = 7;
    const int day = weekday();
    return day == kSunday || day == kSaturday;
}

bool Date::isTypicallyWorkday() const
{
    return !isTypicallyWeekend();
}

Date Date::dateByAddingDays(int64_t days) const
{
    return dateByAddingSeconds(double(days) * kDay);
}

Date Date::dateBySubtractingDays(int64_t days) const
{
    return dateByAddingSeconds(-double(days) * kDay);
}

Date Date::dateByAddingHours(int64_t hours) const
{
    return dateByAddingSeconds(double(hours) * kHour);
}

Date Date::dateBySubtractingHours(int64_t hours) const
{
    return dateByAddingSeconds(-double(hours) * kHour);
}

Date Date::dateByAddingMinutes(int64_t minutes) const
{
    return dateByAddingSeconds(double(minutes) * kMinute);
}

Date Date::dateBySubtractingMinutes(int64_t minutes) const
{
    return dateByAddingSeconds(-double(minutes) * kMinute);
}

Date Date::dateAtStartOfDay() const
{
    return Date(UserCalendar::current().startOfDay(m_seconds));
}

Date Date::dateAtStartOfWeek() const
{
    return Date(UserCalendar::current().startOfWeek(m_seconds));
}

Date Date::dateAtStartOfMonth() const
{
    return Date(UserCalendar::current().startOfMonth(m_seconds));
}

Date Date::dateAtStartOfYear() const
{
    return Date(UserCalendar::current().startOfYear(m_seconds));
}

DateComponents Date::componentsWithOffsetFromDate(Date date) const
{
    return UserCalendar::current().difference(date.m_seconds, m_seconds);
}

int64_t Date::minutesAfterDate(Date date) const
{
    return wholeUnits(timeIntervalSinceDate(date), kMinute);
}

int64_t Date::minutesBeforeDate(Date date) const
{
    return date.minutesAfterDate(*this);
}

int64_t Date::hoursAfterDate(Date date) const
{
    return wholeUnits(timeIntervalSinceDate(date), kHour);
}

int64_t Date::hoursBeforeDate(Date date) const
{
    return date.hoursAfterDate(*this);
}

int64_t Date::daysAfterDate(Date date) const
{
    return wholeUnits(timeIntervalSinceDate(date), kDay);
}

int64_t Date::daysBeforeDate(Date date) const
{
    return date.daysAfterDate(*this);
}

int64_t Date::distanceInDaysToDate(Date date) const
{
    return UserCalendar::current().gregorianDays(m_seconds, date.m_seconds);
}

int Date::nearestHour() const
{
    constexpr double kHalfHour = 1800;
    return now().dateByAddingSeconds(kHalfHour).hour();
}

int Date::hour() const
{
    return components().hour;
}

int Date::minute() const
{
    return components().minute;
}

int Date::seconds() const
{
    return components().second;
}

int Date::day() const
{
    return components().day;
}

int Date::month() const
{
    return components().month;
}

int Date::week() const
{
    return components().week;
}

int Date::weekday() const
{
    return components().weekday;
}

int Date::nthWeekday() const
{
    return components().weekdayOrdinal;
}

int Date::year() const
{
    return components().year;
}

QString Date::monthName() const
{
    return UserCalendar::current().monthName(month());
}

DateComponents Date::components() const
{
    return UserCalendar::current().components(m_seconds);
}
