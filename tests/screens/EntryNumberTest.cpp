#include "screens/EntryNumber.h"

#include <gtest/gtest.h>

TEST(EntryNumber, isTheLeadingNumberInTheDigitsOfAnyScript)
{
    const struct {
        QString text;
        int32_t integer;
        double decimal;
    } kTestCases[] = {
        {QString(), 0, 0},
        {QStringLiteral("72"), 72, 72},
        {QStringLiteral(" 72"), 72, 72},
        {QStringLiteral("72.5.1"), 72, 72.5},
        {QStringLiteral("72,5"), 72, 72},
        {QStringLiteral(".5"), 0, 0.5},
        {QStringLiteral("."), 0, 0},
        {QStringLiteral("-5"), 0, 0},
        {QStringLiteral("abc"), 0, 0},
        {QStringLiteral("5 kg"), 5, 5},
        {QStringLiteral("7\u00B2\u00BD"), 7, 7},
        {QStringLiteral("1e3"), 1, 1},
        {QStringLiteral("\uFF17\uFF12.5"), 72, 72.5}, // Full width.
        {QStringLiteral("\u0667\u0662"), 72, 72}, // Arabic-Indic.
        {QStringLiteral("\U0001D7D5\U0001D7D0"), 72, 72}, // Beyond 16 bits.
        {QStringLiteral("99999999999"), 2147483647, 99999999999.0},
    };
    for (const auto& testCase : kTestCases) {
        SCOPED_TRACE(testCase.text.toStdString());
        EXPECT_EQ(integerValue(testCase.text), testCase.integer);
        EXPECT_EQ(decimalValue(testCase.text), testCase.decimal);
    }
    EXPECT_EQ(integerValue(QString(400, QLatin1Char('9'))), 2147483647);
}
