// rasterize-picture PICTURE.svg FILE SIZE...: writes for each size what the picture covers of each pixel, a
// byte a pixel and without a header, to FILE-SIZE. The status item's pictures are drawn so when the program
// is built, and an idle program needs no vector graphics.

#include <QFile>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace {
constexpr double kThickness = 22; // Of the status bar.
constexpr double kInset = 2; // Free on each side; larger pictures keep the proportion.
constexpr int kGrid = 18; // On which the pictures' edges lie.

/// Whole pixels to a step of the grid, where they cost a pixel at most.
double inset(int size)
{
    const double proportional = kInset / kThickness * size;
    const double whole = (size - std::max(1, size / kGrid) * kGrid) / 2.0;
    return std::abs(whole - proportional) <= 1 ? whole : proportional;
}

QByteArray coverage(QSvgRenderer& picture, int size)
{
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    const double free = inset(size);
    picture.render(&painter, QRectF(image.rect()).adjusted(free, free, -free, -free));
    painter.end();
    QByteArray bytes;
    for (int i = 0; i < size * size; ++i)
        bytes.append(char(qAlpha(image.pixel(i % size, i / size))));
    return bytes;
}
}

int main(int argc, char** argv)
{
    if (argc < 4)
        return 2;
    QSvgRenderer picture(QString::fromLocal8Bit(argv[1]));
    for (int i = 3; i < argc; ++i) {
        const int size = atoi(argv[i]);
        QFile file(QStringLiteral("%1-%2").arg(QString::fromLocal8Bit(argv[2])).arg(size));
        if (!picture.isValid() || !file.open(QIODevice::WriteOnly)
            || file.write(coverage(picture, size)) != qint64(size) * size) {
            fprintf(stderr, "rasterize-picture: %s cannot be drawn\n", argv[1]);
            return 1;
        }
    }
    return 0;
}
