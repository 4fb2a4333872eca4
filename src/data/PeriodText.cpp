#include "data/PeriodText.h"

#include "data/IcuLocale.h"
#include "data/LocalTime.h"
#include "platform/Bundle.h"

#include <cmath>
#include <memory>
#include <unicode/dtitvfmt.h>
#include <unicode/measfmt.h>
#include <unicode/measunit.h>
#include <unicode/measure.h>
#include <unicode/smpdtfmt.h>
#include <unicode/timezone.h>

namespace {
constexpr double kMinutesPerHour = 60;

icu::Locale locale()
{
    return icuLocale(Bundle::main().calendarLocaleName());
}

/// Wall time, to be written as if in the zone of Greenwich.
UDate onTheWall(Date date)
{
    return LocalTime::atInstant(date.secondsSince1970()) * 1000;
}

QString string(const icu::UnicodeString& text)
{
    return QString::fromUtf16(text.getBuffer(), text.length());
}
}

QString periodDates(Date first, Date last)
{
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::DateIntervalFormat> format(
        icu::DateIntervalFormat::createInstance(u"MMMMd", locale(), status));
    const icu::DateInterval days(onTheWall(first), onTheWall(last));
    icu::UnicodeString text;
    icu::FieldPosition ignored(icu::FieldPosition::DONT_CARE);
    format->setTimeZone(*icu::TimeZone::getGMT());
    return string(format->format(&days, text, ignored, status));
}

QString timeOfDay(Date date)
{
    const std::unique_ptr<icu::DateFormat> format(
        icu::DateFormat::createTimeInstance(icu::DateFormat::kShort, locale()));
    format->setTimeZone(*icu::TimeZone::getGMT());
    icu::UnicodeString text;
    return string(format->format(onTheWall(date), text));
}

QString hoursAndMinutes(double minutes)
{
    UErrorCode status = U_ZERO_ERROR;
    const icu::MeasureFormat format(locale(), UMEASFMT_WIDTH_WIDE, status);
    const double hours = std::floor(minutes / kMinutesPerHour);
    const double rest = std::floor(minutes - hours * kMinutesPerHour);
    const icu::Measure measures[] = {
        {icu::Formattable(hours), icu::MeasureUnit::createHour(status), status},
        {icu::Formattable(rest), icu::MeasureUnit::createMinute(status), status},
    };
    icu::UnicodeString text;
    icu::FieldPosition ignored(icu::FieldPosition::DONT_CARE);
    return string(format.formatMeasures(measures, rest > 0 ? 2 : 1, text, ignored, status));
}
