#include "data/Helper.h"

#include "data/AppProperties.h"
#include "fakes/TestPlatform.h"

#include <cmath>
#include <gtest/gtest.h>

TEST(Helper, convertsByFactorsThatAreRoundedApart)
{
    const struct {
        const char* locale;
        double pounds; ///< of 80 kg
        double kilograms; ///< of 176.4 units
        double inches; ///< of 100 cm
        double centimetres; ///< of 10 units
        const char* unit;
        const char* heights; ///< of the millimetres below
    } kCases[] = {
        {"de_DE", 80, 176.4, 100, 10, "Centimeter", "73 74 74 75 74 0 0 0 6554"},
        {"en_US", 176.4, 80.0856, 39.3701, 25.4, "Inches", "28.6 29.3 28.9 29.3 29.3 0.0 0.0 0.0 2580.1"},
    };
    TestPlatform platform;
    for (const auto& row : kCases) {
        SCOPED_TRACE(row.locale);
        platform.bundle.testLocale = QLocale(row.locale);
        EXPECT_DOUBLE_EQ(Helper::kiloToSystemUnit(80), row.pounds);
        EXPECT_DOUBLE_EQ(Helper::systemUnitToKilo(176.4), row.kilograms);
        EXPECT_DOUBLE_EQ(Helper::cmToSystemUnit(100), row.inches);
        EXPECT_DOUBLE_EQ(Helper::systemUnitToCm(10), row.centimetres);
        EXPECT_EQ(Helper::TableHeightUnit(), row.unit); // A key without a text answers itself.
        QStringList heights;
        // An exact half goes to the even digit; 74.5001 cm is rounded to 74.500 before.
        for (const double millimetres :
            {726.0, 745.0, 735.0, 745.1, 745.001, 0.0, -10.0, std::nan(""), 65535.0})
            heights.append(Helper::formattedTableHeight(millimetres));
        EXPECT_EQ(heights.join(' '), row.heights);
    }
}
