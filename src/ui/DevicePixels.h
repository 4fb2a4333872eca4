#pragma once

#include <QRect>

class QPainter;
class QRectF;

/// A place in the device's own pixels. At a fractional scale lines of one logical pixel come out one device
/// pixel apart; lines of `line` device pixels are equally wide wherever they stand.
struct DevicePixels {
    QRect rect;
    int line;

    /// The rectangle as the painter's device has it; from then on the painter paints in the device's pixels.
    [[nodiscard]] static DevicePixels enter(QPainter& painter, const QRectF& rect);
};
