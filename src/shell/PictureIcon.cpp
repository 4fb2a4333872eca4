#include "shell/PictureIcon.h"

#include "platform/Bundle.h"

#include <QIconEngine>
#include <QPainter>
#include <QSvgRenderer>

#include <utility>

namespace {
class PictureIconEngine final : public QIconEngine {
public:
    PictureIconEngine(QString name, double inset)
        : m_name(std::move(name))
        , m_inset(inset)
    {
    }

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode, QIcon::State) override
    {
        const double inset = m_inset * rect.width();
        QSvgRenderer picture(Bundle::imagePath(m_name));
        picture.setAspectRatioMode(Qt::KeepAspectRatio); // A tray may ask for more height than width.
        picture.render(painter, QRectF(rect).adjusted(inset, inset, -inset, -inset));
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, pixmap.rect(), mode, state);
        return pixmap;
    }

    [[nodiscard]] QIconEngine* clone() const override { return new PictureIconEngine(m_name, m_inset); }

private:
    QString m_name;
    double m_inset;
};
}

QIcon pictureIcon(const QString& name, double inset)
{
    return QIcon(new PictureIconEngine(name, inset));
}

QIcon programIcon()
{
    QIcon icon;
    for (const int size : {16, 24, 32, 48, 64, 128})
        icon.addFile(QStringLiteral(":/icons/%1.png").arg(size), QSize(size, size));
    return icon;
}
