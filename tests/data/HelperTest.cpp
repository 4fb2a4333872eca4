#include "data/Helper.h"

#include "data/AppProperties.h"
#include "fakes/TestPlatform.h"

#include <cmath>
#include <gtest/gtest.h>

namespace {
class HelperTest : public testing::Test {
protected:
    HelperTest() { AppProperties::resetInstance(); }
    ~HelperTest() override { AppProperties::resetInstance(); }
    void useLocale(const char* name) { platform.bundle.testLocale = QLocale(QString::fromLatin1(name)); }

    TestPlatform platform;
};
}

TEST_F(HelperTest, convertsByFactorsThatAreRoundedApart)
{
    const struct {
        const char* locale;
        double pounds; ///< of 80 kg
        double kilograms; ///< of 176.4 units
        double inches; ///< of 100 cm
        double centimetres; ///< of 10 units
        const char* unit;
    } kTestCases[] = {
        {"de_DE", 80, 176.4, 100, 10, "Centimeter"},
        {"en_US", 176.4, 80.0856, 39.3701, 25.4, "Inches"},
    };
    for (const auto& row : kTestCases) {
        SCOPED_TRACE(row.locale);
        useLocale(row.locale);
        EXPECT_DOUBLE_EQ(Helper::kiloToSystemUnit(80), row.pounds);
        EXPECT_DOUBLE_EQ(Helper::systemUnitToKilo(176.4), row.kilograms);
        EXPECT_DOUBLE_EQ(Helper::cmToSystemUnit(100), row.inches);
        EXPECT_DOUBLE_EQ(Helper::systemUnitToCm(10), row.centimetres);
        EXPECT_EQ(Helper::TableHeightUnit().toStdString(), row.unit); // A key without a text answers itself.
    }
}

TEST_F(HelperTest, formatsTableHeights)
{
    const struct {
        double millimetres;
        const char* metric;
        const char* american;
    } kTestCases[] = {
        {726, "73", "28.6"},
        {745, "74", "29.3"}, // An exact half goes to the even digit,
        {735, "74", "28.9"}, // in both directions.
        {745.1, "75", "29.3"},
        {745.001, "74", "29.3"}, // 74.5001 cm is rounded to 74.500 before.
        {0, "0", "0.0"},
        {-10, "0", "0.0"},
        {std::nan(""), "0", "0.0"},
        {65535, "6554", "2580.1"},
    };
    for (const auto& [millimetres, metric, american] : kTestCases) {
        SCOPED_TRACE(millimetres);
        useLocale("de_DE");
        EXPECT_EQ(Helper::formattedTableHeight(millimetres).toStdString(), metric);
        useLocale("en_US");
        EXPECT_EQ(Helper::formattedTableHeight(millimetres).toStdString(), american);
    }
}
