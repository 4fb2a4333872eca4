#include "ui/BackgroundTextField.h"

#include "data/DecimalFormatter.h"
#include "fakes/ControlTest.h"
#include "ui/NumberEntryValidator.h"

#include <QStyleHints>
#include <QTest>

namespace {
class BackgroundTextFieldTest : public ControlTest {
protected:
    BackgroundTextFieldTest()
    {
        m_field.resize(120, 48);
        m_field.setBackgroundImage(Picture(QStringLiteral("SetupTextField")));
        m_field.setTextColor(Qt::white);
    }

    QRect caret()
    {
        return boxOf(grab(m_field), [](const QColor& pixel) { return pixel == QColor(Qt::red); });
    }

    BackgroundTextField m_field;
};

TEST_F(BackgroundTextFieldTest, thePictureFillsTheFieldAndSelectedTextHasNoHighlight)
{
    m_field.setText(QStringLiteral("172"));
    m_field.deselect();
    const QImage plain = grab(m_field);
    EXPECT_EQ(
        boxOf(plain, [&](const QColor& pixel) { return pixel == plain.pixelColor(60, 2); }), m_field.rect());
    EXPECT_NE(plain.pixelColor(60, 2), kGround);
    m_field.selectAll();
    EXPECT_EQ(grab(m_field), plain);
    m_field.setEnabled(false);
    EXPECT_NE(grab(m_field).pixelColor(60, 2), plain.pixelColor(60, 2));
}

TEST_F(BackgroundTextFieldTest, theCaretBlinksBehindTheTextWhileTheFieldIsEdited)
{
    EXPECT_EQ(m_field.insertionPointColor(), QColor(Qt::black));
    m_field.setInsertionPointColor(Qt::red);
    show(m_field);
    m_field.setFocus();
    EXPECT_EQ(caret().width(), 1);
    EXPECT_NEAR(caret().center().y(), 24, 2);
    const int start = caret().left();
    EXPECT_NEAR(start, 2, 1);
    const double half = QGuiApplication::styleHints()->cursorFlashTime() / 2000.0;
    platform.runLoop.advance(half);
    EXPECT_TRUE(caret().isEmpty());
    platform.runLoop.advance(half);
    EXPECT_FALSE(caret().isEmpty());
    platform.runLoop.advance(half);
    QTest::keyClicks(&m_field, QStringLiteral("123")); // Typing brings it back at once.
    EXPECT_NEAR(caret().left() - start, m_field.fontMetrics().horizontalAdvance(QStringLiteral("123")), 2);
    EXPECT_EQ(platform.runLoop.pendingTimerCount(), 1U);
    m_field.clearFocus();
    EXPECT_TRUE(caret().isEmpty());
    EXPECT_EQ(platform.runLoop.pendingTimerCount(), 0U);
}

TEST_F(BackgroundTextFieldTest, theFormatterRefusesKeystrokesAndPastes)
{
    NumberEntryValidator validator;
    validator.formatter().setMinValue(0);
    validator.formatter().setMaxValue(999);
    m_field.setValidator(&validator);
    QTest::keyClicks(&m_field, QStringLiteral("-7a2.,41"));
    m_field.insert(QString(400, QLatin1Char('1')));
    EXPECT_EQ(m_field.text(), QStringLiteral("724"));
    m_field.clear();
    EXPECT_TRUE(m_field.hasAcceptableInput());
}
}
