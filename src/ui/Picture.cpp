#include "ui/Picture.h"

#include "platform/Bundle.h"
#include "platform/Log.h"
#include "ui/Appearance.h"
#include "ui/Palette.h"

#include <QBuffer>
#include <QFile>
#include <QHash>
#include <QImageReader>
#include <QMargins>
#include <QPainter>
#include <QPixmapCache>

#include <array>

namespace {
/// Qt loads its vector graphics when the first picture is drawn; a program without a window does without.
constexpr char kFormat[] = "svg";

/// The natural size of a picture; an empty one when there is no such picture. Read once for each name.
QSizeF naturalSize(const QString& name)
{
    static QHash<QString, QSizeF> s_sizes;
    const auto known = s_sizes.constFind(name);
    if (known != s_sizes.cend())
        return *known;
    const QSize size = QImageReader(Bundle::imagePath(name), kFormat).size();
    if (!size.isValid())
        Log::line(QStringLiteral("There is no picture \"%1\".").arg(name));
    return *s_sizes.insert(name, size.isValid() ? QSizeF(size) : QSizeF());
}

QPixmap renderedPixmap(const QString& name, QSize devicePixels)
{
    const QString key =
        QStringLiteral("zelvo/%1/%2x%3/%4")
            .arg(name, QString::number(devicePixels.width()), QString::number(devicePixels.height()),
                Appearance::isDark() ? QStringLiteral("dark") : QStringLiteral("light"));
    QPixmap pixmap;
    if (QPixmapCache::find(key, &pixmap))
        return pixmap;
    QFile file(Bundle::imagePath(name));
    (void)file.open(QIODevice::ReadOnly); // It is there: its natural size was read from it.
    QByteArray picture = inPresentLook(file.readAll());
    QBuffer buffer(&picture);
    QImageReader reader(&buffer, kFormat);
    reader.setScaledSize(devicePixels);
    pixmap = QPixmap::fromImageReader(&reader);
    QPixmapCache::insert(key, pixmap);
    return pixmap;
}

/// Device pixels to one logical pixel: the surface's scale together with the painter's own.
qreal deviceScale(const QPainter& painter)
{
    const qreal scale = painter.deviceTransform().m11();
    return scale > 0 ? scale : 1;
}

using Cuts = std::array<qreal, 4>;

QRectF part(const Cuts& x, const Cuts& y, size_t column, size_t row)
{
    return {QPointF(x[column], y[row]), QPointF(x[column + 1], y[row + 1])};
}
}

Picture::Picture(const QString& name)
    : m_size(naturalSize(name))
{
    if (!m_size.isEmpty())
        m_name = name;
}

QPixmap Picture::pixmap(QSizeF size, qreal devicePixelRatio) const
{
    const QSize devicePixels = (size * devicePixelRatio).toSize();
    if (isNull() || devicePixels.isEmpty())
        return {};
    QPixmap result = renderedPixmap(m_name, devicePixels);
    result.setDevicePixelRatio(devicePixelRatio);
    return result;
}

void Picture::draw(QPainter& painter, const QRectF& target) const
{
    const QPixmap picture = pixmap(target.size(), deviceScale(painter));
    if (!picture.isNull())
        painter.drawPixmap(target, picture, QRectF(picture.rect()));
}

void Picture::drawTinted(QPainter& painter, const QRectF& target, const QColor& color) const
{
    QPixmap picture = pixmap(target.size(), deviceScale(painter));
    if (picture.isNull())
        return;
    QPainter tinter(&picture);
    tinter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    tinter.fillRect(QRectF(QPointF(), picture.deviceIndependentSize()), color);
    tinter.end();
    painter.drawPixmap(target, picture, QRectF(picture.rect()));
}

void Picture::drawStretched(QPainter& painter, const QRectF& target, const QMargins& margins) const
{
    const qreal scale = deviceScale(painter);
    const QPixmap picture = pixmap(m_size, scale);
    if (picture.isNull())
        return;
    const auto cuts = [](qreal start, qreal end, qreal before, qreal after) {
        return std::array {start, start + before, end - after, end};
    };
    const auto targetX = cuts(target.left(), target.right(), margins.left(), margins.right());
    const auto targetY = cuts(target.top(), target.bottom(), margins.top(), margins.bottom());
    // The source is counted in the pixmap's own pixels.
    const auto sourceX = cuts(0, picture.width(), margins.left() * scale, margins.right() * scale);
    const auto sourceY = cuts(0, picture.height(), margins.top() * scale, margins.bottom() * scale);
    for (size_t row = 0; row < 3; ++row) {
        for (size_t column = 0; column < 3; ++column)
            painter.drawPixmap(
                part(targetX, targetY, column, row), picture, part(sourceX, sourceY, column, row));
    }
}
