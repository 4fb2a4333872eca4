#include "ui/BackgroundTextField.h"

#include "fakes/ControlTest.h"

#include <QStyleHints>
#include <QTest>

using BackgroundTextFieldTest = ControlTest;

TEST_F(BackgroundTextFieldTest, theCaretBlinksBehindTheTextWhileTheFieldIsEdited)
{
    BackgroundTextField field;
    field.resize(120, 48);
    field.setTextColor(Qt::white);
    field.setInsertionPointColor(Qt::red);
    const auto caret = [&] {
        return boxOf(grab(field), [](const QColor& pixel) { return pixel == QColor(Qt::red); });
    };
    show(field);
    field.setFocus();
    const QRect start = caret();
    EXPECT_NEAR(start.left(), 2, 1);
    EXPECT_NEAR(start.center().y(), 24, 2);
    const double half = QGuiApplication::styleHints()->cursorFlashTime() / 2000.0;
    QTest::keyClicks(&field, QStringLiteral("4123"));
    QList<int> seen;
    for (const auto key : {Qt::Key_Shift, Qt::Key_Home, Qt::Key_Delete, Qt::Key_Shift, Qt::Key_End}) {
        QTest::keyClick(&field, key); // A move and a change of the text bring it back at once.
        seen << caret().width();
        platform.runLoop.advance(half);
    }
    EXPECT_EQ(seen, (QList<int> {1, 1, 1, 0, 1}));
    platform.runLoop.advance(half);
    EXPECT_NEAR(
        caret().left() - start.left(), field.fontMetrics().horizontalAdvance(QStringLiteral("123")), 2);
    field.clearFocus();
    EXPECT_TRUE(caret().isEmpty());
    const QImage plain = grab(field);
    field.selectAll();
    EXPECT_EQ(grab(field), plain) << "a selection has no ground of its own";
    QApplication::setCursorFlashTime(0); // Some want it to stand still.
    field.setFocus();
    EXPECT_EQ(platform.runLoop.pendingTimerCount(), 0U);
    QApplication::setCursorFlashTime(int(2000 * half));
}
