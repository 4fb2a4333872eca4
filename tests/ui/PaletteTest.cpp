#include "ui/Palette.h"

#include "fakes/ControlTest.h"
#include "ui/Appearance.h"
#include "ui/FormStyle.h"
#include "ui/HyperLinkTextField.h"
#include "ui/PanelWindow.h"
#include "ui/Picture.h"
#include "ui/TextUtilities.h"

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
    EXPECT_EQ(reversed(QStringLiteral("#616")), QStringLiteral("616#"));
    EXPECT_EQ(zelvoLinkHover().name() + zelvoLineColor().name(), QStringLiteral("#6f6f6f#b2b2b2"));
}

TEST_F(PaletteTest, aColourThatCannotBeReadGivesWayToANearShadeOrToTheBetterOfTwo)
{
    const std::tuple<QRgb, QRgb, QRgb> kTestCases[] = {
        {0xFF616161, 0xFFD9D9D9, 0xFF575757}, {0xFF00707A, 0xFF00707A, 0xFFFFFFFF},
        {0xFFFFFFFF, 0xFFECECEC, 0xFF616161},
        {0xFF6D6D6D, 0xFFFFFFFF, 0xFF6D6D6D}, // 5.17 : 1, where 5.13 is asked for
        {0xFF777777, 0xFFFFFFFF, 0xFF6C6C6C}, // 4.48 : 1
        {0xFF000000, 0xFF7E7E7E, 0xFF000000}, // 5.17 : 1
        {0xFF000000, 0xFF7D7D7D, 0xFFFFFFFF}, // 5.10 : 1
        {0xFF808080, 0xFF2A3033, 0xFFA1A1A1}, // lighter on a dark ground
    };
    for (const auto& [preferred, background, shown] : kTestCases)
        EXPECT_EQ(readableColor(preferred, background).rgb(), shown) << std::hex << background;
    Bundle withoutBrand {QJsonObject()};
    const ProcessServices process({&platform.runLoop, &withoutBrand, &platform.defaults});
    EXPECT_EQ(zelvoHoverColor(), QColor(Qt::black));
}

TEST_F(PaletteTest, theUserChoosesTheLookOfOpenWindowsOrLetsTheDesktop)
{
    const struct {
        int choice;
        std::optional<bool> isDesktopDark; ///< as it says itself
        bool hasDarkWindows;
        bool isDark;
    } kTestCases[] = {{Appearance::Dark, false, false, true}, {Appearance::Light, true, true, false},
        {Appearance::AsDesktop, true, false, true}, {Appearance::AsDesktop, false, true, false},
        {Appearance::AsDesktop, {}, true, true}, {Appearance::AsDesktop, {}, false, false}};
    PanelWindow window;
    HyperLinkTextField link(&window);
    link.setText(hyperlinkFromString("E02", QUrl("https://example.org")));
    applyFormStyle(window);
    EXPECT_EQ(link.font().family(), QStringLiteral("Open Sans")) << "as all text in several lines";
    const auto drawn = [] { return Picture(QStringLiteral("ButtonUp")).pixmap({24, 24}, 1).toImage(); };
    const QImage light = drawn();
    int asked = 0;
    Appearance::whenFollowing([&asked] { ++asked; });
    for (const auto& [choice, isDesktopDark, hasDarkWindows, isDark] : kTestCases) {
        AppProperties::instance().setAppearance(choice);
        QApplication::setPalette(QPalette(QColor(hasDarkWindows ? 0x7F7F7F : 0x808080)));
        Appearance::setDesktopIsDark(isDesktopDark);
        EXPECT_EQ(window.palette().color(QPalette::Window).lightness() < 128, isDark) << choice;
        EXPECT_EQ(PanelWindow().palette(), window.palette());
        EXPECT_EQ(drawn() == light, !isDark) << choice;
        EXPECT_EQ(window.palette().color(QPalette::LinkVisited), zelvoLinkHover()) << "under the mouse";
        EXPECT_TRUE(link.text().contains(zelvoHoverColor().name())) << choice;
        EXPECT_EQ(pressedColor(Qt::gray).lightness() > QColor(Qt::gray).lightness(), isDark) << choice;
        EXPECT_EQ(zelvoPressShade().lightness() > 128, isDark) << choice;
        EXPECT_EQ(asked, choice == Appearance::AsDesktop);
    }
}
}
