#include "data/DecimalFormatter.h"

#include "fakes/TestPlatform.h"

TEST(DecimalFormatter, keepsEntriesToDigitsAndARange)
{
    const QString nines(400, '9');
    // The locale, the least and the most (below 0: as a new formatter has it), whether a point is accepted
    // (which a new one does not), valid and invalid texts.
    const std::tuple<const char*, double, double, bool, QStringList, QStringList> kFields[] = {
        {"de_DE", 0, 999, false, {"", "999", "５", "٨٠", "𝟖𝟎"}, // full-width, Arabic, beyond 16 bits
            {"1000", nines, "-5", "72.5", "72,5", "½"}},
        {"en_US", 0, 2500, true, {"72.5", ".", "72.5.1"}, // No number yet: counts as 0.
            {"72,5", "2500.1", "２５"}}, // The ten digits alone beside the point.
        {"en_US", 1, 6, false, {"1", "6"}, {"0", "7"}},
        {"en_US", 0, 1, false, {"1"}, {"2"}},
        {"en_US", 1, 6, true, {"1.5"}, {"1.2.3"}}, // counts as 0
        {"en_US", 0, 0, false, {"123456789012345678901234567890"}, {}}, // no limit
        {"en_US", 0, -1, false, {"1"}, {nines}},
    };
    TestPlatform platform;
    for (const auto& [locale, least, most, acceptComma, valid, invalid] : kFields) {
        platform.bundle.userLocale = QLocale(locale);
        DecimalFormatter field;
        field.setMinValue(least);
        if (most >= 0)
            field.setMaxValue(most);
        if (acceptComma)
            field.setAcceptComma(true);
        for (const QString& text : valid + invalid)
            EXPECT_EQ(field.isPartialStringValid(text), valid.contains(text))
                << locale << " " << qPrintable(text.left(20));
    }
}
