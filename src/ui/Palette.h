#pragma once

#include <QColor>
#include <QString>

class QWidget;

// The colours of every screen. Nothing else in the program names a colour value.

/// The brand colour, information key "ZelvoColor1"; black when the bundle names none.
[[nodiscard]] QColor zelvoColor1();
/// Ordinary text and the titles of idle buttons.
[[nodiscard]] QColor zelvoTextColor();
/// Behind windows, labels and error lines.
[[nodiscard]] QColor zelvoBackgroundColor();
/// The hover state, links, the active tab, the selected period and the progress pie: the brand colour.
[[nodiscard]] QColor zelvoHoverColor();
/// Rule lines.
[[nodiscard]] QColor zelvoMainLineColor();
/// Kept in the palette; no screen uses it.
[[nodiscard]] QColor zelvoLineColor();
/// Behind buttons on the background colour.
[[nodiscard]] QColor zelvoButtonDarkBackgroundColor();
/// A link under the mouse.
[[nodiscard]] QColor zelvoLinkHover();

/// The colour written as "RRGGBB" in hexadecimal digits, with or without a "#" in front. Digits that follow
/// something else are not read; a text without digits, or none at all, gives black.
[[nodiscard]] QColor colorFromHexadecimalValue(const QString& string);
/// The colour as "#rrggbb"; a null text for an invalid colour.
[[nodiscard]] QString hexadecimalValue(const QColor& color);

/// `preferred` where it can be read on `background`, otherwise the better of white and the text colour.
[[nodiscard]] QColor readableColor(const QColor& preferred, const QColor& background);

/// Gives a window the palette that the fixed colours need, so that it stays readable on a dark desktop. Every
/// window calls this once, before it is shown.
void applyWindowPalette(QWidget& window);
