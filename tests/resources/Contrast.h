#pragma once

#include <QColor>

#include <algorithm>
#include <cmath>

/// Contrast of two opaque colours as WCAG 2.1 defines it: 1 for equal colours, 21 for black on white. Text
/// needs 4.5, large text and the parts of a picture that carry meaning need 3.
inline double contrast(const QColor& one, const QColor& other)
{
    const auto linear = [](float channel) {
        return channel <= 0.03928F ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
    };
    const auto luminance = [&](const QColor& colour) {
        return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF())
            + 0.0722 * linear(colour.blueF());
    };
    const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}
