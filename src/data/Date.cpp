#include "data/Date.h"

#include "data/UserCalendar.h"
#include "platform/RunLoop.h"

#include <cmath>

Date Date::now()
{
    return Date(RunLoop::main().now());
}

Date Date::dateFromComponents(int year, int month, int day)
{
    return Date(UserCalendar::current().gregorianDay(year, month, day));
}

bool Date::isEqualToDateIgnoringTime(Date date) const
{
    return isSameMonthAsDate(date) && day() == date.day();
}

bool Date::isSameWeekAsDate(Date date) const
{
    return week() == date.week() && std::abs(std::trunc(timeIntervalSinceDate(date))) < kWeek;
}

bool Date::isSameMonthAsDate(Date date) const
{
    return isSameYearAsDate(date) && month() == date.month();
}

bool Date::isTypicallyWeekend() const
{
    constexpr int kSunday = 1;
    constexpr int kSaturday = 7;
    const int day = weekday();
    return day == kSunday || day == kSaturday;
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

int64_t Date::distanceInDaysToDate(Date date) const
{
    return UserCalendar::current().gregorianDays(m_seconds, date.m_seconds);
}

QString Date::monthName() const
{
    return UserCalendar::current().monthName(month());
}

DateComponents Date::components() const
{
    return UserCalendar::current().components(m_seconds);
}
