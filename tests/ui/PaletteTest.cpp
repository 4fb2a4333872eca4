#include "ui/Palette.h"

#include "fakes/ControlTest.h"

#include <QLabel>
#include <QVBoxLayout>

#include <cmath>

namespace {
using PaletteTest = ControlTest;

double luminance(const QColor& color)
{
    const auto linear = [](double component) {
        return component <= 0.04045 ? component / 12.92 : std::pow((component + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

double contrast(const QColor& lighter, const QColor& darker)
{
    return (luminance(lighter) + 0.05) / (luminance(darker) + 0.05);
}
}

TEST_F(PaletteTest, hexadecimalTextsAreScannedFromTheirBeginning)
{
    const struct {
        const char* text;
        QRgb color;
    } kTestCases[] = {
        {"#616161", 0xFF616161}, {"616161", 0xFF616161}, {"#b0B0b0", 0xFFB0B0B0}, {"0x0000ff", 0xFF0000FF},
        {"  00ff00", 0xFF00FF00}, {"12", 0xFF000012}, {"#12zz34", 0xFF000012},
        {"80123456", 0xFF123456}, // Bits above the red ones are no colour.
        {"##616161", 0xFF000000}, {"teal", 0xFF000000}, {"", 0xFF000000},
        {"fffffffffffff", 0xFFFFFFFF}, // Too large a number is the largest one.
    };
    for (const auto& testCase : kTestCases) {
        SCOPED_TRACE(testCase.text);
        EXPECT_EQ(colorFromHexadecimalValue(QString::fromLatin1(testCase.text)).rgba(), testCase.color);
    }
    EXPECT_EQ(colorFromHexadecimalValue(QString()), QColor(Qt::black));
}

TEST_F(PaletteTest, everyComponentReturnsFromItsHexadecimalText)
{
    for (int component = 0; component < 256; ++component) {
        const QColor color(component, 255 - component, component / 2);
        EXPECT_EQ(colorFromHexadecimalValue(hexadecimalValue(color)), color);
    }
    EXPECT_EQ(hexadecimalValue(QColor(10, 171, 255)), QStringLiteral("#0aabff"));
    EXPECT_EQ(hexadecimalValue(QColor::fromHsv(120, 255, 255)), QStringLiteral("#00ff00"));
    // Each component falls into one of 256 equal parts.
    EXPECT_EQ(hexadecimalValue(QColor::fromRgbF(0.998F, 0.995F, 0.003F)), QStringLiteral("#fffe00"));
    EXPECT_TRUE(hexadecimalValue(QColor()).isNull());
}

TEST_F(PaletteTest, theBrandColourComesFromTheBundle)
{
    EXPECT_EQ(hexadecimalValue(zelvoHoverColor()), QStringLiteral("#00707a"));
    EXPECT_EQ(zelvoColor1(), zelvoHoverColor());
}

TEST(PaletteWithoutBrand, isBlack)
{
    QJsonObject information = TestPlatform::defaultInformation();
    information.remove(QStringLiteral("ZelvoColor1"));
    const TestPlatform platform(information);
    AppProperties::resetInstance();
    EXPECT_EQ(zelvoHoverColor(), QColor(Qt::black));
    AppProperties::resetInstance();
}

TEST_F(PaletteTest, textIsReadableOnEveryBackgroundItMeets)
{
    EXPECT_GE(contrast(zelvoBackgroundColor(), zelvoTextColor()), 4.5);
    EXPECT_GE(contrast(zelvoBackgroundColor(), zelvoHoverColor()), 4.5);
    EXPECT_GE(contrast(Qt::white, zelvoHoverColor()), 4.5);
    EXPECT_EQ(readableColor(zelvoTextColor(), zelvoButtonDarkBackgroundColor()), zelvoTextColor());
    EXPECT_EQ(readableColor(zelvoHoverColor(), zelvoHoverColor()), QColor(Qt::white));
    EXPECT_EQ(readableColor(Qt::white, zelvoBackgroundColor()), zelvoTextColor());
}

TEST_F(PaletteTest, aWindowStaysLightOnADarkDesktop)
{
    const QPalette desktop = QApplication::palette();
    QApplication::setPalette(QPalette(QColor(30, 30, 30)));
    QWidget window;
    QVBoxLayout layout(&window);
    QLabel label(QStringLiteral("Text"));
    layout.addWidget(&label);
    applyWindowPalette(window);
    EXPECT_EQ(label.palette().color(QPalette::WindowText), zelvoTextColor());
    window.setAttribute(Qt::WA_DontShowOnScreen);
    show(window);
    EXPECT_EQ(window.grab().toImage().pixelColor(1, 1), zelvoBackgroundColor());
    QApplication::setPalette(desktop);
}
