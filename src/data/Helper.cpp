#include "data/Helper.h"

#include "data/AppProperties.h"
#include "data/FixedPoint.h"

#include <cmath>

namespace {
constexpr double kKilogramsPerPound = 0.454;
constexpr double kInchesPerCentimetre = 0.393701;
constexpr double kCentimetresPerInch = 2.54;
constexpr double kCentimetresPerMillimetre = 0.1;
constexpr double kInchesPerMillimetre = 0.0393700787;

bool isMetric()
{
    return AppProperties::instance().isMetric();
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
    return isMetric() ? qtTrId("Centimeter") : qtTrId("Inches");
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
