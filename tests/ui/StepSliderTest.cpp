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

TEST_F(StepSliderTest, theKnobIsDrawnAtTheValuesShareOfTheWayAndNowhereElse)
{
    EXPECT_EQ(m_slider.value(), 2);
    for (const bool isMirrored : {false, true}) {
        m_slider.setLayoutDirection(isMirrored ? Qt::RightToLeft : Qt::LeftToRight);
        for (int step = 0; step <= 4; ++step) {
            SCOPED_TRACE(step);
            m_slider.setValue(step);
            EXPECT_EQ(m_slider.knobRect().center().toPoint(), place(isMirrored ? 4 - step : step));
            for (const double scale : {1.0, 1.5}) {
                const QImage image = grab(m_slider, scale);
                const QPointF eye =
                    m_slider.knobRect().center() + QPointF(0, 1); // It is drawn one pixel lower.
                for (const double side : {-1.0, 1.0}) { // A light eye, the dark body around it.
                    EXPECT_GT(colorAt(image, eye + QPointF(0, side * 1.5)).lightness(), 200);
                    EXPECT_EQ(colorAt(image, eye + QPointF(0, side * 6)), QColor(0x00, 0x69, 0x7A));
                }
                for (int other = 0; other <= 4; ++other)
                    EXPECT_EQ(
                        colorAt(image, QPointF(place(other)) + QPointF(0, 7)) == QColor(0x00, 0x69, 0x7A),
                        other == (isMirrored ? 4 - step : step));
            }
        }
    }
    const QColor bar = grab(m_slider).pixelColor(200, 20);
    m_slider.setEnabled(false);
    EXPECT_NE(grab(m_slider).pixelColor(200, 20), bar);
    EXPECT_GE(m_slider.sizeHint().width(), m_slider.minimumSizeHint().width());
    EXPECT_GE(m_slider.minimumSizeHint().height(), m_slider.cell().knobImage.size().height() + 2);
}

TEST_F(StepSliderTest, aPressChoosesTheNearestStepAndADragFollows)
{
    QTest::mousePress(&m_slider, Qt::LeftButton, Qt::NoModifier, place(3) + QPoint(30, 0));
    EXPECT_EQ(m_slider.value(), 3);
    QTest::mouseMove(&m_slider, place(1) - QPoint(20, 0));
    EXPECT_EQ(m_slider.value(), 1);
    QTest::mouseMove(&m_slider, QPoint(-500, 0));
    EXPECT_EQ(m_slider.value(), 0);
    QTest::mouseRelease(&m_slider, Qt::LeftButton);
    QTest::mouseMove(&m_slider, place(4));
    QTest::mouseClick(&m_slider, Qt::RightButton, Qt::NoModifier, place(4));
    EXPECT_EQ(m_slider.value(), 0);
    m_slider.setLayoutDirection(Qt::RightToLeft);
    QTest::mouseClick(&m_slider, Qt::LeftButton, Qt::NoModifier, place(1));
    EXPECT_EQ(m_slider.value(), 3);
    const struct {
        Qt::Key key;
        int value;
    } kTestCases[] = {
        {Qt::Key_Left, 4}, {Qt::Key_Up, 4}, {Qt::Key_PageDown, 3}, {Qt::Key_Home, 0}, {Qt::Key_End, 4}};
    for (const auto& testCase : kTestCases) {
        QTest::keyClick(&m_slider, testCase.key);
        EXPECT_EQ(m_slider.value(), testCase.value);
    }
}

TEST_F(StepSliderTest, onlyTheKeyboardsFocusIsMarked)
{
    expectMarkOfKeyboardFocus(m_slider);
}
}
