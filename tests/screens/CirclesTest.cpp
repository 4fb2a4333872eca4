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
}

TEST_F(CirclesTest, thePieGrowsClockwiseFromTwelveToAWholeDiscOfTheSmallerSide)
{
    const QImage third = pie({201, 260}, 33.3); // In whole numbers 100 to the centre.
    for (const int degree : {1, 60, 119, 121, 240, 359}) {
        const double angle = degree * std::numbers::pi / 180;
        const auto isFilled = [&](double radius) {
            const QPointF at = QPointF(100, 100) + radius * QPointF(std::sin(angle), -std::cos(angle));
            return third.pixelColor(int(at.x()), int(at.y())).lightnessF() < 0.5;
        };
        EXPECT_EQ(isFilled(96), degree < 120) << degree;
        EXPECT_FALSE(isFilled(98.5)) << degree;
    }
    EXPECT_EQ(pie({201, 260}, -5), pie({201, 260}, 0));
    EXPECT_NE(pie({201, 260}, 0.2), pie({201, 260}, 0));
    EXPECT_NE(pie({201, 260}, 99.8), pie({201, 260}, 100));
    EXPECT_EQ(pie({201, 260}, 107), pie({201, 260}, 100));
    EXPECT_EQ(pie({7, 7}, 100), pie({7, 7}, 0));
    EXPECT_NE(pie({8, 8}, 100), pie({8, 8}, 0));
}

TEST_F(CirclesTest, aRingTellsItsShareToScreenReaders)
{
    CircleIndicatorView view;
    view.setPercent(66.7);
    view.setTitle("Calories");
    QAccessibleInterface* told = QAccessible::queryAccessibleInterface(&view);
    EXPECT_EQ(told->text(QAccessible::Value), "66 %");
    EXPECT_EQ(told->valueInterface()->currentValue().toDouble(), 66.7);
    EXPECT_EQ(told->valueInterface()->maximumValue().toDouble(), 100);
    EXPECT_TRUE(told->state().readOnly && !told->actionInterface() && told->childCount() == 0);
    view.setValue("66");
    for (const auto& [size, fontSize, top, title] :
        {std::tuple(QSize(105, 105), 30, 30, "CALORIES"), {{106, 106}, 42, 21, "CALORIES"},
            {{300, 100}, 30, 27, "CALORIES"}, {{46, 40}, 30, -3, "CAL…"}}) {
        view.resize(size);
        show(view);
        view.setMarginBetweenValueAndTitle(4);
        EXPECT_EQ(view.textFieldValue()->font().pixelSize(), fontSize);
        EXPECT_EQ(view.textFieldTitle()->text(), title);
        EXPECT_EQ(view.textFieldValue()->y(), top);
        EXPECT_EQ(view.textFieldTitle()->y(), view.textFieldValue()->geometry().bottom() + 5);
    }
    view.setTitle(std::nullopt);
    EXPECT_EQ(view.textFieldTitle()->text(), "CAL…") << "it stays as it was";

    view.setTransparent(true);
    view.resize(180, 180);
    const auto ring = [&view](double percent) {
        view.setPercent(percent);
        return grab(view);
    };
    EXPECT_EQ(ring(0.99), ring(0));
    EXPECT_NE(ring(1), ring(0));
    const QImage seen = onScreen(view);
    view.setPercent(50);
    EXPECT_NE(onScreen(view), seen);
    view.setTransparent(false);
    EXPECT_EQ(ring(50), ring(0)) << "the ring alone";
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
    QTest::mouseClick(&circle, Qt::RightButton);
    EXPECT_TRUE(field.hasFocus());
    QTest::mouseClick(&circle, Qt::LeftButton);
    EXPECT_EQ(window.focusWidget(), nullptr);
    circle.setFocus(Qt::TabFocusReason);
    EXPECT_EQ(grab(circle).pixelColor(30, 6), zelvoHoverColor());
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter, Qt::Key_A})
        QTest::keyClick(&circle, key);
    EXPECT_TRUE(circle.hasFocus() && circle.focusPolicy() == Qt::TabFocus && !circle.active());
    EXPECT_EQ(delegate.clicks, 4);

    circle.clearFocus();
    QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(&circle);
    spoken->actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
    EXPECT_TRUE(circle.hasFocus() && spoken->state().checkable);
    const QImage away = onScreen(window);
    QTest::mouseMove(window.windowHandle(), circle.geometry().center());
    EXPECT_NE(onScreen(window), away);
    const QImage seen = onScreen(window);
    circle.setActive(true);
    EXPECT_NE(onScreen(window), seen);
    const QImage active = grab(circle);
    QTest::mouseMove(window.windowHandle(), {1, 1});
    EXPECT_EQ(grab(circle), active);
}
