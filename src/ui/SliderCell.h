#pragma once

#include "ui/Picture.h"

#include <QRectF>

/// How the five-step slider is drawn: a background picture over the whole control and a knob that stands at
/// the value's share of the way. There are no tick marks.
struct SliderCell {
    double minValue = 0;
    double maxValue = 4;
    int numberOfTickMarks = 5;
    Picture backgroundImage;
    Picture knobImage;

    /// With the pictures "SliderBackground" and "SliderKnob".
    [[nodiscard]] static SliderCell withPictures();

    /// Where the knob stands for the value in a control of that size, in its own size and vertically centred.
    [[nodiscard]] QRectF knobRect(const QSizeF& control, double value) const;
    /// The step whose knob is nearest to that x.
    [[nodiscard]] int stepAt(const QSizeF& control, double x) const;
    /// The height a control needs: the background's at least.
    [[nodiscard]] double minimumHeight() const;
};

void paintSlider(QPainter& painter, const QRectF& rect, const SliderCell& cell, double value);
