#include "fakes/ControlTest.h"
#include "screens/CircleIndicatorView.h"
#include "screens/GoalCircleView.h"
#include "screens/ProgressPie.h"
#include "ui/Palette.h"

#include <QAccessible>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QTest>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {
using CirclesTest = ControlTest;

QImage pie(const QSize& size, double percent)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    paintPie(painter, QRectF(QPointF(), size), percent, Qt::black);
    return image;
}

/// How much of the pixel at that angle (degrees clockwise from twelve) and radius is filled: 0 to 1.
double coverage(const QImage& image, double radius, double angle)
{
    const double radians = angle * std::numbers::pi / 180;
    const QPointF point = QPointF(100, 100) + radius * QPointF(std::sin(radians), -std::cos(radians));
    return 1 - image.pixelColor(int(point.x()), int(point.y())).lightnessF();
}
}

TEST_F(CirclesTest, thePiesShareOfTheMiddleLineIsThePercentageAndItGrowsClockwiseFromTwelve)
{
    for (const double percent : {-5.0, 0.0, 1.0, 25.0, 99.5, 100.0, 107.0}) {
        const QImage image = pie({201, 260}, percent); // In whole numbers 100 to the centre.
        double filled = 0;
        for (int degree = 0; degree < 360; ++degree) {
            filled += coverage(image, 48.5, degree + 0.5);
            EXPECT_LT(coverage(image, 98.5, degree + 0.5), 0.01);
        }
        EXPECT_NEAR(filled / 360, std::clamp(percent / 100, 0.0, 1.0), 2.0 / 360);
        EXPECT_EQ(coverage(image, 95.5, 1.2) > 0.5, percent > 0) << "just after twelve";
        EXPECT_EQ(coverage(image, 95.5, -0.9) > 0.5, percent >= 100) << "just before twelve";
    }
    EXPECT_EQ(pie({7, 7}, 100), pie({7, 7}, 0));
}

TEST_F(CirclesTest, theSmallerSideDecidesOnTheSizeAndTheWidthOnHowMuchIsSaid)
{
    for (const auto& [size, fontSize, margin] :
        {std::tuple(QSize(105, 105), 30, 0), {{106, 106}, 42, 5}, {{300, 100}, 30, 3}}) {
        CircleIndicatorView view;
        view.setMarginBetweenValueAndTitle(margin);
        view.setValue(QStringLiteral("32"));
        view.setTitle("Minutes of standing in all");
        view.resize(size);
        show(view);
        EXPECT_EQ(view.textFieldValue()->font().pixelSize(), fontSize);
        EXPECT_EQ(view.textFieldTitle()->y(), view.textFieldValue()->geometry().bottom() + 1 + margin);
        EXPECT_EQ(view.textFieldTitle()->text().endsWith(QChar(0x2026)), size.width() < 300);
        EXPECT_GE(view.textFieldTitle()->x(), 6);
    }
}

TEST_F(CirclesTest, aRingTellsItsShareToScreenReaders)
{
    CircleIndicatorView view;
    view.setPercent(66.7);
    view.setAccessibleName("Today");
    QAccessibleInterface* told = QAccessible::queryAccessibleInterface(&view);
    view.setValue(QStringLiteral("250"));
    view.setTitle("Calories");
    EXPECT_EQ(told->text(QAccessible::Name), "Today: 250 Calories");
    EXPECT_EQ(told->text(QAccessible::Value), "66 %");
    EXPECT_EQ(told->valueInterface()->currentValue().toDouble(), 66.7);
    EXPECT_TRUE(told->state().readOnly && told->childCount() == 0);
}

TEST_F(CirclesTest, aClickOnAGoalEndsTextEditingAndTheChosenOneLooksSoUnderTheMouseToo)
{
    struct Delegate final : GoalCircleViewDelegate {
        int clicks = 0;
        void goalCircleIndicatorViewClicked(GoalCircleView&) override { ++clicks; }
    } delegate;
    QWidget window;
    QLineEdit field(&window);
    GoalCircleView circle(&window);
    circle.setDelegate(&delegate);
    circle.setGeometry(20, 20, 60, 60);
    show(window);
    field.setFocus();
    QTest::mousePress(&circle, Qt::RightButton);
    EXPECT_TRUE(field.hasFocus());
    QTest::mousePress(&circle, Qt::LeftButton);
    EXPECT_EQ(window.focusWidget(), nullptr);
    circle.setFocus(Qt::TabFocusReason);
    EXPECT_EQ(grab(circle).pixelColor(30, 6), zelvoHoverColor());
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter, Qt::Key_A})
        QTest::keyClick(&circle, key);
    EXPECT_TRUE(circle.hasFocus() && !circle.active()) << "it selects nothing by itself";
    EXPECT_EQ(delegate.clicks, 4);

    circle.clearFocus();
    const QImage plain = grab(circle);
    enter(circle);
    EXPECT_NE(grab(circle), plain);
    circle.setActive(true);
    const QImage active = grab(circle);
    leave(circle);
    EXPECT_EQ(grab(circle), active);
}
