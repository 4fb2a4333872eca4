#include "data/Date.h"

#include "fakes/TestPlatform.h"

#include <QDateTime>
#include <QTimeZone>

namespace {
/// A date's calendar in a zone that the test chooses, as a user's session would, and in its locale.
struct DateTest : testing::Test {
    DateTest() { useZone("UTC"); }
    ~DateTest() override { qputenv("TZ", m_zoneBefore); }

    void useZone(const QString& name)
    {
        qputenv("TZ", name.toUtf8());
        m_zone = QTimeZone(name.toUtf8());
        platform.runLoop.advance(1);
    }
    void useLocale(const QString& name) { platform.bundle.userCalendar = name; }
    /// The instant that a wall clock in this zone shows as "2024-03-15T10:00".
    [[nodiscard]] Date at(const QString& text) const
    {
        const auto time = QDateTime::fromString(text, Qt::ISODate);
        return Date(double(QDateTime(time.date(), time.time(), m_zone).toSecsSinceEpoch()));
    }
    /// Month and day that the wall clock shows at the instant, and the time unless it is midnight.
    [[nodiscard]] QString show(Date date) const
    {
        const auto time = QDateTime::fromMSecsSinceEpoch(qint64(date.secondsSince1970() * 1000), m_zone);
        return time.toString("MM-dd HH:mm:ss.zzz").remove(":00.000").remove(" 00:00");
    }

    TestPlatform platform;
    QByteArray m_zoneBefore = qgetenv("TZ");
    QTimeZone m_zone;
};
}

TEST_F(DateTest, startsDaysWeeksMonthsAndYearsInTheUsersCalendarAndZone)
{
    // Locale, zone, time; first instants of day, week, month and year; week and month. By turns: days of 23
    // and 25 hours, midnights that are left out or come twice, odd steps and offsets, days around one that
    // was left out, rules; weeks from Monday, Sunday and Saturday that may belong to the other year; times
    // before 1970, other calendars with a year that turns within a week and a month that comes twice; locales
    // that there are not.
    const QString kRows = R"(de_DE Europe/Berlin 2024-03-31T22:00 03-31 03-25 03-01 01-01, 13/2024, März 2024
en_US America/New_York 2024-11-03T12:00 11-03 11-04 11-01 01-01, 45/2024, November 2024
pt_BR America/Sao_Paulo 2017-10-15T12:00 10-15 01:00 10-16 10-01 01-01, 42/2017, outubro 2017
en_US Pacific/Apia 2011-12-31T12:00 12-31 12-26 12-01 01-01, 53/2011, December 2011
de_DE CET-1CEST,M3.5.0,M10.5.0/3 2024-03-31T12:00 03-31 03-25 03-01 01-01, 13/2024, März 2024
es_PY America/Asuncion 2025-07-15T12:00 07-15 07-14 07-01 01-01, 29/2025, julio 2025
fa_IR@calendar=gregorian UTC 2024-03-16T10:00 03-16 03-18 03-01 01-01, 12/2024, مارس 2024
de_DE UTC 2021-01-03T10:00 01-03 12-28 01-01 01-01, 53/2020, Januar 2021
C.UTF-8 UTC 1969-12-30T00:01 12-30 12-29 12-01 01-01, 1/1970, December 1969
en_US@calendar=hebrew Asia/Jerusalem 2024-10-05T10:00 10-05 09-30 10-03 10-03, 1/5785, Tishri 5785
en_US@calendar=chinese Asia/Shanghai 2023-04-01T10:00 04-01 03-27 03-22 01-22, 10/4660, Second Month 40
de_DE@calendar=none UTC 2024-03-17T20:00 03-17 03-11 03-01 01-01, 11/2024, März 2024
@@@==; UTC 2024-03-17T20:00 03-17 03-18 03-01 01-01, 12/2024, M03 2024)";
    for (const QString& row : kRows.split('\n')) {
        SCOPED_TRACE(qPrintable(row));
        const QStringList words = row.split(' ');
        useLocale(words[0]);
        useZone(words[1]);
        const Date date = at(words[2]);
        const Date day = date.dateAtStartOfDay();
        const QStringList shown {show(day), show(date.dateAtStartOfWeek()), show(date.dateAtStartOfMonth()),
            show(date.dateAtStartOfYear()) + ',',
            QString("%1/%2,").arg(date.week()).arg(date.components().yearForWeekOfYear), date.monthName(),
            QString::number(date.year())};
        EXPECT_EQ(shown.join(' '), words.mid(3).join(' '));
        EXPECT_EQ(day.dateAtStartOfDay(), day);
        EXPECT_EQ(show(Date::dateFromComponents(2016, 2, 29)), "02-29") << "counted in Gregorian years";
    }
    useZone("America/Havana"); // 01:00 becomes 00:00 again on 2024-11-03: the first of two midnights.
    const Date date = at("2024-11-03T12:00");
    EXPECT_EQ(date.timeIntervalSinceDate(date.dateAtStartOfDay()), 13 * Date::kHour);
}

TEST_F(DateTest, tellsTheFieldsAndFollowsAnotherLocaleAtOnceAndAnotherTimeZoneWithinASecond)
{
    useZone("America/New_York");
    const Date date = at("2024-03-31T17:45").dateByAddingSeconds(12.75); // The fifth Sunday.
    const DateComponents inNewYork {2024, 3, 31, 17, 45, 12, 13, 2024, 1, 5};
    EXPECT_EQ((DateComponents {date.year(), date.month(), date.day(), date.hour(), date.minute(),
                  date.seconds(), date.week(), 2024, date.weekday(), date.nthWeekday()}),
        inNewYork);
    for (const int days : {-2, -1, 0, 1})
        EXPECT_EQ(date.dateByAddingDays(days).isTypicallyWeekend(), days == -1 || days == 0);
    EXPECT_FALSE(date.isTypicallyWorkday());
    qputenv("TZ", "Asia/Kathmandu");
    platform.runLoop.advance(0.999);
    EXPECT_EQ(date.components(), inNewYork);
    platform.runLoop.advance(0.001);
    EXPECT_EQ(date.components(), (DateComponents {2024, 4, 1, 3, 30, 12, 14, 2024, 2, 1}));
    useZone("UTC");
    useLocale("en_US");
    EXPECT_EQ(date.components(), (DateComponents {2024, 3, 31, 21, 45, 12, 14, 2024, 1, 5}));
}

TEST_F(DateTest, comparesWithNow)
{
    const std::pair<QString, QString> kTestCases[] = {
        // Time, and the questions that the date answers with yes.
        {"2024-03-15T00:00", "today thisWeek thisMonth thisYear past"},
        {"2024-03-15T23:30", "today thisWeek thisMonth thisYear"},
        {"2024-03-15T23:59", "today thisWeek thisMonth thisYear future"},
        {"2024-03-16T00:00", "tomorrow thisWeek thisMonth thisYear future"},
        {"2024-03-14T23:59", "yesterday thisWeek thisMonth thisYear past"},
        {"2024-03-11T00:00", "thisWeek thisMonth thisYear past"},
        {"2024-03-10T23:59", "lastWeek thisMonth thisYear past"},
        {"2024-03-18T00:00", "nextWeek thisMonth thisYear future"},
        {"2024-02-15T12:00", "thisYear past"},
        {"2025-03-15T12:00", "nextYear future"}, // March again, and another year's week 11
        {"2023-03-15T12:00", "lastYear past"},
        {"2026-01-01T12:00", "future"},
    };
    platform.runLoop.setWallClock(at("2024-03-15T23:30").secondsSince1970());
    EXPECT_EQ(at("2001-01-01T05:00").nearestHour(), 0) << "whatever the receiver";
    const std::pair<const char*, bool (Date::*)() const> kQuestions[] = {{" today", &Date::isToday},
        {" tomorrow", &Date::isTomorrow}, {" yesterday", &Date::isYesterday},
        {" thisWeek", &Date::isThisWeek}, {" nextWeek", &Date::isNextWeek}, {" lastWeek", &Date::isLastWeek},
        {" thisMonth", &Date::isThisMonth}, {" thisYear", &Date::isThisYear},
        {" nextYear", &Date::isNextYear}, {" lastYear", &Date::isLastYear}, {" future", &Date::isInFuture},
        {" past", &Date::isInPast}};
    for (const auto& [time, expected] : kTestCases) {
        QString yes;
        for (const auto& [name, question] : kQuestions)
            yes += (at(time).*question)() ? name : "";
        EXPECT_EQ(yes, ' ' + expected) << qPrintable(time);
    }
    useLocale("en_US"); // A week of other days, and one in which the clock goes back: it is too long.
    EXPECT_TRUE(at("2024-03-10T00:00").isSameWeekAsDate(at("2024-03-16T23:59")));
    useLocale("de_DE");
    useZone("Europe/Berlin");
    EXPECT_TRUE(at("2024-10-21T00:00").isSameWeekAsDate(at("2024-10-27T22:59:59")));
    EXPECT_FALSE(at("2024-10-21T00:00").isSameWeekAsDate(at("2024-10-27T23:00")));
}

TEST_F(DateTest, addsFixedStepsWhateverTheClocksDo)
{
    useZone("Europe/Berlin");
    const Date date = at("2024-03-30T12:00");
    platform.runLoop.setWallClock(date.secondsSince1970());
    const std::pair<Date, double> kTestCases[] = {{date.dateByAddingDays(1), 1440},
        {date.dateBySubtractingDays(2), -2880}, {date.dateByAddingHours(25), 1500},
        {date.dateBySubtractingHours(13), -780}, {date.dateByAddingMinutes(90), 90},
        {date.dateBySubtractingMinutes(80), -80}, {Date::dateTomorrow(), 1440},
        {Date::dateYesterday(), -1440}, {Date::dateWithDaysFromNow(3), 4320},
        {Date::dateWithDaysBeforeNow(4), -5760}, {Date::dateWithHoursFromNow(5), 300},
        {Date::dateWithHoursBeforeNow(6), -360}, {Date::dateWithMinutesFromNow(7), 7},
        {Date::dateWithMinutesBeforeNow(8), -8}};
    for (const auto& [result, minutes] : kTestCases)
        EXPECT_EQ(result.timeIntervalSinceDate(date), minutes * Date::kMinute);
}

TEST_F(DateTest, countsDifferencesByCalendarAndInWholeUnitsTowardZero)
{
    using Units = std::tuple<int64_t, int64_t, int64_t>;
    const struct {
        const char *from, *to;
        DateComponents steps; ///< year, month, day, hour, minute, second, week
        int64_t days; ///< in the Gregorian calendar, whatever the user's
        Units units; ///< minutes, hours and days that passed
    } kCases[] = {
        // 29 February, a week and 4 days.
        {"2023-01-30T12:00", "2024-03-11T13:02", {1, 1, 4, 1, 2, 0, 1, 0, 0, 0}, 406, {584702, 9745, 406}},
        {"2024-03-11T12:00:30", "2024-03-11T10:15:31", {0, 0, 0, -1, -44, -59, 0}, 0, {-104, -1, 0}},
        // Days of 23 and of 25 hours are whole days; hours are time that passed.
        {"2024-03-31T12:00", "2024-03-29T12:00", {0, 0, -2, 0, 0, 0, 0}, -2, {-2820, -47, -1}},
        {"2024-03-30T12:00", "2024-03-31T11:00", {0, 0, 0, 22, 0, 0, 0}, 0, {1320, 22, 0}},
        {"2024-10-26T12:00", "2024-10-27T11:59:59", {0, 0, 0, 24, 59, 59, 0}, 0, {1499, 24, 1}},
        {"2024-10-26T12:00", "2024-10-27T12:30", {0, 0, 1, 0, 30, 0, 0}, 1, {1530, 25, 1}},
    };
    useZone("Europe/Berlin");
    for (const auto& [begin, end, steps, days, units] : kCases) {
        SCOPED_TRACE(testing::Message() << begin << " to " << end);
        const Date from = at(begin);
        const Date to = at(end);
        useLocale("de_DE");
        EXPECT_EQ(to.componentsWithOffsetFromDate(from), steps);
        useLocale("en_US@calendar=hebrew");
        EXPECT_EQ(from.distanceInDaysToDate(to), days);
        EXPECT_EQ(Units(to.minutesAfterDate(from), to.hoursAfterDate(from), to.daysAfterDate(from)), units);
        EXPECT_EQ(
            Units(from.minutesBeforeDate(to), from.hoursBeforeDate(to), from.daysBeforeDate(to)), units);
    }
    const Date secondHalfPastTwo = at("2024-10-27T01:30").dateByAddingHours(2);
    EXPECT_EQ(secondHalfPastTwo.dateByAddingSeconds(63).componentsWithOffsetFromDate(secondHalfPastTwo),
        (DateComponents {.minute = 1, .second = 3}));
}
