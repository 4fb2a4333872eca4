#include "ui/Button.h"

#include "fakes/ControlTest.h"
#include "ui/HoverLink.h"
#include "ui/HoverUnderlineButton.h"
#include "ui/Palette.h"

#include <QSignalSpy>
#include <QTest>

namespace {
class ButtonTest : public ControlTest {
protected:
    ButtonTest()
    {
        m_button.setText(QStringLiteral("MMMMMMM"));
        m_button.setTextColor(kTitle);
        m_button.resize(161, 61);
    }

    /// The ground and the title have no green, the pictures have.
    QRect title()
    {
        return boxOf(
            grab(m_button), [](const QColor& pixel) { return pixel.green() < 40 && pixel.blue() < 128; });
    }
    QRect picture()
    {
        return boxOf(grab(m_button), [](const QColor& pixel) { return pixel.green() > 40; });
    }
    void send(QEvent::Type type, int key, quint64 time)
    {
        QKeyEvent event(type, key, Qt::NoModifier);
        event.setTimestamp(time);
        QApplication::sendEvent(&m_button, &event);
    }
    static void expectCentred(const QRect& inner, const QRect& outer)
    {
        EXPECT_NEAR(inner.center().x(), outer.center().x(), 4);
        EXPECT_NEAR(inner.center().y(), outer.center().y(), 5);
    }

    static constexpr QColor kTitle {200, 0, 0};
    Button m_button;
};

TEST_F(ButtonTest, pictureAndTitleStandTogetherInTheMiddle)
{
    expectCentred(title(), m_button.rect());
    m_button.setImage(Picture(QStringLiteral("ButtonUp")));
    expectCentred(title() | picture(), m_button.rect());
    EXPECT_NEAR(title().left() - picture().right(), 9, 8);
    m_button.setLayoutDirection(Qt::RightToLeft);
    EXPECT_NEAR(picture().left() - title().right(), 9, 8);
    expectCentred(title() | picture(), m_button.rect());

    m_button.setImagePosition(Button::ImagePosition::Above);
    expectCentred(title() | picture(), m_button.rect());
    EXPECT_NEAR(picture().center().x(), title().center().x(), 2);
    EXPECT_NEAR(title().top() - picture().bottom(), 11, 10);
    m_button.setImagePosition(Button::ImagePosition::Only);
    EXPECT_TRUE(title().isEmpty());
    expectCentred(picture(), m_button.rect());
    m_button.resize(16, 12); // Too small for the picture, which shrinks.
    EXPECT_LT(picture().width(), 12);
    EXPECT_FALSE(picture().isEmpty());
}

TEST_F(ButtonTest, theSizeHintIsJustEnough)
{
    using Position = Button::ImagePosition;
    for (const char* picture : {"", "ButtonSettings"}) {
        if (*picture)
            m_button.setImage(Picture(QString::fromLatin1(picture)));
        for (const auto position : {Position::Leading, Position::Above}) {
            m_button.setImagePosition(position);
            m_button.setBackgroundColor(position == Position::Above ? QColor() : QColor(Qt::white));
            m_button.resize(m_button.sizeHint());
            const QSize whole = title().size();
            m_button.resize(m_button.sizeHint() + QSize(60, 20));
            EXPECT_EQ(whole, title().size());
            m_button.resize(m_button.sizeHint() - QSize(position == Position::Above ? 14 : 4, 0));
            EXPECT_NE(whole, title().size());
        }
    }
    EXPECT_LT(m_button.minimumSizeHint().width(), m_button.sizeHint().width());
    EXPECT_EQ(m_button.minimumSizeHint().height(), m_button.sizeHint().height());
}

TEST_F(ButtonTest, eachStateHasItsLook)
{
    const QPoint corner(20, 30);
    const auto background = [&] { return grab(m_button).pixelColor(corner); };
    EXPECT_EQ(background(), kGround);
    m_button.setDown(true);
    EXPECT_EQ(background(), QColor(235, 0, 235)); // A shadow of 20 in 255.
    m_button.setBackgroundColor(QColor(0xD9, 0xD9, 0xD9));
    EXPECT_EQ(background().rgb(), QColor(0xD9, 0xD9, 0xD9).darker(112).rgb());
    m_button.setDown(false);
    EXPECT_EQ(background(), QColor(0xD9, 0xD9, 0xD9));
    EXPECT_EQ(grab(m_button).pixelColor(0, 0), kGround); // The corners are round.
    m_button.setEnabled(false);
    EXPECT_NEAR(background().green(), 0xD9 * 45 / 100, 1);
    m_button.setEnabled(true);
    const QImage plain = grab(m_button);
    m_button.setUnderLineText();
    EXPECT_NE(grab(m_button), plain);
    m_button.removeUnderLineText();
    EXPECT_EQ(grab(m_button), plain);
    m_button.setBackgroundColor(kTitle); // The title would not be read, and takes another colour.
    EXPECT_GT(
        boxOf(grab(m_button), [](const QColor& pixel) { return pixel == QColor(Qt::white); }).width(), 20);
}

TEST_F(ButtonTest, theColourIsTheSystemsWhileThereIsNoTitleOrNoColour)
{
    EXPECT_EQ(m_button.textColor(), kTitle);
    const QColor system = m_button.palette().color(QPalette::ButtonText);
    m_button.setText(QString());
    EXPECT_EQ(m_button.textColor(), system);
    m_button.setText(QStringLiteral("x"));
    m_button.setTextColor({});
    EXPECT_EQ(m_button.textColor(), system);
}

TEST_F(ButtonTest, onlyTheKeyboardsFocusIsMarked)
{
    expectMarkOfKeyboardFocus(m_button);
}

TEST_F(ButtonTest, aKeyKeptDownClicksOnceThoughX11ReportsItAsGoingUpAndDown)
{
    QSignalSpy clicks(&m_button, &QPushButton::clicked);
    for (const int key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) {
        SCOPED_TRACE(key);
        clicks.clear();
        send(QEvent::KeyPress, key, 1000);
        for (quint64 time = 1660; time < 2000; time += 40) {
            send(QEvent::KeyRelease, key, time);
            send(QEvent::KeyPress, key, time);
        }
        send(QEvent::KeyRelease, key, 2020);
        EXPECT_EQ(clicks.count(), 1);
        send(QEvent::KeyPress, key, 2100);
        send(QEvent::KeyRelease, key, 2200);
        EXPECT_EQ(clicks.count(), 2);
    }
    QTest::keyClick(&m_button, Qt::Key_Return); // Without a time: not a keyboard's.
    QKeyEvent repeated(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QString(), true);
    QApplication::sendEvent(&m_button, &repeated);
    EXPECT_EQ(clicks.count(), 3);
}

TEST_F(ButtonTest, linksTellTheMouse)
{
    HoverLink link;
    link.setText(QStringLiteral("More"));
    EXPECT_EQ(link.textColor(), zelvoHoverColor());
    EXPECT_EQ(link.cursor().shape(), Qt::PointingHandCursor);
    enter(link);
    EXPECT_EQ(link.textColor(), zelvoLinkHover());
    leave(link);
    EXPECT_EQ(link.textColor(), zelvoHoverColor());

    HoverUnderlineButton week;
    week.setText(QStringLiteral("Week"));
    enter(week);
    EXPECT_TRUE(week.isUnderlined());
    leave(week);
    EXPECT_FALSE(week.isUnderlined());
    for (Button* button : {static_cast<Button*>(&link), static_cast<Button*>(&week)}) {
        button->resize(90, 30);
        button->setDown(true);
        EXPECT_EQ(grab(*button).pixelColor(2, 15), kGround); // Nothing behind a link darkens.
    }
}
}
