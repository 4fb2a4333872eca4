#include "ui/StepSlider.h"

#include "fakes/ControlTest.h"

#include <QTest>

namespace {
class StepSliderTest : public ControlTest {
protected:
    StepSliderTest() { m_slider.resize(402, 40); }

    /// The middle of the knob on the step's place, counted from the left.
    [[nodiscard]] QPoint place(int fromLeft) const
    {
        const double knob = m_slider.cell().knobImage.size().width();
        return QPointF(knob / 2 + fromLeft * (402 - knob) / 4, 20).toPoint();
    }

    StepSlider m_slider;
};

TEST_F(StepSliderTest, theKnobStandsAtTheValuesShareOfTheWay)
{
    EXPECT_EQ(m_slider.value(), 2);
    for (const bool isMirrored : {false, true}) {
        m_slider.setLayoutDirection(isMirrored ? Qt::RightToLeft : Qt::LeftToRight);
        for (int step = 0; step <= 4; ++step) {
            m_slider.setValue(step);
            EXPECT_EQ(m_slider.knobRect().center().toPoint(), place(isMirrored ? 4 - step : step));
        }
    }
}

TEST_F(StepSliderTest, aPressChoosesTheNearestStepAndADragFollows)
{
    QTest::mousePress(&m_slider, Qt::LeftButton, Qt::NoModifier, place(3) + QPoint(30, 0));
    QList<int> values {m_slider.value()};
    for (const QPoint point : {place(1) - QPoint(20, 0), QPoint(-500, 0)}) {
        QTest::mouseMove(&m_slider, point);
        values << m_slider.value();
    }
    QTest::mouseRelease(&m_slider, Qt::LeftButton);
    QTest::mouseMove(&m_slider, place(4));
    QTest::mouseClick(&m_slider, Qt::RightButton, Qt::NoModifier, place(4));
    values << m_slider.value();
    m_slider.setLayoutDirection(Qt::RightToLeft);
    QTest::mouseClick(&m_slider, Qt::LeftButton, Qt::NoModifier, place(1));
    values << m_slider.value();
    for (const auto key : {Qt::Key_Left, Qt::Key_Up, Qt::Key_PageDown, Qt::Key_Home, Qt::Key_End}) {
        QTest::keyClick(&m_slider, key);
        values << m_slider.value();
    }
    EXPECT_EQ(values, (QList<int> {3, 1, 0, 0, 3, 4, 4, 3, 0, 4}));
}
}
