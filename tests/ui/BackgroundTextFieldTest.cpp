#include "ui/BackgroundTextField.h"

#include "data/DecimalFormatter.h"
#include "fakes/ControlTest.h"
#include "ui/NumberEntryValidator.h"

#include <QGuiApplication>
#include <QStyleHints>
#include <QTest>

namespace {
class BackgroundTextFieldTest : public ControlTest {
protected:
    BackgroundTextFieldTest()
    {
        m_window.resize(200, 100);
        m_field.setGeometry(20, 20, 120, 48);
        m_field.setBackgroundImage(Picture(QStringLiteral("SetupTextField")));
        m_field.setTextColor(Qt::white);
        m_other.setGeometry(20, 80, 40, 15);
        show(m_window);
    }

    int pixelsOf(const QColor& color)
    {
        const QImage image = grab(m_field);
        int count = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                count += image.pixelColor(x, y) == color;
        }
        return count;
    }

    QWidget m_window;
    BackgroundTextField m_field {&m_window};
    QLineEdit m_other {&m_window};
};
}

TEST_F(BackgroundTextFieldTest, thePictureFillsTheFieldAndNothingElseIsDrawn)
{
    m_other.setFocus();
    const QImage image = grab(m_field);
    const QColor middle = colorAt(image, {60, 24});
    EXPECT_NE(middle, QColor(Qt::white));
    for (const QPointF point : {QPointF(1, 24), QPointF(118, 24), QPointF(60, 1), QPointF(60, 46)})
        EXPECT_EQ(colorAt(image, point), middle);
}

TEST_F(BackgroundTextFieldTest, theCaretHasItsColourAndBlinksOnlyWhileTheFieldIsEdited)
{
    EXPECT_EQ(m_field.insertionPointColor(), QColor(Qt::black));
    m_field.setInsertionPointColor(Qt::red);
    m_other.setFocus();
    EXPECT_EQ(pixelsOf(Qt::red), 0);
    EXPECT_EQ(platform.runLoop.pendingTimerCount(), 0U);
    m_field.setFocus();
    EXPECT_GT(pixelsOf(Qt::red), 8);
    const double half = QGuiApplication::styleHints()->cursorFlashTime() / 2000.0;
    platform.runLoop.advance(half);
    EXPECT_EQ(pixelsOf(Qt::red), 0);
    QTest::keyClick(&m_field, Qt::Key_1); // Typing brings it back at once.
    EXPECT_GT(pixelsOf(Qt::red), 8);
    EXPECT_EQ(platform.runLoop.pendingTimerCount(), 1U);
    m_other.setFocus();
    EXPECT_EQ(pixelsOf(Qt::red), 0);
    EXPECT_EQ(platform.runLoop.pendingTimerCount(), 0U);
}

TEST_F(BackgroundTextFieldTest, theCaretStandsBehindTheTextThatWasTyped)
{
    m_field.setInsertionPointColor(Qt::red);
    m_field.setFocus();
    const auto caretColumn = [&] {
        const QImage image = grab(m_field);
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, 24) == QColor(Qt::red))
                return x;
        }
        return -1;
    };
    const int start = caretColumn();
    EXPECT_NEAR(start, 2, 1);
    QTest::keyClicks(&m_field, QStringLiteral("123"));
    EXPECT_NEAR(caretColumn() - start, m_field.fontMetrics().horizontalAdvance(QStringLiteral("123")), 2);
}

TEST_F(BackgroundTextFieldTest, selectedTextHasNoHighlightBehindIt)
{
    m_field.setText(QStringLiteral("172"));
    m_other.setFocus();
    m_field.deselect();
    const QImage plain = grab(m_field);
    m_field.selectAll();
    EXPECT_EQ(grab(m_field), plain);
}

TEST_F(BackgroundTextFieldTest, theFocusThatTheKeyboardBroughtIsMarked)
{
    m_field.setInsertionPointColor(Qt::transparent);
    m_other.setFocus();
    const QImage plain = grab(m_field);
    m_field.setFocus(Qt::MouseFocusReason);
    EXPECT_EQ(grab(m_field), plain);
    m_other.setFocus();
    m_field.setFocus(Qt::TabFocusReason);
    EXPECT_NE(grab(m_field), plain);
}

TEST_F(BackgroundTextFieldTest, theFormatterRefusesKeystrokesAndPastes)
{
    NumberEntryValidator validator;
    validator.formatter().setMinValue(0);
    validator.formatter().setMaxValue(999);
    m_field.setValidator(&validator);
    m_field.setFocus();
    QTest::keyClicks(&m_field, QStringLiteral("-7a2.,41"));
    EXPECT_EQ(m_field.text(), QStringLiteral("724"));
    m_field.insert(QString(400, QLatin1Char('1')));
    EXPECT_EQ(m_field.text(), QStringLiteral("724"));
    m_field.selectAll();
    QTest::keyClick(&m_field, Qt::Key_Backspace);
    EXPECT_EQ(m_field.text(), QString());
    EXPECT_TRUE(m_field.hasAcceptableInput());
}
