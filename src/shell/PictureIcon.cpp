#include "shell/PictureIcon.h"

#include <QHash>
#include <QIconEngine>
#include <QPainter>

#include <algorithm>
#include <utility>

namespace {
class PictureIconEngine final : public QIconEngine {
public:
    PictureIconEngine(QList<int> sizes, std::function<QImage(int)> draw)
        : m_sizes(std::move(sizes))
        , m_draw(std::move(draw))
    {
    }

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override
    {
        const QPixmap picture = pixmap(rect.size(), mode, state);
        QRect target(QPoint(), picture.size());
        target.moveCenter(rect.center());
        painter->drawPixmap(target, picture);
    }

    /// Square, for a tray may ask for more height than width.
    QPixmap pixmap(const QSize& size, QIcon::Mode, QIcon::State) override
    {
        const int asked = std::min({size.width(), size.height(), m_sizes.last()});
        QPixmap& known = m_pixmaps[asked];
        if (known.isNull()) {
            const auto found = std::lower_bound(m_sizes.cbegin(), m_sizes.cend(), asked);
            const QImage picture = m_draw(found == m_sizes.cend() ? m_sizes.last() : *found);
            known = QPixmap::fromImage(
                picture.scaled(asked, asked, Qt::KeepAspectRatio, Qt::SmoothTransformation));
        }
        return known;
    }

    QList<QSize> availableSizes(QIcon::Mode, QIcon::State) override
    {
        QList<QSize> sizes;
        for (const int size : std::as_const(m_sizes))
            sizes.append(QSize(size, size));
        return sizes;
    }

    [[nodiscard]] QIconEngine* clone() const override { return new PictureIconEngine(m_sizes, m_draw); }

private:
    QList<int> m_sizes; ///< ascending
    std::function<QImage(int)> m_draw;
    QHash<int, QPixmap> m_pixmaps; ///< by the size that was asked for
};
}

QIcon pictureIcon(const QList<int>& sizes, std::function<QImage(int)> draw)
{
    return QIcon(new PictureIconEngine(sizes, std::move(draw)));
}

QIcon programIcon()
{
    return pictureIcon({16, 24, 32, 48, 64, 128},
        [](int size) { return QImage(QStringLiteral(":/icons/%1.png").arg(size)); });
}
