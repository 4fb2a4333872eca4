#include "screens/CircleIndicatorView.h"

#include "fakes/ControlTest.h"
#include "ui/FontAndTextHandler.h"
#include "ui/Palette.h"

#include <QAccessible>
#include <QLabel>

#include <cmath>
#include <numbers>

namespace {
using CircleIndicatorViewTest = ControlTest;

/// The share of the ring's band that has the hover colour and is not white.
double filledShareOfBand(const QImage& image, double side)
{
    constexpr double kMiddleOfBand = 0.82; // Of the half side: between the inner disc and the frame.
    const double range = 1 - zelvoHoverColor().lightnessF();
    double filled = 0;
    for (int degree = 0; degree < 360; ++degree) {
        const double radians = (degree + 0.5) * std::numbers::pi / 180;
        const QPointF point = QPointF(side / 2, side / 2)
            + kMiddleOfBand * side / 2 * QPointF(std::sin(radians), -std::cos(radians));
        const QPointF device = point * image.devicePixelRatio();
        filled += (1 - image.pixelColor(int(device.x()), int(device.y())).lightnessF()) / range;
    }
    return filled / 360;
}
}

TEST_F(CircleIndicatorViewTest, textsAreUpperCaseAndNothingLeavesThemAlone)
{
    CircleIndicatorView view;
    view.resize(160, 160);
    view.setValue(QStringLiteral("12 a"));
    view.setTitle(QStringLiteral("Calories"));
    EXPECT_EQ(view.textFieldValue()->text(), QStringLiteral("12 A"));
    EXPECT_EQ(view.textFieldTitle()->text(), QStringLiteral("CALORIES"));
    view.setValue(std::nullopt);
    view.setTitle(std::nullopt);
    EXPECT_EQ(view.textFieldValue()->text(), QStringLiteral("12 A"));
    EXPECT_EQ(view.textFieldTitle()->text(), QStringLiteral("CALORIES"));
    view.setValue(QString());
    EXPECT_EQ(view.textFieldValue()->text(), QString());
}

TEST_F(CircleIndicatorViewTest, theLabelsStandWhereTheRulesPutThem)
{
    const struct {
        int side;
        double verticalOffset;
        int margin;
        double middle;
    } kTestCases[] = {{100, 0, 0, 50 - 5}, {160, 0, 0, 80 - 7}, {100, 4, 3, 50 - 9}, {160, -6, 8, 80 - 1}};
    for (const auto& testCase : kTestCases) {
        SCOPED_TRACE(testing::Message() << testCase.side << ", offset " << testCase.verticalOffset);
        CircleIndicatorView view;
        view.setVerticalOffset(testCase.verticalOffset);
        view.setMarginBetweenValueAndTitle(testCase.margin);
        view.setValue(QStringLiteral("32"));
        view.setTitle(QStringLiteral("Min"));
        view.resize(testCase.side, testCase.side);
        show(view);
        const QRectF value(view.textFieldValue()->geometry());
        const QRectF title(view.textFieldTitle()->geometry());
        EXPECT_NEAR(value.center().x(), testCase.side / 2.0, 0.5);
        EXPECT_NEAR(title.center().x(), testCase.side / 2.0, 0.5);
        EXPECT_NEAR(value.center().y(), testCase.middle, 0.5);
        EXPECT_EQ(title.top(), value.bottom() + testCase.margin);
    }
}

TEST_F(CircleIndicatorViewTest, theBandIsFilledByThePercentageAtEveryScaleAndSize)
{
    for (const int side : {100, 160}) {
        CircleIndicatorView view;
        view.setTransparent(true);
        view.resize(side, side);
        for (const double percent : {0.0, 25.0, 50.0, 99.5, 100.0}) {
            view.setPercent(percent);
            for (const double scale : {1.0, 1.25, 1.5, 2.0}) {
                SCOPED_TRACE(testing::Message() << side << ", " << percent << " % at scale " << scale);
                EXPECT_NEAR(filledShareOfBand(grab(view, scale), side), percent / 100, 2.0 / 360);
            }
        }
    }
}

TEST_F(CircleIndicatorViewTest, thePieHasTheHoverColourOnAWhiteDiscAndTheRingLiesOverBoth)
{
    CircleIndicatorView view;
    view.setTransparent(true);
    view.setPercent(25);
    view.resize(160, 160);
    const QImage image = grab(view);
    const double onBand = 0.82 * 80 / std::numbers::sqrt2;
    EXPECT_EQ(colorAt(image, {80 + onBand, 80 - onBand}), zelvoHoverColor());
    EXPECT_EQ(colorAt(image, {80 - onBand, 80 - onBand}), QColor(Qt::white));
    const QColor frame = colorAt(image, {80, 3});
    EXPECT_NE(frame, QColor(Qt::white));
    EXPECT_NE(frame, zelvoHoverColor());
}

TEST_F(CircleIndicatorViewTest, withoutTransparencyOnlyTheRingIsDrawn)
{
    CircleIndicatorView view;
    view.resize(160, 160);
    view.setPercent(75);
    const QImage opaque = grab(view);
    view.setPercent(10);
    EXPECT_EQ(grab(view), opaque);
    EXPECT_EQ(filledShareOfBand(opaque, 160), 0);
    view.setTransparent(true);
    EXPECT_NE(grab(view), opaque);
}

TEST_F(CircleIndicatorViewTest, screenReadersHearValueCaptionAndPercentage)
{
    CircleIndicatorView view;
    view.setValue(QStringLiteral("250"));
    view.setTitle(QStringLiteral("Calories"));
    view.setPercent(66.7);
    QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(&view);
    EXPECT_EQ(interface->role(), QAccessible::ProgressBar);
    EXPECT_EQ(interface->text(QAccessible::Name), QStringLiteral("250 Calories"));
    EXPECT_EQ(interface->text(QAccessible::Value), QStringLiteral("66 %"));
    EXPECT_DOUBLE_EQ(interface->valueInterface()->currentValue().toDouble(), 66.7);
    EXPECT_EQ(interface->valueInterface()->maximumValue().toDouble(), 100);
    EXPECT_EQ(interface->childCount(), 0);
    view.setAccessibleName(QStringLiteral("Today"));
    EXPECT_EQ(interface->text(QAccessible::Name), QStringLiteral("Today: 250 Calories"));
    view.setValue(QString());
    view.setTitle(QString());
    EXPECT_EQ(interface->text(QAccessible::Name), QStringLiteral("Today"));
}
