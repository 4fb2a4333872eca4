#include "ui/Picture.h"

#include "platform/Bundle.h"
#include "platform/Log.h"

#include <QHash>
#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>
#include <qdrawutil.h>

namespace {
/// The natural size of a picture; an empty one when there is no such picture. Read once for each name.
QSizeF naturalSize(const QString& name)
{
    static QHash<QString, QSizeF> s_sizes;
    const auto known = s_sizes.constFind(name);
    if (known != s_sizes.cend())
        return *known;
    const QSvgRenderer renderer(Bundle::imagePath(name));
    if (!renderer.isValid())
        Log::line(QStringLiteral("There is no picture \"%1\".").arg(name));
    return *s_sizes.insert(name, renderer.isValid() ? QSizeF(renderer.defaultSize()) : QSizeF());
}

QPixmap renderedPixmap(const QString& name, QSize devicePixels)
{
    const QString key =
        QStringLiteral("zelvo/%1/%2x%3")
            .arg(name, QString::number(devicePixels.width()), QString::number(devicePixels.height()));
    QPixmap pixmap;
    if (QPixmapCache::find(key, &pixmap))
        return pixmap;
    pixmap = QPixmap(devicePixels);
    pixmap.fill(Qt::transparent);
    QSvgRenderer renderer(Bundle::imagePath(name));
    QPainter painter(&pixmap);
    renderer.render(&painter, QRectF(QPointF(), QSizeF(devicePixels)));
    QPixmapCache::insert(key, pixmap);
    return pixmap;
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
    // The scale of the surface together with the painter's own.
    const qreal scale = painter.deviceTransform().m11();
    const QPixmap picture = pixmap(target.size(), scale > 0 ? scale : 1);
    if (!picture.isNull())
        painter.drawPixmap(target, picture, QRectF(picture.rect()));
}

void Picture::drawStretched(QPainter& painter, const QRectF& target, qreal corner) const
{
    const qreal scale = painter.deviceTransform().m11();
    const QPixmap picture = pixmap(m_size, scale > 0 ? scale : 1);
    if (picture.isNull())
        return;
    const int margin = int(corner);
    qDrawBorderPixmap(&painter, target.toAlignedRect(), QMargins(margin, margin, margin, margin), picture);
}
