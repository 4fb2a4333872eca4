#pragma once

#include <QString>

/// Values in the unit system of the user's locale: kilograms and centimetres where it is metric, pounds and
/// inches elsewhere. The factors of the two directions are rounded apart, so that a value converted there and
/// back is not exactly restored: what users have stored rests on these very factors.
class Helper {
public:
    static constexpr double kPoundsPerKilogram = 2.205;

    static double kiloToSystemUnit(double kilograms);
    static double systemUnitToKilo(double value);
    static double cmToSystemUnit(double centimetres);
    static double systemUnitToCm(double value);
    /// The name of the unit of a desk's height in the user's language.
    static QString TableHeightUnit();
    /// A desk height in mm as whole centimetres, or as inches with one decimal; below 0 it counts as 0.
    static QString formattedTableHeight(double millimetres);
};
