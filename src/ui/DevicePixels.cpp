#include "ui/DevicePixels.h"

#include <QPainter>

#include <algorithm>

DevicePixels DevicePixels::enter(QPainter& painter, const QRectF& rect)
{
    const QTransform toDevice = painter.deviceTransform();
    painter.setTransform(toDevice.inverted(), true);
    const QRectF mapped = toDevice.mapRect(rect);
    const QRect whole(mapped.topLeft().toPoint(), mapped.bottomRight().toPoint() - QPoint(1, 1));
    return {whole, std::max(1, int(toDevice.m11()))};
}
