#include "ui/StepSlider.h"

#include "fakes/ControlTest.h"

#include <QTest>

using StepSliderTest = ControlTest;

TEST_F(StepSliderTest, aPressChoosesTheNearestStepADragFollowsAndTheKnobStandsThere)
{
    StepSlider slider;
    slider.resize(402, 40);
    const double knob = slider.cell().knobImage.size().width();
    const auto place = [&](int fromLeft) {
        return QPointF(knob / 2 + fromLeft * (402 - knob) / 4, 20).toPoint();
    };
    QList<int> values {slider.value()};
    QTest::mousePress(&slider, Qt::LeftButton, {}, place(3) + QPoint(30, 0));
    values << slider.value();
    for (const QPoint point : {place(1) - QPoint(20, 0), QPoint(-500, 0)}) {
        QTest::mouseMove(&slider, point);
        values << slider.value();
    }
    QTest::mouseRelease(&slider, Qt::LeftButton);
    QTest::mouseMove(&slider, place(4));
    QTest::mouseClick(&slider, Qt::RightButton, {}, place(4));
    values << slider.value();
    slider.setLayoutDirection(Qt::RightToLeft);
    QTest::mouseClick(&slider, Qt::LeftButton, {}, place(1));
    EXPECT_EQ(slider.knobRect().center().toPoint(), place(1));
    values << slider.value();
    for (const auto key : {Qt::Key_Right, Qt::Key_Up, Qt::Key_PageDown, Qt::Key_Home, Qt::Key_End}) {
        QTest::keyClick(&slider, key);
        values << slider.value();
    }
    for (const bool isFocused : {false, true}) {
        if (isFocused)
            show(slider), slider.setFocus();
        QWheelEvent down({}, {}, {}, {0, -120}, Qt::NoButton, {}, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&slider, &down);
        EXPECT_EQ(down.isAccepted(), isFocused);
        values << slider.value();
    }
    EXPECT_EQ(values, (QList<int> {2, 3, 1, 0, 0, 3, 2, 3, 2, 0, 4, 4, 3}));
}
