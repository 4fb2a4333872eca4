#include "data/DecimalFormatter.h"

#include "fakes/TestPlatform.h"

#include <gtest/gtest.h>

namespace {
DecimalFormatter formatter(double minValue, double maxValue, bool acceptComma)
{
    DecimalFormatter result;
    result.setMinValue(minValue);
    result.setMaxValue(maxValue);
    result.setAcceptComma(acceptComma);
    return result;
}

const DecimalFormatter kWeight = formatter(0, 999, false);
const DecimalFormatter kAmericanHeight = formatter(0, 2500, true);
const DecimalFormatter kStandUps = formatter(1, 6, false);
const DecimalFormatter kUnlimited = formatter(0, 0, false);
const DecimalFormatter kUntouched;
}

TEST(DecimalFormatter, keepsEntriesToDigitsAndARange)
{
    const struct {
        const char* locale;
        const DecimalFormatter& field;
        QString text;
        bool isValid;
    } kTestCases[] = {
        {"de_DE", kWeight, QStringLiteral(""), true},
        {"de_DE", kWeight, QStringLiteral("999"), true},
        {"de_DE", kWeight, QStringLiteral("1000"), false},
        {"de_DE", kWeight, QString(400, QLatin1Char('9')), false},
        {"de_DE", kWeight, QStringLiteral("-5"), false},
        {"de_DE", kWeight, QStringLiteral("72.5"), false},
        {"de_DE", kWeight, QStringLiteral("72,5"), false},
        {"de_DE", kWeight, QStringLiteral("½"), false},
        {"de_DE", kWeight, QStringLiteral("５"), true}, // full-width
        {"de_DE", kWeight, QStringLiteral("٨٠"), true}, // Arabic
        {"ar_EG", kWeight, QStringLiteral("٨٠"), true},
        {"de_DE", kWeight, QStringLiteral("𝟖𝟎"), true}, // beyond 16 bits
        {"en_US", kAmericanHeight, QStringLiteral("72.5"), true},
        {"en_US", kAmericanHeight, QStringLiteral("."), true}, // no number yet: counts as 0
        {"en_US", kAmericanHeight, QStringLiteral("72.5.1"), true},
        {"en_US", kAmericanHeight, QStringLiteral("72,5"), false},
        {"de_DE", kAmericanHeight, QStringLiteral("72,5"), false},
        {"en_US", kAmericanHeight, QStringLiteral("2500.1"), false},
        {"en_US", kAmericanHeight, QStringLiteral("２５"), false}, // the ten digits alone beside the point
        {"en_US", kStandUps, QStringLiteral("0"), false},
        {"en_US", kStandUps, QStringLiteral("1"), true},
        {"en_US", kStandUps, QStringLiteral("7"), false},
        {"en_US", formatter(1, 6, true), QStringLiteral("1.2.3"), false}, // counts as 0
        {"en_US", kUnlimited, QStringLiteral("123456789012345678901234567890"), true},
        {"en_US", kUntouched, QString(400, QLatin1Char('9')), false},
    };
    TestPlatform platform;
    for (const auto& [locale, field, text, isValid] : kTestCases) {
        SCOPED_TRACE(testing::Message() << locale << " " << qPrintable(text.left(20)));
        platform.bundle.testLocale = QLocale(QString::fromLatin1(locale));
        EXPECT_EQ(field.isPartialStringValid(text), isValid);
    }
}

TEST(DecimalFormatter, takesTheTextItselfForTheValue)
{
    QString value;
    QString error;
    EXPECT_TRUE(kWeight.getObjectValue(value, QStringLiteral("08x"), &error));
    EXPECT_EQ(value, QStringLiteral("08x"));
    EXPECT_TRUE(error.isNull());
    EXPECT_EQ(kWeight.stringForObjectValue(value), QStringLiteral("08x"));
}
