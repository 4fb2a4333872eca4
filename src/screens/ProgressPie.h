#pragma once

class QColor;
class QPainter;
class QRectF;

/// A filled share of a disc, growing clockwise from twelve o'clock. With s = the rectangle's smaller side cut
/// to a whole number and h = s / 2 in whole numbers, the centre lies (h, h) from the rectangle's corner and
/// the radius is h - 3. 0 and less (or an undefined share) draw nothing, 100 and more the whole disc.
void paintPie(QPainter& painter, const QRectF& rect, double percent, const QColor& color);
