#include "screens/DeskDrawing.h"

#include <QPainter>

#include <algorithm>

namespace {
// In millimetres, upwards from the floor and sideways from the middle.
constexpr double kLowest = 560;
constexpr double kHighest = 1330;
constexpr double kTop = 1400; ///< width of the table's top
constexpr double kTopThickness = 56;
constexpr double kMonitorHeight = 460;
constexpr double kInnerColumnOpacity = 0.55; // Telescopic: the inner column is thinner and further back.

double scaleFor(const QRectF& rect)
{
    return std::min(rect.width() / kTop, rect.height() / (kHighest + kMonitorHeight));
}

void paintLegs(QPainter& painter, double height)
{
    constexpr double kOuterEnd = 480;
    for (const double x : {-480.0, 480.0}) {
        painter.drawRoundedRect(QRectF(x - 110, 0, 220, 44), 20, 20);
        painter.drawRect(QRectF(x - 48, 44, 96, kOuterEnd - 44));
        painter.save();
        painter.setOpacity(painter.opacity() * kInnerColumnOpacity);
        painter.drawRect(QRectF(x - 34, kOuterEnd, 68, height - kTopThickness - kOuterEnd));
        painter.restore();
    }
}

void paintMonitor(QPainter& painter, double height, const QColor& color)
{
    constexpr double kFrame = 44;
    constexpr double kWidth = 620;
    constexpr double kFoot = 110;
    painter.drawRect(QRectF(-110, height, 220, 26));
    painter.drawRect(QRectF(-30, height, 60, kFoot));
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(color, kFrame));
    painter.drawRoundedRect(
        QRectF(-kWidth / 2, height + kFoot, kWidth, kMonitorHeight - kFoot - kFrame / 2), 20, 20);
}
}

void paintDesk(QPainter& painter, const QRectF& rect, double heightMillimetres, const QColor& color)
{
    const double height = std::clamp(heightMillimetres, kLowest, kHighest);
    const double scale = scaleFor(rect);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(rect.center().x(), rect.bottom());
    painter.scale(scale, -scale);
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    paintLegs(painter, height);
    painter.drawRoundedRect(QRectF(-kTop / 2, height - kTopThickness, kTop, kTopThickness), 24, 24);
    paintMonitor(painter, height, color);
    painter.restore();
}

double deskDrawingHeight(const QRectF& rect, double heightMillimetres)
{
    return (std::clamp(heightMillimetres, kLowest, kHighest) + kMonitorHeight) * scaleFor(rect);
}
