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

TEST_F(PictureTest, itIsSharpAndInItsPlaceAtEveryScaleAndKeepsItsCornersWhenStretched)
{
    for (const double scale : {1.0, 1.25, 1.5, 2.0}) {
        SCOPED_TRACE(scale);
        // One rectangle from edge to edge, with round corners.
        const auto isSolid = [](const QColor& pixel) { return pixel.alpha() == 255; };
        const QImage natural =
            drawn("SetupTextField", {120, 40}, scale, [](QPainter& painter, const Picture& field) {
                field.draw(painter, {{8, 4}, field.size()});
            });
        EXPECT_EQ(boxOf(natural, isSolid), QRectF(8 * scale, 4 * scale, 96 * scale, 32 * scale).toRect());
        const QImage stretched =
            drawn("SetupTextField", {300, 60}, scale, [](QPainter& painter, const Picture& field) {
                field.drawStretched(painter, {8, 4, 284, 52}, {7, 6, 7, 6});
            });
        EXPECT_EQ(boxOf(stretched, isSolid), QRectF(8 * scale, 4 * scale, 284 * scale, 52 * scale).toRect());
        const QRect corner = QRectF(8 * scale, 4 * scale, 6 * scale, 6 * scale).toRect();
        EXPECT_EQ(stretched.copy(corner), natural.copy(corner));
    }
}

TEST_F(PictureTest, aTintedPictureHasTheSameShapeInOneColourAndAnUnknownOneNone)
{
    const QRectF all(0, 0, 24, 24);
    const auto plain = [&](QPainter& painter, const Picture& picture) { picture.draw(painter, all); };
    const auto tinted = [&](QPainter& painter, const Picture& picture) {
        picture.drawTinted(painter, all, Qt::red);
        picture.drawStretched(painter, all, {20, 20, 20, 20}); // Of an unknown picture: nothing.
    };
    const auto grey = drawn("ButtonUp", {24, 24}, 2, plain);
    const auto red = drawn("ButtonUp", {24, 24}, 2,
        [&](QPainter& painter, const Picture& picture) { picture.drawTinted(painter, all, Qt::red); });
    EXPECT_EQ(red.convertToFormat(QImage::Format_Alpha8), grey.convertToFormat(QImage::Format_Alpha8));
    const auto colored = [](const QImage& image, QRgb color) {
        return boxOf(image, [color](const QColor& pixel) { return pixel.rgba() == color; });
    };
    EXPECT_EQ(colored(red, 0xFFFF0000), colored(grey, 0xFF616161));
    EXPECT_GT(colored(red, 0xFFFF0000).width(), 10);
    for (const Draw& draw : {Draw(plain), Draw(tinted)})
        EXPECT_TRUE(drawn("NoSuchPicture", {24, 24}, 1, draw).allGray());
}
}
