#pragma once

class QColor;
class QLabel;
class QString;
class QWidget;

// The two texts inside a circle.

/// An empty label inside the circle that lets the mouse through.
[[nodiscard]] QLabel* createCircleLabel(QWidget& circle, const QColor& color);
/// Shows the text in upper case, shortened with an ellipsis where the circle is too narrow for it.
void setCircleLabelText(QLabel& label, const QString& text);
/// Both centred; the value's middle `valueOffset` below the circle's, the caption `gap` below the value.
void layOutCircleLabels(QLabel& value, QLabel& title, double valueOffset, int gap);
