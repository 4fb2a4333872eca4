#include "ui/Palette.h"

#include "fakes/ControlTest.h"

#include <QLabel>

namespace {
using PaletteTest = ControlTest;

TEST_F(PaletteTest, hexadecimalTextsAreScannedFromTheirBeginning)
{
    const struct {
        const char* text;
        QRgb color;
    } kTestCases[] = {
        {"#616263", 0xFF616263}, {"616263", 0xFF616263}, {"#b0B1bF", 0xFFB0B1BF}, {"0x0000fe", 0xFF0000FE},
        {"  00ff00", 0xFF00FF00}, {"12", 0xFF000012}, {"#12zz34", 0xFF000012},
        {"80123456", 0xFF123456}, // Bits above the red ones are no colour.
        {"##616161", 0xFF000000}, {"teal", 0xFF000000}, {"", 0xFF000000},
        {"fffffffffffff", 0xFFFFFFFF}, // Too large a number is the largest one.
    };
    for (const auto& testCase : kTestCases)
        EXPECT_EQ(colorFromHexadecimalValue(QString::fromLatin1(testCase.text)).rgba(), testCase.color)
            << testCase.text;
    for (int component = 0; component < 256; ++component) {
        const QColor color(component, 255 - component, component / 2);
        EXPECT_EQ(colorFromHexadecimalValue(hexadecimalValue(color)), color);
    }
    EXPECT_EQ(hexadecimalValue(QColor::fromHsv(120, 255, 255)), QStringLiteral("#00ff00"));
    // Each component falls into one of 256 equal parts.
    EXPECT_EQ(hexadecimalValue(QColor::fromRgbF(0.998F, 0.995F, 0.003F)), QStringLiteral("#fffe00"));
    EXPECT_TRUE(hexadecimalValue(QColor()).isNull());
}

TEST_F(PaletteTest, theBrandColourComesFromTheBundleAndIsBlackWithoutIt)
{
    EXPECT_EQ(hexadecimalValue(zelvoHoverColor()), QStringLiteral("#00707a"));
    Bundle withoutBrand {QJsonObject()};
    Bundle::setMain(&withoutBrand);
    AppProperties::resetInstance();
    EXPECT_EQ(zelvoHoverColor(), QColor(Qt::black));
    Bundle::setMain(&platform.bundle);
}

TEST_F(PaletteTest, aColourThatCannotBeReadGivesWayToTheBetterOfTwo)
{
    const QColor grey = zelvoTextColor();
    const struct {
        QColor preferred;
        QColor background;
        QColor shown;
    } kTestCases[] = {
        {grey, zelvoButtonDarkBackgroundColor(), grey}, {zelvoHoverColor(), zelvoHoverColor(), Qt::white},
        {Qt::white, zelvoBackgroundColor(), grey},
        {QColor(0x94, 0x94, 0x94), Qt::white, QColor(0x94, 0x94, 0x94)}, // 3.03 : 1, where 3 is asked for
        {QColor(0x96, 0x96, 0x96), Qt::white, grey}, // 2.96 : 1
        {Qt::black, QColor(0x5A, 0x5A, 0x5A), QColor(Qt::black)}, // 3.04 : 1
        {Qt::black, QColor(0x58, 0x58, 0x58), QColor(Qt::white)}, // 2.95 : 1
    };
    for (const auto& testCase : kTestCases)
        EXPECT_EQ(readableColor(testCase.preferred, testCase.background), testCase.shown)
            << testCase.background.name().toStdString();
}

TEST_F(PaletteTest, aWindowHasItsOwnColoursOnADarkDesktop)
{
    const QPalette desktop = QApplication::palette();
    QApplication::setPalette(QPalette(QColor(30, 30, 30)));
    QWidget window;
    applyWindowPalette(window);
    window.setAttribute(Qt::WA_DontShowOnScreen);
    show(window);
    EXPECT_EQ(window.grab().toImage().pixelColor(1, 1), zelvoBackgroundColor());
    for (const auto group : {QPalette::Active, QPalette::Disabled}) {
        const auto color = [&](QPalette::ColorRole role) { return window.palette().color(group, role); };
        for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
            EXPECT_EQ(color(role), group == QPalette::Active ? zelvoTextColor() : zelvoMainLineColor());
        EXPECT_EQ(color(QPalette::Base), QColor(Qt::white));
        EXPECT_EQ(color(QPalette::PlaceholderText), zelvoMainLineColor());
        EXPECT_EQ(color(QPalette::Highlight), zelvoHoverColor());
        EXPECT_EQ(color(QPalette::HighlightedText), QColor(Qt::white));
        EXPECT_EQ(color(QPalette::Link), zelvoHoverColor());
    }
    QApplication::setPalette(desktop);
}
}
