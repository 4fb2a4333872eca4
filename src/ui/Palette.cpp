#include "ui/Palette.h"

#include "data/AppProperties.h"
#include "ui/Appearance.h"

#include <QPalette>
#include <QWidget>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace {
/// Web Content Accessibility Guidelines 2.1, 1.4.3, and what the edges of small strokes lose of it.
constexpr double kContrastOfText = 4.5 * 1.14;
constexpr double kContrastOfShapes = 3.0; // The same, 1.4.11.
constexpr int kPressed = 112; // Percent, as QColor::darker() takes it.
constexpr int kNearShade = 150;

/// One colour in both looks.
struct Shade {
    QRgb light;
    QRgb dark;

    [[nodiscard]] QColor now() const { return QColor::fromRgb(Appearance::isDark() ? dark : light); }
};

constexpr Shade kText {0x616161, 0xD6DBDD};
constexpr Shade kStrongText {0x000000, 0xF4F7F8};
constexpr Shade kBackground {0xECECEC, 0x1E2224};
constexpr Shade kCard {0xFFFFFF, 0x2A3033};
constexpr Shade kButton {0xD9D9D9, 0x353C40};
constexpr Shade kMainLine {0xB0B0B0, 0x7B858A};
constexpr Shade kLine {0xB2B2B2, 0x7D878C};
constexpr Shade kLinkHover {0x6F6F6F, 0xAEB8BC};
constexpr Shade kMark {0x7A868A, 0x8A969B};

/// Pictures have these as well.
constexpr Shade kPictureShades[] = {
    kText, kCard, kMark, {0x5F6E73, 0xA5B0B4}, // the steps on a rail
    {0x4F646B, 0x5F767E}, // an entry field
    {0xE6F4F6, 0x123F47}, // a chosen circle
    {0xEFF7F8, 0x2E3A3E}, // a circle under the mouse
};

double linearComponent(double component)
{
    return component <= 0.04045 ? component / 12.92 : std::pow((component + 0.055) / 1.055, 2.4);
}

double relativeLuminance(const QColor& color)
{
    return 0.2126 * linearComponent(color.redF()) + 0.7152 * linearComponent(color.greenF())
        + 0.0722 * linearComponent(color.blueF());
}

/// The darkest shade of the brand colour that stands out from a ground.
QColor brandShade(double saturation, const QColor& ground, double wanted)
{
    const QColor brand = zelvoColor1().toHsl();
    const auto paler = [&](int percent) {
        return QColor::fromHslF(brand.hslHueF(), float(brand.hslSaturationF() * saturation),
            std::min(1.0F, brand.lightnessF() + float(percent) / 100));
    };
    for (int percent = 0; percent < 100; ++percent) {
        const QColor shade = paler(percent);
        if (contrast(shade, ground) >= wanted)
            return shade.toRgb();
    }
    return Qt::white;
}

/// The number at the start of the text, after white space and an optional "0x"; too large a one saturates.
uint32_t scanHexadecimal(QByteArray text)
{
    text = text.trimmed().toLower();
    if (text.startsWith("0x"))
        text.remove(0, 2);
    uint32_t number = 0;
    const auto scanned = std::from_chars(text.cbegin(), text.cend(), number, 16);
    return scanned.ec == std::errc::result_out_of_range ? std::numeric_limits<uint32_t>::max() : number;
}
}

QColor zelvoColor1()
{
    return colorFromHexadecimalValue(AppProperties::instance().zelvoColor1());
}

QColor zelvoTextColor()
{
    return kText.now();
}

QColor zelvoBackgroundColor()
{
    return kBackground.now();
}

QColor zelvoCardColor()
{
    return kCard.now();
}

QColor zelvoStrongTextColor()
{
    return kStrongText.now();
}

QColor zelvoHoverColor()
{
    constexpr double kCalmer = 0.6;
    // On the lightest ground, and with what thin lines lose of it.
    constexpr double kWanted = 5.2;
    return Appearance::isDark() ? brandShade(kCalmer, kButton.now(), kWanted) : zelvoColor1();
}

QColor zelvoBrandSurfaceColor()
{
    return Appearance::isDark() ? brandShade(1, kBackground.now(), kContrastOfShapes) : zelvoColor1();
}

QColor zelvoBrandTextColor()
{
    return Qt::white;
}

QColor zelvoFieldTextColor()
{
    return Qt::white;
}

QColor zelvoMainLineColor()
{
    return kMainLine.now();
}

QColor zelvoLineColor()
{
    return kLine.now();
}

QColor zelvoMarkColor()
{
    return kMark.now();
}

QColor zelvoButtonDarkBackgroundColor()
{
    return kButton.now();
}

QColor zelvoLinkHover()
{
    return kLinkHover.now();
}

QColor zelvoPressShade()
{
    constexpr int kFaint = 20;
    QColor shade = Appearance::isDark() ? Qt::white : Qt::black;
    shade.setAlpha(kFaint);
    return shade;
}

QColor pressedColor(const QColor& background)
{
    return Appearance::isDark() ? background.lighter(kPressed) : background.darker(kPressed);
}

QColor colorFromHexadecimalValue(const QString& string)
{
    const qsizetype mark = string.startsWith(QLatin1Char('#')) ? 1 : 0;
    return QColor::fromRgb(scanHexadecimal(string.mid(mark).toLatin1()) | 0xFF000000U);
}

QString hexadecimalValue(const QColor& color)
{
    if (!color.isValid())
        return {};
    const QColor rgb = color.toRgb();
    // One step below 256, so that a full component gives ff and not 100.
    constexpr double kScale = 255.99998474121094;
    const auto digits = [](double component) {
        return QStringLiteral("%1").arg(int(component * kScale), 2, 16, QLatin1Char('0'));
    };
    return QLatin1Char('#') + digits(rgb.redF()) + digits(rgb.greenF()) + digits(rgb.blueF());
}

QColor readableColor(const QColor& preferred, const QColor& background)
{
    const QColor white = Qt::white;
    const QColor grey = QColor::fromRgb(kText.light);
    const bool isOnLight = contrast(white, background) < contrast(Qt::black, background);
    for (int percent = 100; percent <= kNearShade; percent += 2) {
        const QColor shade = isOnLight ? preferred.darker(percent) : preferred.lighter(percent);
        if (contrast(shade, background) >= kContrastOfText)
            return shade;
    }
    return contrast(white, background) >= contrast(grey, background) ? white : grey;
}

double contrast(const QColor& first, const QColor& second)
{
    const double one = relativeLuminance(first) + 0.05;
    const double other = relativeLuminance(second) + 0.05;
    return std::max(one, other) / std::min(one, other);
}

QByteArray inPresentLook(QByteArray svg)
{
    if (!Appearance::isDark())
        return svg;
    const auto replace = [&svg](const QColor& light, const QColor& dark) {
        svg.replace(light.name().toUpper().toLatin1(), dark.name().toLatin1());
    };
    replace(zelvoColor1(), zelvoHoverColor());
    for (const Shade& shade : kPictureShades)
        replace(QColor::fromRgb(shade.light), QColor::fromRgb(shade.dark));
    return svg;
}

void applyWindowPalette(QWidget& window)
{
    const QColor text = zelvoTextColor();
    const QColor background = zelvoBackgroundColor();
    const QColor brand = zelvoHoverColor();

    QPalette palette(zelvoButtonDarkBackgroundColor(), background);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(role, text);
        palette.setColor(QPalette::Disabled, role, zelvoMainLineColor());
    }
    palette.setColor(QPalette::BrightText, zelvoStrongTextColor());
    palette.setColor(QPalette::Base, zelvoCardColor());
    palette.setColor(QPalette::AlternateBase, background);
    palette.setColor(QPalette::PlaceholderText, zelvoMainLineColor());
    palette.setColor(QPalette::Highlight, zelvoBrandSurfaceColor());
    palette.setColor(QPalette::HighlightedText, zelvoBrandTextColor());
    palette.setColor(QPalette::Link, brand);
    palette.setColor(QPalette::LinkVisited, zelvoLinkHover());
    window.setPalette(palette);
    window.setAutoFillBackground(true);
}
