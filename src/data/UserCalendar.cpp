#include "data/UserCalendar.h"

#include "data/IcuLocale.h"
#include "data/LocalTime.h"
#include "platform/Bundle.h"
#include "platform/ProcessServices.h"
#include "platform/RunLoop.h"

#include <cmath>
#include <unicode/dtfmtsym.h>
#include <unicode/gregocal.h>
#include <unicode/timezone.h>

namespace {
constexpr double kMillisecondsPerSecond = 1000;
constexpr double kFollowZoneSeconds = 1;

double wallMilliseconds(double instant)
{
    return LocalTime::atInstant(instant) * kMillisecondsPerSecond;
}

/// A day starts with its first instant, which is not 00:00 where the clocks leave that out.
double startOfWallDay(double wallTime)
{
    return LocalTime::firstInstant(std::floor(wallTime / Date::kDay) * Date::kDay);
}

double wallTime(const icu::Calendar& calendar)
{
    UErrorCode status = U_ZERO_ERROR;
    return calendar.getTime(status) / kMillisecondsPerSecond;
}
}

/// The kept calendar. The locale's name is compared at each question; the time zone, whose file the C library
/// has to look at, is followed once a second at most. The clock for that counts sleep: a traveller's machine
/// wakes up in another zone.
struct UserCalendar::Kept {
    std::unique_ptr<UserCalendar> calendar;
    QString localeName;
    double followZoneAt = 0;
};

UserCalendar& UserCalendar::current()
{
    auto& kept = ProcessServices::installed().shared<Kept>();
    const double now = RunLoop::main().bootTimeNow();
    if (now >= kept.followZoneAt) {
        kept.followZoneAt = now + kFollowZoneSeconds;
        LocalTime::followTimeZone();
    }
    const QString localeName = Bundle::main().calendarLocaleName();
    if (!kept.calendar || localeName != kept.localeName) {
        kept.localeName = localeName;
        kept.calendar.reset(new UserCalendar(icuLocale(localeName)));
    }
    return *kept.calendar;
}

UserCalendar::UserCalendar(const icu::Locale& locale)
    : m_locale(locale)
{
    UErrorCode status = U_ZERO_ERROR;
    const icu::TimeZone& utc = *icu::TimeZone::getGMT();
    m_calendar.reset(icu::Calendar::createInstance(utc, locale, status));
    m_gregorian = std::make_unique<icu::GregorianCalendar>(utc, locale, status);
    Q_ASSERT(U_SUCCESS(status));
}

void UserCalendar::moveTo(double instant)
{
    UErrorCode status = U_ZERO_ERROR;
    m_calendar->setTime(wallMilliseconds(instant), status);
}

int UserCalendar::field(UCalendarDateFields field) const
{
    UErrorCode status = U_ZERO_ERROR;
    return m_calendar->get(field, status);
}

DateComponents UserCalendar::components(double instant)
{
    moveTo(instant);
    return {
        .year = field(UCAL_YEAR),
        .month = field(UCAL_MONTH) + 1,
        .day = field(UCAL_DATE),
        .hour = field(UCAL_HOUR_OF_DAY),
        .minute = field(UCAL_MINUTE),
        .second = field(UCAL_SECOND),
        .week = field(UCAL_WEEK_OF_YEAR),
        .yearForWeekOfYear = field(UCAL_YEAR_WOY),
        .weekday = field(UCAL_DAY_OF_WEEK),
        .weekdayOrdinal = field(UCAL_DAY_OF_WEEK_IN_MONTH),
    };
}

DateComponents UserCalendar::difference(double fromInstant, double toInstant)
{
    moveTo(fromInstant);
    const double start = wallTime(*m_calendar);
    const double end = wallMilliseconds(toInstant);
    // Each call moves the calendar on by the steps it counted, so what is left goes to the next field.
    const auto steps = [&](UCalendarDateFields field) {
        UErrorCode status = U_ZERO_ERROR;
        return m_calendar->fieldDifference(end, field, status);
    };
    DateComponents result;
    result.year = steps(UCAL_YEAR);
    result.month = steps(UCAL_MONTH);
    result.week = steps(UCAL_WEEK_OF_YEAR);
    result.day = steps(UCAL_DATE);
    // What is left is time that passed, whatever the clocks on the wall did meanwhile.
    const double reached = wallTime(*m_calendar);
    const double from = reached == start ? fromInstant : LocalTime::firstInstant(reached);
    const int rest = int(toInstant - from);
    result.hour = rest / 3600;
    result.minute = rest % 3600 / 60;
    result.second = rest % 60;
    return result; // Weekdays are days too: none is left for them.
}

int64_t UserCalendar::gregorianDays(double fromInstant, double toInstant)
{
    UErrorCode status = U_ZERO_ERROR;
    m_gregorian->setTime(wallMilliseconds(fromInstant), status);
    return m_gregorian->fieldDifference(wallMilliseconds(toInstant), UCAL_DATE, status);
}

double UserCalendar::startOfDay(double instant)
{
    return startOfWallDay(LocalTime::atInstant(instant));
}

double UserCalendar::startOfWeek(double instant)
{
    constexpr int kDaysPerWeek = 7;
    moveTo(instant);
    UErrorCode status = U_ZERO_ERROR;
    const int firstWeekday = m_calendar->getFirstDayOfWeek(status);
    const auto placeInWeek = [&](int weekday) {
        return (weekday - firstWeekday + kDaysPerWeek) % kDaysPerWeek;
    };
    const int days = placeInWeek(UCAL_MONDAY) - placeInWeek(field(UCAL_DAY_OF_WEEK));
    return startOfWallDay(LocalTime::atInstant(instant) + days * Date::kDay);
}

double UserCalendar::startOfMonth(double instant)
{
    moveTo(instant);
    m_calendar->set(UCAL_DATE, 1);
    return startOfWallDay(wallTime(*m_calendar));
}

double UserCalendar::startOfYear(double instant)
{
    moveTo(instant);
    m_calendar->set(UCAL_MONTH, 0);
    m_calendar->set(UCAL_IS_LEAP_MONTH, 0); // In the Chinese calendar a month may come twice.
    m_calendar->set(UCAL_DATE, 1);
    return startOfWallDay(wallTime(*m_calendar));
}

double UserCalendar::gregorianDay(int year, int month, int day)
{
    m_gregorian->set(year, month - 1, day);
    return startOfWallDay(wallTime(*m_gregorian));
}

QString UserCalendar::monthName(int month) const
{
    UErrorCode status = U_ZERO_ERROR;
    const icu::DateFormatSymbols symbols(m_locale, m_calendar->getType(), status);
    int32_t count = 0;
    // The form for a name that stands alone: several languages inflect it beside a day.
    const icu::UnicodeString* names =
        symbols.getMonths(count, icu::DateFormatSymbols::STANDALONE, icu::DateFormatSymbols::WIDE);
    const icu::UnicodeString& name = names[month - 1];
    return QString::fromUtf16(name.getBuffer(), name.length());
}
