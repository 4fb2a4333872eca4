#pragma once

#include <QByteArray>
#include <QColor>
#include <QString>

class QWidget;

// The colours of every window, in the look that the program wears. Nothing else in a window names a colour
// value, and the tray icon keeps its own; pictures are drawn in the light look's. In either look text
// stands out 4.5 : 1 from every ground that it has, and what is not text 3 : 1; rules are decoration.

/// The brand colour, information key "ZelvoColor1"; black when the bundle names none. It is the same in both.
[[nodiscard]] QColor zelvoColor1();
/// Ordinary text and the titles of idle buttons.
[[nodiscard]] QColor zelvoTextColor();
/// Behind windows, labels and error lines.
[[nodiscard]] QColor zelvoBackgroundColor();
/// Behind what lies on a window like paper: cards, circles.
[[nodiscard]] QColor zelvoCardColor();
/// The largest numbers on cards.
[[nodiscard]] QColor zelvoStrongTextColor();
/// The hover state, links, the active tab, the selected period and the progress pie: the brand colour, in the
/// dark look a lighter one.
[[nodiscard]] QColor zelvoHoverColor();
/// A surface in the brand colour, and the text on it.
[[nodiscard]] QColor zelvoBrandSurfaceColor();
[[nodiscard]] QColor zelvoBrandTextColor();
/// In entry fields.
[[nodiscard]] QColor zelvoFieldTextColor();
/// Bars and rings that say something.
[[nodiscard]] QColor zelvoMarkColor();
/// What a press lays over a control without a background, and makes of one.
[[nodiscard]] QColor zelvoPressShade();
[[nodiscard]] QColor pressedColor(const QColor& background);
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

/// `preferred` where it can be read on `background`, otherwise the nearest shade of it that can; where that
/// is far away, white or a dark grey.
[[nodiscard]] QColor readableColor(const QColor& preferred, const QColor& background);
/// The contrast of two colours, from 1 to 21 : 1, as the Web Content Accessibility Guidelines 2.1 count it.
[[nodiscard]] double contrast(const QColor& first, const QColor& second);

/// A drawing in the light look's colours, in those of the look that the program wears.
[[nodiscard]] QByteArray inPresentLook(QByteArray svg);

/// Gives a window the palette of the look that the program wears, whatever the desktop's is.
void applyWindowPalette(QWidget& window);
