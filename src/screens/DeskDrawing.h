#pragma once

class QColor;
class QPainter;
class QRectF;

/// A desk with a monitor, seen from the front and drawn to scale. It stands on the middle of the rectangle's
/// lower edge; at its highest it reaches the upper one. Heights that no desk has are drawn as the nearest
/// that one has.
void paintDesk(QPainter& painter, const QRectF& rect, double heightMillimetres, const QColor& color);
/// How much of the rectangle's height that drawing takes.
[[nodiscard]] double deskDrawingHeight(const QRectF& rect, double heightMillimetres);
