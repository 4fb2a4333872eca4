#include "screens/ProgressPie.h"

#include <QImage>
#include <QPainter>

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <numbers>

namespace {
constexpr double kScales[] = {1.0, 1.25, 1.5, 2.0};

QImage pie(const QSize& size, double percent, double scale)
{
    QImage image((QSizeF(size) * scale).toSize(), QImage::Format_RGB32);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::white);
    QPainter painter(&image);
    paintPie(painter, QRectF(QPointF(), size), percent, Qt::black);
    return image;
}

/// How much of the pixel at that angle (degrees clockwise from twelve) and radius is filled: 0 to 1.
double coverage(const QImage& image, const QPointF& center, double radius, double angle)
{
    const double radians = angle * std::numbers::pi / 180;
    const QPointF point = center + radius * QPointF(std::sin(radians), -std::cos(radians));
    const QPointF device = point * image.devicePixelRatio();
    return 1 - image.pixelColor(int(device.x()), int(device.y())).lightnessF();
}
}

TEST(ProgressPie, theShareOfTheMiddleLineIsThePercentageAndItGrowsClockwiseFromTwelve)
{
    for (const double percent : {0.0, 1.0, 25.0, 50.0, 99.5, 100.0}) {
        for (const double scale : kScales) {
            SCOPED_TRACE(testing::Message() << percent << " % at scale " << scale);
            const QImage image = pie({200, 200}, percent, scale);
            const QPointF center(100, 100);
            double filled = 0;
            for (int degree = 0; degree < 360; ++degree)
                filled += coverage(image, center, 48.5, degree + 0.5);
            EXPECT_NEAR(filled / 360, percent / 100, 2.0 / 360);
            EXPECT_EQ(coverage(image, center, 94, 1.2) > 0.5, percent > 0) << "just after twelve";
            EXPECT_EQ(coverage(image, center, 94, -0.9) > 0.5, percent == 100) << "just before twelve";
        }
    }
}

TEST(ProgressPie, theSmallerSideInWholeNumbersGivesCentreAndRadius)
{
    const struct {
        QSize size;
        QPointF center;
        double radius;
    } kTestCases[] = {
        {{60, 60}, {30, 30}, 27},
        {{61, 61}, {30, 30}, 27},
        {{200, 100}, {50, 50}, 47},
        {{100, 200}, {50, 50}, 47},
        {{106, 106}, {53, 53}, 50},
    };
    for (const auto& testCase : kTestCases) {
        SCOPED_TRACE(testing::Message() << testCase.size.width() << " x " << testCase.size.height());
        const QImage image = pie(testCase.size, 100, 2);
        for (const double angle : {0.0, 45.0, 90.0, 135.0, 180.0, 225.0, 270.0, 315.0}) {
            EXPECT_GT(coverage(image, testCase.center, testCase.radius - 1.5, angle), 0.99);
            EXPECT_LT(coverage(image, testCase.center, testCase.radius + 1.5, angle), 0.01);
        }
    }
}

TEST(ProgressPie, impossibleSharesAndSizesAreHarmless)
{
    const QImage empty = pie({60, 60}, 0, 1);
    EXPECT_EQ(pie({60, 60}, -5, 1), empty);
    EXPECT_EQ(pie({60, 60}, std::numeric_limits<double>::quiet_NaN(), 1), empty);
    EXPECT_EQ(pie({60, 60}, std::numeric_limits<double>::infinity(), 1), pie({60, 60}, 100, 1));
    EXPECT_EQ(pie({6, 6}, 100, 1), pie({6, 6}, 0, 1));
}
