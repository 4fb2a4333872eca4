#include "ui/MouseEventButton.h"

#include "fakes/ControlTest.h"

#include <QDialog>
#include <QLineEdit>
#include <QMenu>
#include <QSignalSpy>
#include <QTest>

#include <functional>
#include <memory>

namespace {
struct Recorder final : MouseEventButtonDelegate {
    int downs = 0;
    int ups = 0;
    std::function<void()> onDown;
    std::function<void()> onUp;

    void mouseEventButtonMouseDown(MouseEventButton&) override
    {
        ++downs;
        if (onDown)
            onDown();
    }
    void mouseEventButtonMouseUp(MouseEventButton&) override
    {
        ++ups;
        if (onUp)
            onUp();
    }
};

/// A window with the button and a field beside it, and another window.
struct Stage {
    Recorder recorder;
    Recorder otherRecorder;
    std::unique_ptr<QWidget> otherWindow = std::make_unique<QWidget>();
    std::unique_ptr<QWidget> window = std::make_unique<QWidget>();
    QWidget* panel = new QWidget(window.get());
    QPointer<MouseEventButton> button = new MouseEventButton(panel);
    QLineEdit* field = new QLineEdit(panel);
    std::unique_ptr<QWidget> popup;

    Stage()
    {
        window->resize(300, 200);
        panel->resize(300, 200);
        button->setGeometry(20, 20, 100, 40);
        field->setGeometry(20, 100, 100, 30);
        button->setText(QStringLiteral("Up"));
        button->setDelegate(&recorder);
        otherWindow->show();
        window->show();
        QApplication::setActiveWindow(window.get());
        QApplication::processEvents();
    }
};

void send(QObject* receiver, QEvent::Type type)
{
    QEvent event(type);
    QApplication::sendEvent(receiver, &event);
}

void sendKey(QWidget* receiver, QEvent::Type type, int key, bool isAutoRepeat,
    Qt::KeyboardModifiers modifiers = Qt::NoModifier, quint64 time = 0)
{
    QKeyEvent event(type, key, modifiers, QString(), isAutoRepeat);
    event.setTimestamp(time);
    QApplication::sendEvent(receiver, &event);
}

void sendMouse(QWidget* receiver, QEvent::Type type, Qt::MouseButton button, Qt::MouseButtons buttons)
{
    const QPointF center = receiver->rect().center();
    QMouseEvent event(type, center, receiver->mapToGlobal(center), button, buttons, Qt::NoModifier);
    QApplication::sendEvent(receiver, &event);
}

/// A reminder's buttons are held by the mouse without having the focus.
enum class By { Mouse, MouseWithoutFocus, Key };

const char* name(By by)
{
    return by == By::Key ? "key" : by == By::Mouse ? "mouse" : "mouse without focus";
}

void press(Stage& stage, By by)
{
    stage.button->setFocus();
    if (by == By::MouseWithoutFocus)
        stage.button->clearFocus();
    if (by != By::Key)
        sendMouse(stage.button, QEvent::MouseButtonPress, Qt::LeftButton, Qt::LeftButton);
    else
        sendKey(stage.button, QEvent::KeyPress, Qt::Key_Space, false);
}

void letGo(Stage& stage, By by)
{
    if (by != By::Key)
        sendMouse(stage.button, QEvent::MouseButtonRelease, Qt::LeftButton, Qt::NoButton);
    else
        sendKey(stage.button, QEvent::KeyRelease, Qt::Key_Space, false);
}

using MouseEventButtonTest = ControlTest;
}

TEST_F(MouseEventButtonTest, whateverEndsTheHoldReportsMouseUpOnce)
{
    const struct {
        const char* name;
        std::function<void(Stage&)> act;
        bool isAboutFocus = false;
    } kTestCases[] = {
        {"button hidden", [](Stage& stage) { stage.button->hide(); }},
        {"button disabled", [](Stage& stage) { stage.button->setEnabled(false); }},
        {"button deleted", [](Stage& stage) { delete stage.button; }},
        {"button moved into another window",
            [](Stage& stage) { stage.button->setParent(stage.otherWindow.get()); }},
        {"panel disabled", [](Stage& stage) { stage.panel->setEnabled(false); }},
        {"window closed", [](Stage& stage) { stage.window->close(); }},
        {"window minimised", [](Stage& stage) { stage.window->showMinimized(); }},
        {"another window active",
            [](Stage& stage) { QApplication::setActiveWindow(stage.otherWindow.get()); }},
        {"focus moved", [](Stage& stage) { stage.field->setFocus(); }, true},
        {"mouse grab lost", [](Stage& stage) { send(stage.button, QEvent::UngrabMouse); }},
        {"keyboard grab lost", [](Stage& stage) { send(stage.button, QEvent::UngrabKeyboard); }},
        {"touch cancelled", [](Stage& stage) { send(stage.button, QEvent::TouchCancel); }},
        {"dialog in front",
            [](Stage& stage) {
                auto* dialog = new QDialog(stage.window.get());
                dialog->open();
                QApplication::processEvents();
            }},
        {"menu opened",
            [](Stage& stage) {
                auto menu = std::make_unique<QMenu>();
                menu->addAction(QStringLiteral("Quit"));
                menu->popup(QPoint(5, 5));
                stage.popup = std::move(menu);
                QApplication::processEvents();
            }},
        {"program told to quit", [](Stage&) { send(qApp, QEvent::Quit); }},
        {"program left for another",
            [](Stage&) {
                QApplicationStateChangeEvent event(Qt::ApplicationInactive);
                QApplication::sendEvent(qApp, &event);
            }},
        {"delegate replaced", [](Stage& stage) { stage.button->setDelegate(&stage.otherRecorder); }},
    };
    for (const By by : {By::Mouse, By::MouseWithoutFocus, By::Key}) {
        for (const auto& testCase : kTestCases) {
            if (testCase.isAboutFocus && by == By::MouseWithoutFocus)
                continue;
            SCOPED_TRACE(testing::Message() << testCase.name << ", " << name(by));
            Stage stage;
            press(stage, by);
            ASSERT_EQ(stage.recorder.downs, 1);
            ASSERT_EQ(stage.recorder.ups, 0);
            testCase.act(stage);
            EXPECT_EQ(stage.recorder.ups, 1);
            if (stage.button) {
                EXPECT_FALSE(stage.button->isHeld());
                letGo(stage, by); // A release that comes after all says nothing new.
                delete stage.button;
            }
            EXPECT_EQ(stage.recorder.downs, 1);
            EXPECT_EQ(stage.recorder.ups, 1);
            EXPECT_EQ(stage.otherRecorder.ups, 0);
        }
    }
}

TEST_F(MouseEventButtonTest, aMouseSeenWithoutItsButtonAnywhereEndsTheHold)
{
    const struct {
        const char* name;
        std::function<void(Stage&)> act;
    } kTestCases[] = {
        {"released over a field",
            [](Stage& stage) {
                sendMouse(stage.field, QEvent::MouseButtonRelease, Qt::LeftButton, Qt::NoButton);
            }},
        {"moved over the button",
            [](Stage& stage) { sendMouse(stage.button, QEvent::MouseMove, Qt::NoButton, Qt::NoButton); }},
        {"entered another window",
            [](Stage& stage) {
                QEnterEvent event(QPointF(1, 1), QPointF(1, 1), QPointF(1, 1));
                QApplication::sendEvent(stage.otherWindow.get(), &event);
            }},
    };
    for (const auto& testCase : kTestCases) {
        SCOPED_TRACE(testCase.name);
        Stage stage;
        press(stage, By::Mouse);
        testCase.act(stage);
        EXPECT_EQ(stage.recorder.ups, 1);
        letGo(stage, By::Mouse);
        EXPECT_EQ(stage.recorder.ups, 1);
    }
}

TEST_F(MouseEventButtonTest, pressAndReleaseAreReportedOnceEachAndNothingIsClicked)
{
    Stage stage;
    QSignalSpy clicked(stage.button, &QPushButton::clicked);
    QSignalSpy pressed(stage.button, &QPushButton::pressed);
    for (const By by : {By::Mouse, By::Key}) {
        const int before = stage.recorder.downs;
        press(stage, by);
        EXPECT_TRUE(stage.button->isHeld());
        EXPECT_EQ(stage.recorder.ups, before);
        letGo(stage, by);
        EXPECT_EQ(stage.recorder.downs, before + 1);
        EXPECT_EQ(stage.recorder.ups, before + 1);
    }
    press(stage, By::Mouse);
    letGo(stage, By::Mouse);
    sendMouse(stage.button, QEvent::MouseButtonDblClick, Qt::LeftButton, Qt::LeftButton);
    letGo(stage, By::Mouse);
    EXPECT_EQ(stage.recorder.downs, 4);
    EXPECT_EQ(stage.recorder.ups, 4);
    EXPECT_EQ(clicked.count() + pressed.count(), 0);
}

TEST_F(MouseEventButtonTest, theHoldGoesOnWhileThePointerIsDraggedAway)
{
    Stage stage;
    press(stage, By::Mouse);
    const QPointF away(-50, 500);
    QMouseEvent move(QEvent::MouseMove, away, away, Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(stage.button, &move);
    leave(*stage.button);
    EXPECT_TRUE(stage.button->isHeld());
    EXPECT_EQ(stage.recorder.ups, 0);
    letGo(stage, By::Mouse);
    EXPECT_EQ(stage.recorder.ups, 1);
}

TEST_F(MouseEventButtonTest, onlyTheLeftButtonHolds)
{
    Stage stage;
    for (const auto button : {Qt::RightButton, Qt::MiddleButton}) {
        QTest::mousePress(stage.button, button);
        QTest::mouseRelease(stage.button, button);
    }
    EXPECT_EQ(stage.recorder.downs, 0);
    press(stage, By::Mouse);
    sendMouse(stage.button, QEvent::MouseButtonPress, Qt::RightButton, Qt::LeftButton | Qt::RightButton);
    sendMouse(stage.button, QEvent::MouseButtonRelease, Qt::RightButton, Qt::LeftButton);
    EXPECT_EQ(stage.recorder.downs, 1);
    EXPECT_EQ(stage.recorder.ups, 0);
    letGo(stage, By::Mouse);
    EXPECT_EQ(stage.recorder.ups, 1);
}

TEST_F(MouseEventButtonTest, spaceReturnAndEnterHoldWithoutAutoRepeat)
{
    for (const int key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) {
        SCOPED_TRACE(key);
        Stage stage;
        sendKey(stage.button, QEvent::KeyPress, key, false);
        for (int i = 0; i < 5; ++i) {
            sendKey(stage.button, QEvent::KeyRelease, key, true);
            sendKey(stage.button, QEvent::KeyPress, key, true);
        }
        EXPECT_EQ(stage.recorder.downs, 1);
        EXPECT_EQ(stage.recorder.ups, 0);
        sendKey(stage.button, QEvent::KeyRelease, key, false);
        EXPECT_EQ(stage.recorder.ups, 1);
        sendKey(stage.button, QEvent::KeyPress, key, true); // A late repeat starts nothing.
        EXPECT_EQ(stage.recorder.downs, 1);
    }
}

TEST_F(MouseEventButtonTest, aKeyThatX11ReportsAsGoingUpAndDownHoldsUntilItStaysUp)
{
    Stage stage;
    const auto key = [&](QEvent::Type type, quint64 time) {
        sendKey(stage.button, type, Qt::Key_Space, false, Qt::NoModifier, time);
    };
    key(QEvent::KeyPress, 1000);
    for (quint64 time = 1660; time < 2000; time += 40) {
        platform.runLoop.advance(0.04);
        key(QEvent::KeyRelease, time);
        platform.runLoop.advance(0.002);
        key(QEvent::KeyPress, time);
    }
    EXPECT_EQ(stage.recorder.downs, 1);
    EXPECT_EQ(stage.recorder.ups, 0);
    key(QEvent::KeyRelease, 2020);
    EXPECT_EQ(stage.recorder.ups, 0);
    platform.runLoop.advance(0.021);
    EXPECT_EQ(stage.recorder.ups, 1);
    EXPECT_EQ(platform.runLoop.pendingTimerCount(), 0U);

    // What ends the hold otherwise does so at once, and only once.
    key(QEvent::KeyPress, 3000);
    key(QEvent::KeyRelease, 3100);
    stage.button->hide();
    EXPECT_EQ(stage.recorder.ups, 2);
    platform.runLoop.advance(1);
    EXPECT_EQ(stage.recorder.ups, 2);
}

TEST_F(MouseEventButtonTest, keysThatBelongToOthersHoldNothing)
{
    Stage stage;
    for (const auto modifier : {Qt::ControlModifier, Qt::AltModifier, Qt::MetaModifier})
        sendKey(stage.button, QEvent::KeyPress, Qt::Key_Space, false, modifier);
    sendKey(stage.button, QEvent::KeyPress, Qt::Key_A, false);
    stage.button->setEnabled(false);
    sendKey(stage.button, QEvent::KeyPress, Qt::Key_Space, false);
    EXPECT_EQ(stage.recorder.downs, 0);
}

TEST_F(MouseEventButtonTest, anotherKeyEndsAHoldByKey)
{
    for (const int key : {int(Qt::Key_Alt), int(Qt::Key_Tab), int(Qt::Key_Escape), int(Qt::Key_Return)}) {
        SCOPED_TRACE(key);
        Stage stage;
        press(stage, By::Key);
        sendKey(stage.button, QEvent::KeyPress, key, false);
        EXPECT_EQ(stage.recorder.ups, 1);
        EXPECT_EQ(stage.recorder.downs, 1);
    }
}

TEST_F(MouseEventButtonTest, oneHolderAtATime)
{
    Stage stage;
    press(stage, By::Mouse);
    press(stage, By::Key);
    letGo(stage, By::Key);
    EXPECT_TRUE(stage.button->isHeld());
    letGo(stage, By::Mouse);
    EXPECT_EQ(stage.recorder.downs, 1);
    EXPECT_EQ(stage.recorder.ups, 1);
}

TEST_F(MouseEventButtonTest, theDelegateMayDeleteTheButton)
{
    for (const By by : {By::Mouse, By::Key}) {
        Stage deletesOnDown;
        deletesOnDown.recorder.onDown = [&] { delete deletesOnDown.button; };
        press(deletesOnDown, by);
        EXPECT_EQ(deletesOnDown.recorder.ups, 1);

        Stage deletesOnLoss;
        deletesOnLoss.recorder.onUp = [&] { delete deletesOnLoss.button; };
        press(deletesOnLoss, by);
        deletesOnLoss.field->setFocus();
        EXPECT_EQ(deletesOnLoss.recorder.ups, 1);
    }
}

TEST_F(MouseEventButtonTest, itLooksPressedExactlyWhileItIsHeld)
{
    Stage stage;
    stage.button->setBackgroundColor(Qt::white);
    stage.button->setFocus();
    const QImage plain = grab(*stage.button);
    press(stage, By::Key);
    EXPECT_LT(colorAt(grab(*stage.button), {8, 20}).lightness(), 250);
    letGo(stage, By::Key);
    EXPECT_EQ(grab(*stage.button), plain);
}
