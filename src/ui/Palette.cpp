#include "ui/Palette.h"

#include "data/AppProperties.h"

#include <QPalette>
#include <QWidget>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace {
constexpr double kContrastOfLargeText = 3.0; // Web Content Accessibility Guidelines 2.1, 1.4.3 and 1.4.11.

double linearComponent(double component)
{
    return component <= 0.04045 ? component / 12.92 : std::pow((component + 0.055) / 1.055, 2.4);
}

double relativeLuminance(const QColor& color)
{
    return 0.2126 * linearComponent(color.redF()) + 0.7152 * linearComponent(color.greenF())
        + 0.0722 * linearComponent(color.blueF());
}

double contrast(const QColor& first, const QColor& second)
{
    const double one = relativeLuminance(first) + 0.05;
    const double other = relativeLuminance(second) + 0.05;
    return std::max(one, other) / std::min(one, other);
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
    return {0x61, 0x61, 0x61};
}

QColor zelvoBackgroundColor()
{
    return {0xEC, 0xEC, 0xEC};
}

QColor zelvoHoverColor()
{
    return zelvoColor1();
}

QColor zelvoMainLineColor()
{
    return {0xB0, 0xB0, 0xB0};
}

QColor zelvoLineColor()
{
    return {0xB2, 0xB2, 0xB2};
}

QColor zelvoButtonDarkBackgroundColor()
{
    return {0xD9, 0xD9, 0xD9};
}

QColor zelvoLinkHover()
{
    return {0x6F, 0x6F, 0x6F};
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
    if (contrast(preferred, background) >= kContrastOfLargeText)
        return preferred;
    const QColor light(Qt::white);
    const QColor dark = zelvoTextColor();
    return contrast(light, background) >= contrast(dark, background) ? light : dark;
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
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::AlternateBase, background);
    palette.setColor(QPalette::PlaceholderText, zelvoMainLineColor());
    palette.setColor(QPalette::Highlight, brand);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, brand);
    palette.setColor(QPalette::LinkVisited, brand);
    window.setPalette(palette);
    window.setAutoFillBackground(true);
}
