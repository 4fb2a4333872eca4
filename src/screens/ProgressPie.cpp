#include "screens/ProgressPie.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>

namespace {
constexpr int kInset = 3; // The ring frames the pie with this much room.
constexpr double kTwelveOClock = 90; // Degrees, counter-clockwise from three o'clock.
}

void paintPie(QPainter& painter, const QRectF& rect, double percent, const QColor& color)
{
    const int half = int(std::min(rect.width(), rect.height())) / 2;
    const double radius = half - kInset;
    if (radius <= 0 || !(percent > 0))
        return;
    const QPointF center = rect.topLeft() + QPointF(half, half);
    const QRectF disc(center - QPointF(radius, radius), center + QPointF(radius, radius));
    QPainterPath path(center);
    path.arcTo(disc, kTwelveOClock, percent / -100 * 360); // It goes round once at most.
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(path, color);
    painter.restore();
}
