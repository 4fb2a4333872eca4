#include "ui/Button.h"

#include "fakes/ControlTest.h"
#include "ui/FontAndTextHandler.h"
#include "ui/HoverLink.h"
#include "ui/HoverUnderlineButton.h"
#include "ui/Palette.h"

#include <QHBoxLayout>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>

namespace {
using ButtonTest = ControlTest;

/// A window with a button on a free stripe of background.
struct Stage {
    QWidget window;
    Button button {&window};

    Stage()
    {
        window.resize(200, 80);
        button.setText(QStringLiteral("Settings"));
        button.setFont(FontAndTextHandler::Light12());
        button.setTextColor(zelvoTextColor());
        button.setBackgroundColor(zelvoButtonDarkBackgroundColor());
        button.setGeometry(40, 20, 120, 36);
    }
};

bool differOutside(const QImage& first, const QImage& second, const QRect& rect)
{
    for (int y = 0; y < first.height(); ++y) {
        for (int x = 0; x < first.width(); ++x) {
            if (!rect.contains(x, y) && first.pixel(x, y) != second.pixel(x, y))
                return true;
        }
    }
    return false;
}
}

TEST_F(ButtonTest, theColourIsTheSystemsWhileThereIsNoTitleOrNoColour)
{
    Button button;
    const QColor system = button.palette().color(QPalette::ButtonText);
    EXPECT_EQ(button.textColor(), system);
    button.setTextColor(Qt::red);
    EXPECT_EQ(button.textColor(), system);
    button.setText(QStringLiteral("x"));
    EXPECT_EQ(button.textColor(), QColor(Qt::red));
}

TEST_F(ButtonTest, eachStateLooksDifferentAndOnlyInsideTheButton)
{
    Stage stage;
    show(stage.window);
    const QImage plain = grab(stage.window);
    const auto check = [&](const char* name) {
        SCOPED_TRACE(name);
        const QImage now = grab(stage.window);
        EXPECT_NE(now, plain);
        EXPECT_FALSE(differOutside(now, plain, stage.button.geometry()));
    };
    stage.button.setDown(true);
    check("pressed");
    EXPECT_LT(colorAt(grab(stage.window), {45, 38}).lightness(), colorAt(plain, {45, 38}).lightness());
    stage.button.setDown(false);
    stage.button.setEnabled(false);
    check("disabled");
    stage.button.setEnabled(true);
    stage.button.setUnderLineText();
    check("underlined");
    stage.button.removeUnderLineText();
    EXPECT_EQ(grab(stage.window), plain);
}

TEST_F(ButtonTest, onlyTheKeyboardsFocusIsMarked)
{
    Stage stage;
    QLineEdit other(&stage.window);
    show(stage.window);
    other.setFocus();
    const QImage plain = grab(stage.button);
    stage.button.setFocus(Qt::MouseFocusReason);
    EXPECT_EQ(grab(stage.button), plain);
    other.setFocus();
    stage.button.setFocus(Qt::TabFocusReason);
    const QImage marked = grab(stage.button);
    EXPECT_EQ(colorAt(marked, {60, 1}), zelvoHoverColor());
    // The mark is still there when the window comes back to the front.
    QApplication::setActiveWindow(nullptr);
    EXPECT_EQ(grab(stage.button), plain);
    QApplication::setActiveWindow(&stage.window);
    EXPECT_EQ(grab(stage.button), marked);
}

TEST_F(ButtonTest, aTitleThatDoesNotFitEndsInAnEllipsis)
{
    Stage stage;
    stage.button.setText(QStringLiteral("A title that is far too long for this button"));
    const QImage image = grab(stage.window);
    stage.button.setText(stage.button.fontMetrics().elidedText(stage.button.text(), Qt::ElideRight, 100));
    EXPECT_TRUE(stage.button.text().endsWith(QChar(0x2026)));
    EXPECT_EQ(grab(stage.window), image);
    EXPECT_LT(stage.button.minimumSizeHint().width(), stage.button.sizeHint().width());
}

TEST_F(ButtonTest, theSizeHintShowsPictureAndWholeTitle)
{
    Button button;
    button.setText(QStringLiteral("Einstellungen öffnen"));
    button.setFont(FontAndTextHandler::Light12());
    button.setImage(Picture(QStringLiteral("ButtonSettings")));
    using Position = Button::ImagePosition;
    for (const auto position : {Position::Leading, Position::Above}) {
        button.setImagePosition(position);
        button.resize(button.sizeHint());
        const int besides = position == Position::Leading ? 24 : 0;
        EXPECT_GE(button.width(), button.fontMetrics().horizontalAdvance(button.text()) + besides);
        EXPECT_GE(button.height(), position == Position::Above ? 24 + button.fontMetrics().height() : 24);
    }
    button.setImagePosition(Position::Only);
    EXPECT_LT(button.sizeHint().width(), 50);
}

TEST_F(ButtonTest, thePictureStandsBeforeTheTitleInTheDirectionOfReading)
{
    Button button;
    button.setText(QStringLiteral("Up"));
    button.setTextColor(Qt::white); // Unseen, so that only the picture darkens its half.
    button.setImage(Picture(QStringLiteral("ButtonUp")));
    button.resize(100, 40);
    const auto darkOnLeft = [](const QImage& image) {
        int darkness = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width() / 2; ++x)
                darkness += 255 - image.pixelColor(x, y).lightness();
        }
        return darkness;
    };
    const QImage leftToRight = grab(button);
    button.setLayoutDirection(Qt::RightToLeft);
    const QImage rightToLeft = grab(button);
    EXPECT_GT(darkOnLeft(leftToRight), darkOnLeft(rightToLeft));
}

TEST_F(ButtonTest, spaceAndReturnClickOnce)
{
    Stage stage;
    show(stage.window);
    stage.button.setFocus();
    QSignalSpy clicks(&stage.button, &QPushButton::clicked);
    QTest::keyClick(&stage.button, Qt::Key_Space);
    QTest::keyClick(&stage.button, Qt::Key_Return);
    QTest::keyClick(&stage.button, Qt::Key_Enter);
    EXPECT_EQ(clicks.count(), 3);
    QKeyEvent repeated(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QString(), true);
    QApplication::sendEvent(&stage.button, &repeated);
    EXPECT_EQ(clicks.count(), 3);
}

TEST_F(ButtonTest, aKeyKeptDownClicksOnceThoughX11ReportsItAsGoingUpAndDown)
{
    for (const int key : {Qt::Key_Space, Qt::Key_Return}) {
        SCOPED_TRACE(key);
        Stage stage;
        QSignalSpy clicks(&stage.button, &QPushButton::clicked);
        const auto send = [&](QEvent::Type type, quint64 time) {
            QKeyEvent event(type, key, Qt::NoModifier);
            event.setTimestamp(time);
            QApplication::sendEvent(&stage.button, &event);
        };
        send(QEvent::KeyPress, 1000);
        for (quint64 time = 1660; time < 2000; time += 40) {
            send(QEvent::KeyRelease, time);
            send(QEvent::KeyPress, time);
        }
        send(QEvent::KeyRelease, 2020);
        EXPECT_EQ(clicks.count(), 1);
        send(QEvent::KeyPress, 2100);
        send(QEvent::KeyRelease, 2200);
        EXPECT_EQ(clicks.count(), 2);
    }
}

TEST_F(ButtonTest, aHoverLinkTurnsGreyUnderTheMouse)
{
    HoverLink link;
    link.setText(QStringLiteral("More"));
    EXPECT_EQ(link.textColor(), zelvoHoverColor());
    enter(link);
    EXPECT_EQ(link.textColor(), zelvoLinkHover());
    leave(link);
    EXPECT_EQ(link.textColor(), zelvoHoverColor());
    EXPECT_EQ(link.cursor().shape(), Qt::PointingHandCursor);
}

TEST_F(ButtonTest, aHoverUnderlineButtonIsUnderlinedUnderTheMouse)
{
    HoverUnderlineButton button;
    button.setText(QStringLiteral("Week"));
    EXPECT_FALSE(button.isUnderlined());
    enter(button);
    EXPECT_TRUE(button.isUnderlined());
    leave(button);
    EXPECT_FALSE(button.isUnderlined());
}
