#include "ui/Palette.h"

#include "fakes/ControlTest.h"

namespace {
using PaletteTest = ControlTest;

TEST_F(PaletteTest, hexadecimalTextsAreScannedFromTheirBeginning)
{
    const std::pair<const char*, QRgb> kTestCases[] = {
        {"#616263", 0xFF616263}, {"616263", 0xFF616263}, {"#b0B1bF", 0xFFB0B1BF}, {"0x0000fe", 0xFF0000FE},
        {"  00ff00", 0xFF00FF00}, {"12", 0xFF000012}, {"#12zz34", 0xFF000012},
        {"80123456", 0xFF123456}, // Bits above the red ones are no colour.
        {"##616161", 0xFF000000}, {"teal", 0xFF000000}, {"", 0xFF000000},
        {"fffffffffffff", 0xFFFFFFFF}, // Too large a number is the largest one.
    };
    for (const auto& [text, color] : kTestCases)
        EXPECT_EQ(colorFromHexadecimalValue(QString::fromLatin1(text)).rgba(), color) << text;
    // Each component falls into one of 256 equal parts.
    EXPECT_EQ(hexadecimalValue(QColor::fromRgbF(0.998F, 0.995F, 0.003F)), QStringLiteral("#fffe00"));
    EXPECT_EQ(hexadecimalValue(QColor::fromHsv(120, 255, 0xA7)), QStringLiteral("#00a700"));
    EXPECT_TRUE(hexadecimalValue(QColor()).isNull());
    EXPECT_EQ(zelvoLinkHover().name() + zelvoLineColor().name(), QStringLiteral("#6f6f6f#b2b2b2"));
}

TEST_F(PaletteTest, aColourThatCannotBeReadGivesWayToTheBetterOfTwo)
{
    const std::tuple<QRgb, QRgb, QRgb> kTestCases[] = {
        {0xFF616161, 0xFFD9D9D9, 0xFF616161}, {0xFF00707A, 0xFF00707A, 0xFFFFFFFF},
        {0xFFFFFFFF, 0xFFECECEC, 0xFF616161},
        {0xFF949494, 0xFFFFFFFF, 0xFF949494}, // 3.03 : 1, where 3 is asked for
        {0xFF969696, 0xFFFFFFFF, 0xFF616161}, // 2.96 : 1
        {0xFF000000, 0xFF5A5A5A, 0xFF000000}, // 3.04 : 1
        {0xFF000000, 0xFF585858, 0xFFFFFFFF}, // 2.95 : 1
    };
    for (const auto& [preferred, background, shown] : kTestCases)
        EXPECT_EQ(readableColor(preferred, background).rgb(), shown) << std::hex << background;
    Bundle withoutBrand {QJsonObject()};
    const ProcessServices process({&platform.runLoop, &withoutBrand, &platform.defaults});
    EXPECT_EQ(zelvoHoverColor(), QColor(Qt::black));
}
}
