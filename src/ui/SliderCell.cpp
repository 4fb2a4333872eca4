#include "ui/SliderCell.h"

#include <QMargins>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {
constexpr double kKnobDrop = 1; // The knob is drawn one pixel lower than it stands: its shadow is part of it.
}

SliderCell SliderCell::withPictures()
{
    SliderCell cell;
    cell.backgroundImage = Picture(QStringLiteral("SliderBackground"));
    cell.knobImage = Picture(QStringLiteral("SliderKnob"));
    return cell;
}

QRectF SliderCell::knobRect(const QSizeF& control, double value) const
{
    const QSizeF knob = knobImage.size();
    const double fraction = (value - minValue) / (maxValue - minValue);
    return {
        QPointF(fraction * (control.width() - knob.width()), (control.height() - knob.height()) / 2), knob};
}

int SliderCell::stepAt(const QSizeF& control, double x) const
{
    const double knobWidth = knobImage.size().width();
    const double way = std::max(1.0, control.width() - knobWidth);
    const double fraction = std::clamp((x - knobWidth / 2) / way, 0.0, 1.0);
    return int(std::lround(minValue + fraction * (maxValue - minValue)));
}

double SliderCell::minimumHeight() const
{
    return std::max(backgroundImage.size().height(), knobImage.size().height() + 2 * kKnobDrop);
}

void paintSlider(QPainter& painter, const QRectF& rect, const SliderCell& cell, double value)
{
    // The ends keep their shape, so that they stay under the knob's outermost places at every width.
    const int end = int(std::ceil(cell.knobImage.size().width()));
    cell.backgroundImage.drawStretched(painter, rect, QMargins(end, 0, end, 0));
    const QRectF knob = cell.knobRect(rect.size(), value);
    cell.knobImage.draw(painter, knob.translated(rect.left(), rect.top() + kKnobDrop));
}
