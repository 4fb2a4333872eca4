#include "ui/BackgroundTextField.h"

#include "fakes/ControlTest.h"

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

TEST_F(BackgroundTextFieldTest, theCaretBlinksBehindTheTextWhileTheFieldIsEdited)
{
    m_field.setInsertionPointColor(Qt::red);
    show(m_field);
    m_field.setFocus();
    const int start = caret().left();
    const double half = QGuiApplication::styleHints()->cursorFlashTime() / 2000.0;
    QList<int> seen;
    for (const char* const typed : {"", "", "", "123"}) { // Typing brings it back at once.
        QTest::keyClicks(&m_field, QString::fromLatin1(typed));
        seen << caret().width();
        platform.runLoop.advance(half);
    }
    EXPECT_EQ(seen, (QList<int> {1, 0, 1, 1}));
    platform.runLoop.advance(half);
    EXPECT_NEAR(start, 2, 1);
    EXPECT_NEAR(caret().left() - start, m_field.fontMetrics().horizontalAdvance(QStringLiteral("123")), 2);
    EXPECT_NEAR(caret().center().y(), 24, 2);
    EXPECT_EQ(platform.runLoop.pendingTimerCount(), 1U);
    m_field.clearFocus();
    EXPECT_TRUE(caret().isEmpty());
    EXPECT_EQ(platform.runLoop.pendingTimerCount(), 0U);
}
}
