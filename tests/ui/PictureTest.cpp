#include "ui/Picture.h"

#include "fakes/ControlTest.h"

#include <QMargins>
#include <QPainter>

namespace {
using PictureTest = ControlTest;

QImage canvas(QSize size, double scale)
{
    QImage image((QSizeF(size) * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::transparent);
    return image;
}
}

TEST_F(PictureTest, anUnknownNameIsANullPictureThatDrawsNothing)
{
    const Picture picture(QStringLiteral("NoSuchPicture"));
    EXPECT_TRUE(picture.isNull());
    QImage image = canvas({10, 10}, 1);
    const QImage before = image;
    QPainter painter(&image);
    picture.draw(painter, QRectF(0, 0, 10, 10));
    picture.drawTinted(painter, QRectF(0, 0, 10, 10), Qt::red);
    picture.drawStretched(painter, QRectF(0, 0, 10, 10), QMargins(1, 1, 1, 1));
    painter.end();
    EXPECT_EQ(image, before);
}

TEST_F(PictureTest, edgesStayOneDevicePixelSharpAtEveryScale)
{
    const Picture field(QStringLiteral("SetupTextField")); // One rectangle from edge to edge.
    for (const double scale : {1.0, 1.25, 1.5, 2.0}) {
        SCOPED_TRACE(scale);
        QImage image = canvas({120, 40}, scale);
        QPainter painter(&image);
        field.draw(painter, QRectF(8, 4, 96, 32));
        painter.end();
        const int row = image.height() / 2;
        int soft = 0;
        for (int x = 0; x < image.width(); ++x) {
            const int alpha = image.pixelColor(x, row).alpha();
            soft += alpha > 0 && alpha < 255;
        }
        EXPECT_LE(soft, 2);
        EXPECT_EQ(image.pixelColor(int(7 * scale) - 1, row).alpha(), 0);
        EXPECT_EQ(image.pixelColor(int(9 * scale), row).alpha(), 255);
    }
}

TEST_F(PictureTest, stretchingKeepsTheCornersAtEveryScale)
{
    const Picture field(QStringLiteral("SetupTextField"));
    for (const double scale : {1.0, 1.25, 1.5, 2.0}) {
        SCOPED_TRACE(scale);
        QImage natural = canvas({96, 32}, scale);
        QPainter naturalPainter(&natural);
        field.draw(naturalPainter, QRectF(0, 0, 96, 32));
        naturalPainter.end();
        QImage stretched = canvas({300, 60}, scale);
        QPainter stretchedPainter(&stretched);
        field.drawStretched(stretchedPainter, QRectF(0, 0, 300, 60), QMargins(6, 6, 6, 6));
        stretchedPainter.end();
        const QRect corner(QPoint(), QSizeF(6 * scale, 6 * scale).toSize());
        EXPECT_EQ(stretched.copy(corner), natural.copy(corner));
        EXPECT_EQ(stretched.pixelColor(stretched.rect().center()).alpha(), 255);
    }
}

TEST_F(PictureTest, aTintedPictureHasTheSameShapeInOneColour)
{
    QImage plain = canvas({24, 24}, 2);
    QImage tinted = canvas({24, 24}, 2);
    const Picture picture(QStringLiteral("ButtonUp"));
    QPainter plainPainter(&plain);
    picture.draw(plainPainter, QRectF(0, 0, 24, 24));
    plainPainter.end();
    QPainter tintedPainter(&tinted);
    picture.drawTinted(tintedPainter, QRectF(0, 0, 24, 24), Qt::red);
    tintedPainter.end();
    int drawn = 0;
    for (int y = 0; y < tinted.height(); ++y) {
        for (int x = 0; x < tinted.width(); ++x) {
            EXPECT_EQ(tinted.pixelColor(x, y).alpha(), plain.pixelColor(x, y).alpha());
            if (tinted.pixelColor(x, y).alpha() == 255) {
                ++drawn;
                EXPECT_EQ(tinted.pixelColor(x, y), QColor(Qt::red));
            }
        }
    }
    EXPECT_GT(drawn, 50);
}
