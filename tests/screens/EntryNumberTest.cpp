#include "screens/EntryNumber.h"

#include <gtest/gtest.h>

TEST(EntryNumber, isTheLeadingNumberInTheDigitsOfAnyScript)
{
    const std::tuple<QString, int32_t, double> kCases[] = {{{}, 0, 0}, {"72", 72, 72}, {" 72", 72, 72},
        {"72.5.1", 72, 72.5}, {"72,5", 72, 72}, {".5", 0, 0.5}, {".", 0, 0}, {"-5", 0, 0}, {"abc", 0, 0},
        {"5 kg", 5, 5}, {"7\u00B2\u00BD", 7, 7}, {"1e3", 1, 1}, {"\uFF17\uFF12.5", 72, 72.5}, // Full width.
        {"\u0667\u0662", 72, 72}, // Arabic-Indic.
        {"\U0001D7D5\U0001D7D0", 72, 72}, // Beyond 16 bits.
        {"99999999999", 2147483647, 99999999999.0}};
    for (const auto& [text, integer, decimal] : kCases) {
        EXPECT_EQ(integerValue(text), integer) << qPrintable(text);
        EXPECT_EQ(decimalValue(text), decimal) << qPrintable(text);
    }
    EXPECT_EQ(integerValue(QString(400, '9')), 2147483647);
}
