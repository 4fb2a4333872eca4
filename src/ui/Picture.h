#pragma once

#include <QSizeF>
#include <QString>

class QColor;
class QMargins;
class QPainter;
class QPixmap;
class QRectF;

/// One of the program's pictures, by name, in the colours of the look that the program wears. It is drawn
/// from its vector form for exactly the device pixels it covers, so that it is crisp at every scale; the
/// results are kept in Qt's pixmap cache.
class Picture {
public:
    Picture() = default;
    /// A name that the program has no picture for gives a null picture and one log line.
    explicit Picture(const QString& name);

    [[nodiscard]] bool isNull() const { return m_name.isNull(); }
    [[nodiscard]] const QString& name() const { return m_name; }
    /// The natural size in logical pixels.
    [[nodiscard]] QSizeF size() const { return m_size; }

    /// Scaled to the rectangle.
    void draw(QPainter& painter, const QRectF& target) const;
    /// The same shapes in one colour.
    void drawTinted(QPainter& painter, const QRectF& target, const QColor& color) const;
    /// Fitted to the rectangle: the margins, in logical pixels, keep their shape, the rest stretches.
    void drawStretched(QPainter& painter, const QRectF& target, const QMargins& margins) const;
    /// `size` in logical pixels.
    [[nodiscard]] QPixmap pixmap(QSizeF size, qreal devicePixelRatio) const;

    friend bool operator==(const Picture&, const Picture&) = default;

private:
    QString m_name;
    QSizeF m_size;
};
