#include "data/Helper.h"

#include "data/AppProperties.h"
#include "platform/Bundle.h"

#include <QLatin1String>

#include <charconv>
#include <cmath>
#include <iterator>

namespace {
constexpr double kPoundsPerKilogram = 2.205;
constexpr double kKilogramsPerPound = 0.454;
constexpr double kInchesPerCentimetre = 0.393701;
constexpr double kCentimetresPerInch = 2.54;
constexpr double kCentimetresPerMillimetre = 0.1;
constexpr double kInchesPerMillimetre = 0.0393700787;

bool isMetric()
{
    return AppProperties::instance().isMetric();
}

/// With a full stop whatever the locale, and an exact half rounded to the even digit: 74.5 gives "74". Qt
/// would round it up.
QString fixed(double value, int decimals)
{
    char text[400]; // The largest double has 309 digits before the point.
    const auto end =
        std::to_chars(std::begin(text), std::end(text), value, std::chars_format::fixed, decimals);
    return QString(QLatin1String(text, end.ptr - text));
}
}

double Helper::kiloToSystemUnit(double kilograms)
{
    return isMetric() ? kilograms : kilograms * kPoundsPerKilogram;
}

double Helper::systemUnitToKilo(double value)
{
    return isMetric() ? value : value * kKilogramsPerPound;
}

double Helper::cmToSystemUnit(double centimetres)
{
    return isMetric() ? centimetres : centimetres * kInchesPerCentimetre;
}

double Helper::systemUnitToCm(double value)
{
    return isMetric() ? value : value * kCentimetresPerInch;
}

QString Helper::TableHeightUnit()
{
    return Bundle::main().localizedString(
        isMetric() ? QStringLiteral("Centimeter") : QStringLiteral("Inches"));
}

QString Helper::formattedTableHeight(double millimetres)
{
    const double height = millimetres > 0 ? millimetres : 0;
    if (!isMetric())
        return fixed(height * kInchesPerMillimetre, 1);
    // Rounded to three decimals first, so that an inexact product such as 74.50000000000001 is a half.
    constexpr double kThousandths = 1000;
    return fixed(std::round(height * kCentimetresPerMillimetre * kThousandths) / kThousandths, 0);
}
