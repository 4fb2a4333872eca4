#pragma once

#include "ui/Picture.h"

#include <QColor>
#include <QFont>
#include <QString>

class QPainter;
class QRectF;
class QSize;

/// Of what cannot be used now.
constexpr qreal kDisabledOpacity = 0.45;

/// What a button looks like at one moment.
struct ButtonState {
    QString title;
    QFont font;
    QColor textColor;
    QColor backgroundColor; ///< invalid: none
    Picture image;
    /// The title beside the picture or under it; or not drawn, and only said by screen readers.
    Qt::ToolButtonStyle toolButtonStyle = Qt::ToolButtonTextBesideIcon;
    Qt::LayoutDirection direction = Qt::LeftToRight;
    bool shadesWhenPressed = true; ///< also where it has no background of its own
    bool isUnderlined = false;
    bool isPressed = false;
    bool isEnabled = true;
    bool showsFocus = false;

    friend bool operator==(const ButtonState&, const ButtonState&) = default;
};

/// A title that does not fit ends in an ellipsis.
void paintButton(QPainter& painter, const QRectF& rect, const ButtonState& state);
/// The size that shows image and whole title.
[[nodiscard]] QSize buttonSizeHint(const ButtonState& state);
