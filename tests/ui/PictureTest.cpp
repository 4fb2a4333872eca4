#include "ui/Picture.h"

#include "fakes/ControlTest.h"

#include <QMargins>
#include <QPainter>

namespace {
class PictureTest : public ControlTest {
protected:
    using Draw = std::function<void(QPainter& painter, const Picture& picture)>;
    static QImage drawn(const char* name, QSize size, double scale, const Draw& draw)
    {
        QImage image((QSizeF(size) * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
        image.setDevicePixelRatio(scale);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        draw(painter, Picture(QString::fromLatin1(name)));
        return image;
    }
};

TEST_F(PictureTest, anUnknownNameIsANullPictureThatDrawsNothing)
{
    const QImage image = drawn("NoSuchPicture", {10, 10}, 1, [](QPainter& painter, const Picture& picture) {
        EXPECT_TRUE(picture.isNull());
        picture.draw(painter, QRectF(0, 0, 10, 10));
        picture.drawTinted(painter, QRectF(0, 0, 10, 10), Qt::red);
        picture.drawStretched(painter, QRectF(0, 0, 10, 10), QMargins(1, 1, 1, 1));
    });
    EXPECT_TRUE(boxOf(image, [](const QColor& pixel) { return pixel.alpha() > 0; }).isEmpty());
}

TEST_F(PictureTest, itIsSharpAndInItsPlaceAtEveryScaleAndKeepsItsCornersWhenStretched)
{
    const QMargins margins(6, 6, 6, 6);
    for (const double scale : {1.0, 1.25, 1.5, 2.0}) {
        SCOPED_TRACE(scale);
        // One rectangle from edge to edge, with round corners.
        const QImage natural = drawn("SetupTextField", {120, 40}, scale,
            [](QPainter& painter, const Picture& field) { field.draw(painter, QRectF(8, 4, 96, 32)); });
        const auto isSolid = [](const QColor& pixel) { return pixel.alpha() == 255; };
        const QRectF box = boxOf(natural, isSolid);
        EXPECT_NEAR(box.left(), 8 * scale, 1);
        EXPECT_NEAR(box.top(), 4 * scale, 1);
        EXPECT_NEAR(box.width(), 96 * scale, 2);
        EXPECT_NEAR(box.height(), 32 * scale, 2);

        const QImage corner =
            drawn("SetupTextField", {96, 32}, scale, [](QPainter& painter, const Picture& field) {
                field.draw(painter, QRectF(QPointF(), field.size()));
            });
        const QImage stretched =
            drawn("SetupTextField", {300, 60}, scale, [&](QPainter& painter, const Picture& field) {
                field.drawStretched(painter, QRectF(0, 0, 300, 60), margins);
            });
        const QRect part(QPoint(), QSizeF(6 * scale, 6 * scale).toSize());
        EXPECT_EQ(stretched.copy(part), corner.copy(part));
        EXPECT_EQ(boxOf(stretched, isSolid).size(), stretched.size());
        EXPECT_TRUE(isSolid(stretched.pixelColor(stretched.rect().center())));
    }
}

TEST_F(PictureTest, aTintedPictureHasTheSameShapeInOneColour)
{
    const QRectF all(0, 0, 24, 24);
    const QImage plain = drawn("ButtonUp", {24, 24}, 2,
        [&](QPainter& painter, const Picture& picture) { picture.draw(painter, all); });
    const QImage tinted = drawn("ButtonUp", {24, 24}, 2,
        [&](QPainter& painter, const Picture& picture) { picture.drawTinted(painter, all, Qt::red); });
    EXPECT_EQ(tinted.convertToFormat(QImage::Format_Alpha8), plain.convertToFormat(QImage::Format_Alpha8));
    const auto isRed = [](const QColor& pixel) { return pixel == QColor(Qt::red); };
    const auto isGrey = [](const QColor& pixel) { return pixel == QColor(0x61, 0x61, 0x61); };
    EXPECT_EQ(boxOf(tinted, isRed), boxOf(plain, isGrey));
    EXPECT_GT(boxOf(tinted, isRed).width(), 10);
}
}
