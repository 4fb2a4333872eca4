#include "ui/StepSlider.h"

#include "fakes/ControlTest.h"
#include "ui/Palette.h"

#include <QSignalSpy>
#include <QTest>

namespace {
class StepSliderTest : public ControlTest {
protected:
    StepSliderTest() { m_slider.resize(402, 40); }

    [[nodiscard]] double knobWidth() const { return m_slider.cell().knobImage.size().width(); }
    /// The middle of the knob on the step's place, counted from the left.
    [[nodiscard]] QPoint place(int fromLeft) const
    {
        return QPointF(knobWidth() / 2 + fromLeft * (m_slider.width() - knobWidth()) / 4, 20).toPoint();
    }

    StepSlider m_slider;
};
}

TEST_F(StepSliderTest, itHasFiveStepsAndStartsInTheMiddle)
{
    EXPECT_EQ(m_slider.minimum(), 0);
    EXPECT_EQ(m_slider.maximum(), 4);
    EXPECT_EQ(m_slider.value(), 2);
}

TEST_F(StepSliderTest, theKnobStandsAtTheValuesShareOfTheWay)
{
    const double way = m_slider.width() - knobWidth();
    for (int step = 0; step <= 4; ++step) {
        SCOPED_TRACE(step);
        m_slider.setValue(step);
        EXPECT_DOUBLE_EQ(m_slider.knobRect().left(), way * step / 4);
        EXPECT_EQ(m_slider.knobRect().size(), m_slider.cell().knobImage.size());
        EXPECT_DOUBLE_EQ(m_slider.knobRect().center().y(), 20);
        m_slider.setLayoutDirection(Qt::RightToLeft);
        EXPECT_DOUBLE_EQ(m_slider.knobRect().left(), way * (4 - step) / 4);
        m_slider.setLayoutDirection(Qt::LeftToRight);
    }
}

TEST_F(StepSliderTest, theKnobIsDrawnWhereItStandsAndNowhereElse)
{
    for (const double scale : {1.0, 1.25, 1.5, 2.0}) {
        for (int step = 0; step <= 4; ++step) {
            SCOPED_TRACE(testing::Message() << "step " << step << " at scale " << scale);
            m_slider.setValue(step);
            const QImage image = grab(m_slider, scale);
            const QColor knob = QColor(0x00, 0x69, 0x7A);
            // One pixel lower than it stands: a white eye, the body around it.
            const QPointF eye = m_slider.knobRect().center() + QPointF(0, 1);
            for (const double side : {-1.0, 1.0}) {
                EXPECT_GT(colorAt(image, eye + QPointF(0, side * 1.5)).lightness(), 200);
                EXPECT_EQ(colorAt(image, eye + QPointF(0, side * 6)), knob);
            }
            for (int other = 0; other <= 4; ++other)
                EXPECT_EQ(colorAt(image, QPointF(place(other)) + QPointF(0, 7)) == knob, other == step);
        }
    }
}

TEST_F(StepSliderTest, aPressChoosesTheNearestStepAndADragFollows)
{
    QSignalSpy values(&m_slider, &QSlider::valueChanged);
    QTest::mousePress(&m_slider, Qt::LeftButton, Qt::NoModifier, place(3) + QPoint(30, 0));
    EXPECT_EQ(m_slider.value(), 3);
    QTest::mouseMove(&m_slider, place(1) - QPoint(20, 0));
    EXPECT_EQ(m_slider.value(), 1);
    QTest::mouseMove(&m_slider, QPoint(-500, 0));
    EXPECT_EQ(m_slider.value(), 0);
    QTest::mouseRelease(&m_slider, Qt::LeftButton);
    QTest::mouseMove(&m_slider, place(4));
    EXPECT_EQ(m_slider.value(), 0);
    QTest::mouseClick(&m_slider, Qt::RightButton, Qt::NoModifier, place(4));
    EXPECT_EQ(m_slider.value(), 0);
    EXPECT_EQ(values.count(), 3);
}

TEST_F(StepSliderTest, pressesAndKeysAreMirroredFromRightToLeft)
{
    m_slider.setLayoutDirection(Qt::RightToLeft);
    QTest::mouseClick(&m_slider, Qt::LeftButton, Qt::NoModifier, place(1));
    EXPECT_EQ(m_slider.value(), 3);
    QTest::keyClick(&m_slider, Qt::Key_Left);
    EXPECT_EQ(m_slider.value(), 4);
}

TEST_F(StepSliderTest, theKeyboardMovesStepByStepAndToTheEnds)
{
    const struct {
        int key;
        int value;
    } kTestCases[] = {{Qt::Key_Right, 3}, {Qt::Key_Up, 4}, {Qt::Key_Right, 4}, {Qt::Key_Left, 3},
        {Qt::Key_PageDown, 2}, {Qt::Key_Home, 0}, {Qt::Key_Left, 0}, {Qt::Key_End, 4}};
    for (const auto& testCase : kTestCases) {
        QTest::keyClick(&m_slider, Qt::Key(testCase.key));
        EXPECT_EQ(m_slider.value(), testCase.value);
    }
}

TEST_F(StepSliderTest, itIsAsHighAsItsPicturesNeed)
{
    EXPECT_GE(m_slider.minimumSizeHint().height(), m_slider.cell().backgroundImage.size().height());
    EXPECT_GE(m_slider.minimumSizeHint().height(), m_slider.cell().knobImage.size().height());
}

TEST_F(StepSliderTest, theFocusThatTheKeyboardBroughtIsMarked)
{
    show(m_slider);
    m_slider.clearFocus();
    const QImage plain = grab(m_slider);
    m_slider.setFocus(Qt::MouseFocusReason);
    EXPECT_EQ(grab(m_slider), plain);
    m_slider.clearFocus();
    m_slider.setFocus(Qt::TabFocusReason);
    EXPECT_EQ(colorAt(grab(m_slider), {200, 1}), zelvoHoverColor());
}
