#include "screens/CircleIndicatorView.h"

#include "fakes/ControlTest.h"
#include "ui/Palette.h"

#include <QAccessible>
#include <QLabel>

#include <numbers>

namespace {
using CircleIndicatorViewTest = ControlTest;
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

TEST_F(CircleIndicatorViewTest, thePieHasTheHoverColourOnAWhiteDiscAndTheRingLiesOverBoth)
{
    CircleIndicatorView view;
    view.setPercent(25);
    view.resize(160, 160);
    const QImage ringAlone = grab(view);
    view.setTransparent(true);
    const QImage image = grab(view);
    EXPECT_NE(image, ringAlone);
    const double onBand = 0.82 * 80 / std::numbers::sqrt2;
    EXPECT_EQ(colorAt(image, {80 + onBand, 80 - onBand}), zelvoHoverColor());
    EXPECT_EQ(colorAt(image, {80 - onBand, 80 - onBand}), QColor(Qt::white));
    const QColor frame = colorAt(image, {80, 3});
    EXPECT_NE(frame, QColor(Qt::white));
    EXPECT_NE(frame, zelvoHoverColor());
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
