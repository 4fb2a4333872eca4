#include "fakes/ControlTest.h"
#include "ui/FontAndTextHandler.h"
#include "ui/HoverButton.h"

#include <QSignalSpy>
#include <QTest>

namespace {
class ButtonTest : public ControlTest {
protected:
    ButtonTest()
    {
        button.setFont(FontAndTextHandler::Roman15());
        QPalette palette;
        palette.setColor(QPalette::ButtonText, kTitle);
        palette.setColor(QPalette::Link, kHover);
        button.setPalette(palette);
        button.resize(161, 61);
        setBackground(button, {});
    }

    static constexpr QColor kTitle {200, 0, 0};
    static constexpr QColor kHover {0, 0, 200};
    HoverButton button;
};
}

TEST_F(ButtonTest, aTitleThatIsTooLongEndsInAnEllipsis)
{
    button.setText(QStringLiteral(" MMMMMM "));
    EXPECT_EQ(button.minimumSizeHint(), QSize(63, 33));
    button.resize(70, 30);
    EXPECT_EQ(boxOf(grab(button), [](QColor pixel) { return pixel.blue() < 128; }), QRect(10, 11, 50, 10));
}

TEST_F(ButtonTest, pressedAndDisabledHaveTheirLookAndATitleThatCouldNotBeReadAnotherColour)
{
    const QColor background(0xC8, 0xD9, 0xE1);
    const auto seen = [this] { return grab(button).pixelColor(20, 30).rgb(); };
    button.setDown(true);
    QList<QRgb> looks {seen()};
    setBackground(button, background);
    looks << seen();
    button.setDown(false);
    button.setEnabled(false);
    looks << seen();
    // A shadow of 20 in 255, 112 in 100 darker, 45 in 100 of the colour on the ground.
    EXPECT_EQ(looks, (QList<QRgb> {0xFFEB00EB, background.darker(112).rgb(), 0xFFE661F1}));
    button.setEnabled(true);
    button.setText(QStringLiteral("MMMM"));
    setBackground(button, kTitle);
    button.setImage(Picture(QStringLiteral("ButtonUp"))); // Goes with the title.
    EXPECT_GT(boxOf(grab(button), [](QColor pixel) { return pixel == Qt::white; }).width(), 70);
}

TEST_F(ButtonTest, eachEndOfTheMousesVisitGivesTheTitleItsOwnColourBack)
{
    const std::pair<std::function<void()>, QColor> kSteps[] = {
        {[this] { enter(button); }, kHover}, {[this] { enter(button); }, kHover},
        {[this] { button.setEnabled(false); }, kTitle},
        {[this] { enter(button); }, kTitle}, // A disabled button has no visitor.
        {[this] { button.setEnabled(true); }, kTitle}, {[this] { enter(button); }, kHover},
        {[this] { button.setTextRole(QPalette::Base); }, Qt::white}, {[this] { leave(button); }, Qt::white},
        {[this] { button.setTextRole(QPalette::Link); }, kHover},
        {[this] { button.mouseExited(); }, Qt::white}, // Without an entry: what the last entry found.
    };
    button.setText(QStringLiteral("Stand"));
    for (const auto& [act, color] : kSteps) {
        act();
        EXPECT_EQ(button.textColor(), color);
    }
}

TEST_F(ButtonTest, aKeyKeptDownClicksOnceThoughX11ReportsItAsGoingUpAndDown)
{
    QSignalSpy clicks(&button, &QPushButton::clicked);
    for (const int key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) {
        const auto send = [&](QEvent::Type type, quint64 time, bool isRepeat = false) {
            QKeyEvent event(type, key, Qt::NoModifier, QString(), isRepeat);
            event.setTimestamp(time);
            QApplication::sendEvent(&button, &event);
        };
        for (const quint64 time : {1000U, 1660U, 1700U}) { // The third is a press of its own.
            send(QEvent::KeyPress, time);
            send(QEvent::KeyRelease, time == 1000 ? 1660 : time + 20);
        }
        send(QEvent::KeyPress, 5000, true);
        EXPECT_EQ(clicks.count(), 2) << key;
        clicks.clear();
    }
    QTest::keyClick(&button, Qt::Key_Return); // Without a time: not a keyboard's.
    EXPECT_EQ(clicks.count(), 1);
}

TEST_F(ButtonTest, aQuickClickCountsWhereverThePointerWentMeanwhile)
{
    QSignalSpy clicks(&button, &QPushButton::clicked);
    const auto send = [&](QEvent::Type type, QPointF place, Qt::MouseButtons held, quint64 time) {
        QMouseEvent event(
            type, place, place, type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton, held, {});
        event.setTimestamp(time);
        QApplication::sendEvent(&button, &event);
    };
    for (const auto& [x, time, expected] :
        {std::tuple(9, 1199U, 1), {-9, 1199U, 2}, {-9, 1200U, 2}, {9, 1200U, 3}}) {
        send(QEvent::MouseButtonPress, {9, 9}, Qt::LeftButton, 1000);
        send(QEvent::MouseMove, {double(x), 9}, Qt::LeftButton, time);
        send(QEvent::MouseButtonRelease, {double(x), 9}, {}, time);
        EXPECT_EQ(clicks.count(), expected) << x << ' ' << time;
        EXPECT_FALSE(button.isDown());
    }
}
