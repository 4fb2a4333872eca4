#include "ui/MouseEventButton.h"

#include "fakes/ControlTest.h"

#include <QDialog>
#include <QLineEdit>
#include <QMenu>
#include <QShortcutEvent>

#include <cctype>
#include <functional>
#include <map>
#include <memory>
#include <span>
#include <utility>

namespace {
/// Writes down "v" and "^".
struct Recorder final : MouseEventButtonDelegate {
    std::string heard;
    std::function<void()> then;

    void mouseEventButtonMouseDown(MouseEventButton&) override { hear('v'); }
    void mouseEventButtonMouseUp(MouseEventButton&) override { hear('^'); }
    void hear(char what)
    {
        heard += what;
        if (then)
            then();
    }
};

/// A window with the button and a field beside it, and another window.
struct Stage {
    Recorder recorder;
    Recorder otherRecorder;
    QWidget otherWindow;
    QWidget window;
    QWidget* panel = new QWidget(&window);
    QPointer<MouseEventButton> button = new MouseEventButton(panel);
    QLineEdit* field = new QLineEdit(panel);
    std::unique_ptr<QMenu> menu = std::make_unique<QMenu>();
    Qt::MouseButtons pressed;
    int key = 0;

    Stage()
    {
        window.resize(300, 200);
        panel->resize(300, 200);
        button->setGeometry(20, 20, 100, 40);
        field->setGeometry(20, 100, 100, 30);
        button->setText(QStringLiteral("Up"));
        button->setDelegate(&recorder);
        menu->addAction(QStringLiteral("Quit"));
        otherWindow.show();
        window.show();
        QApplication::setActiveWindow(&window);
        QApplication::processEvents();
        button->setFocus();
    }

    void send(QEvent::Type type) { send(QEvent(type)); }
    template <typename Event>
    void send(Event event)
    {
        QApplication::sendEvent(button, &event);
    }
    void sendMouse(QWidget* receiver, QEvent::Type type, Qt::MouseButton which, QPointF at = {9, 9})
    {
        QMouseEvent event(type, at, receiver->mapToGlobal(at), which, pressed, Qt::NoModifier);
        QApplication::sendEvent(receiver, &event);
    }
    void sendKey(QEvent::Type type, int which, Qt::KeyboardModifiers modifiers = {}, bool isRepeat = false,
        quint64 time = 0)
    {
        key = which;
        QKeyEvent event(type, which, modifiers, QString(), isRepeat);
        event.setTimestamp(time);
        QApplication::sendEvent(button, &event);
    }
    /// Buttons and keys: a capital goes down, the small letter up.
    void act(char step)
    {
        static const std::map<char, Qt::MouseButton> kButtons {
            {'l', Qt::LeftButton}, {'r', Qt::RightButton}, {'m', Qt::MiddleButton}, {'d', Qt::LeftButton}};
        static const std::map<char, int> kKeys {{'s', Qt::Key_Space}, {'e', Qt::Key_Enter},
            {'n', Qt::Key_Return}, {'a', Qt::Key_Alt}, {'t', Qt::Key_Tab}, {'x', Qt::Key_X}};
        const char letter = char(std::tolower(step));
        const bool isDown = letter != step;
        if (const auto found = kButtons.find(letter); found != kButtons.end()) {
            pressed.setFlag(found->second, isDown);
            sendMouse(button,
                !isDown           ? QEvent::MouseButtonRelease
                    : step == 'D' ? QEvent::MouseButtonDblClick
                                  : QEvent::MouseButtonPress,
                found->second);
        } else if (const auto name = kKeys.find(letter); name != kKeys.end()) {
            sendKey(isDown ? QEvent::KeyPress : QEvent::KeyRelease, name->second);
        } else if (step == '+') {
            sendKey(QEvent::KeyRelease, key, {}, true);
            sendKey(QEvent::KeyPress, key, {}, true);
        } else if (step == '>') { // Dragged away.
            sendMouse(button, QEvent::MouseMove, Qt::NoButton, {-50, 500});
            send(QEvent::Leave);
        } else if (step == '&') {
            send(QShortcutEvent(QKeySequence(Qt::ALT | Qt::Key_U), 0));
        } else if (step == '$') { // With the keys of a command.
            for (const auto modifier : {Qt::ControlModifier, Qt::AltModifier, Qt::MetaModifier})
                sendKey(QEvent::KeyPress, Qt::Key_Space, modifier);
        } else if (step == '0') {
            button->setEnabled(false);
        } else {
            pressed = {}; // Let go where the button could not see it.
            if (step == 'o')
                sendMouse(button, QEvent::MouseMove, Qt::NoButton);
            else if (step == 'f')
                sendMouse(field, QEvent::MouseButtonRelease, Qt::LeftButton);
            else if (step == 'w')
                QApplication::sendEvent(
                    &otherWindow, std::make_unique<QEnterEvent>(QPointF(), QPointF(), QPointF()).get());
        }
    }
};

using MouseEventButtonTest = ControlTest;
}

TEST_F(MouseEventButtonTest, eachStepReportsWhatItBeginsOrEnds)
{
    const struct {
        const char* steps;
        const char* heard; ///< a letter a step
    } kTestCases[] = {
        {"LlDl", "v^v^"},
        {"RrMmLRrl", "....v..^"},
        {"L>l", "v.^"},
        {"Lol", "v^."},
        {"Lfl", "v^."},
        {"Lwl", "v^."},
        {"SwoLls", "v....^"}, // One holder at a time.
        {"LSsl", "v..^"},
        {"S++s+", "v..^."}, // A late repeat starts nothing.
        {"E++e", "v..^"},
        {"N++n", "v..^"},
        {"SAs", "v^."}, // Another key may take the keyboard away.
        {"STs", "v^."},
        {"SXs", "v^."},
        {"SNns", "v^.."},
        {"Sns", "v.^"},
        {"ATX$&", "....."},
        {"0SL", "..."},
    };
    for (const auto& row : kTestCases) {
        Stage stage;
        int clicks = 0;
        QObject::connect(stage.button, &QPushButton::clicked, stage.button, [&] { ++clicks; });
        QObject::connect(stage.button, &QPushButton::pressed, stage.button, [&] { ++clicks; });
        std::string heard;
        for (const char* step = row.steps; *step; ++step) {
            stage.act(*step);
            heard += std::exchange(stage.recorder.heard, {});
            heard.resize(size_t(step - row.steps) + 1, '.');
            EXPECT_EQ(stage.button->isDown(), stage.button->isHeld()) << "what a screen reader says";
            EXPECT_EQ(stage.button->hasMouseTracking(), stage.button->isHeld()) << "to see a lost release";
        }
        EXPECT_EQ(heard, row.heard) << row.steps;
        EXPECT_EQ(clicks, 0) << row.steps;
    }
}

TEST_F(MouseEventButtonTest, whateverElseEndsTheHoldReportsItOnce)
{
    const struct {
        const char* name;
        std::function<void(Stage&)> act;
    } kTestCases[] = {
        {"button hidden", [](Stage& stage) { stage.button->hide(); }},
        {"button disabled", [](Stage& stage) { stage.button->setEnabled(false); }},
        {"button deleted", [](Stage& stage) { delete stage.button; }},
        {"button moved away", [](Stage& stage) { stage.button->setParent(&stage.otherWindow); }},
        {"panel disabled", [](Stage& stage) { stage.panel->setEnabled(false); }},
        {"window closed", [](Stage& stage) { stage.window.close(); }},
        {"window minimised", [](Stage& stage) { stage.window.showMinimized(); }},
        {"another window", [](Stage& stage) { QApplication::setActiveWindow(&stage.otherWindow); }},
        {"mouse grab lost", [](Stage& stage) { stage.send(QEvent::UngrabMouse); }},
        {"keyboard grab lost", [](Stage& stage) { stage.send(QEvent::UngrabKeyboard); }},
        {"touch cancelled", [](Stage& stage) { stage.send(QEvent::TouchCancel); }},
        {"dialog in front", [](Stage& stage) { (new QDialog(&stage.window))->open(); }},
        {"menu opened",
            [](Stage& stage) {
                stage.menu->popup({5, 5});
            }},
        {"told to quit",
            [](Stage&) { QApplication::sendEvent(qApp, std::make_unique<QEvent>(QEvent::Quit).get()); }},
        {"left for another program",
            [](Stage&) {
                QApplicationStateChangeEvent event(Qt::ApplicationInactive);
                QApplication::sendEvent(qApp, &event);
            }},
        {"delegate replaced", [](Stage& stage) { stage.button->setDelegate(&stage.otherRecorder); }},
        {"focus moved", [](Stage& stage) { stage.field->setFocus(); }}, // The last row.
    };
    // A reminder's buttons are held by the mouse without having the focus.
    for (const auto& [step, hasFocus] : {std::pair('L', true), {'L', false}, {'S', true}}) {
        for (const auto& row : std::span(kTestCases).first(std::size(kTestCases) - (hasFocus ? 0 : 1))) {
            SCOPED_TRACE(testing::Message() << row.name << ' ' << step << hasFocus);
            Stage stage;
            if (!hasFocus)
                stage.button->clearFocus();
            stage.act(step);
            row.act(stage);
            QApplication::processEvents();
            EXPECT_EQ(stage.recorder.heard, "v^");
            if (stage.button)
                stage.act(char(std::tolower(step))); // A release that comes after all says nothing new.
            delete stage.button;
            EXPECT_EQ(stage.recorder.heard + stage.otherRecorder.heard, "v^");
        }
    }
}

TEST_F(MouseEventButtonTest, aKeyThatX11ReportsAsGoingUpAndDownHoldsUntilItStaysUp)
{
    Stage stage;
    const auto space = [&](QEvent::Type type, quint64 time) {
        stage.sendKey(type, Qt::Key_Space, {}, false, time);
    };
    space(QEvent::KeyPress, 1000);
    for (quint64 time = 1660; time < 2000; time += 40) {
        platform.runLoop.advance(0.04);
        space(QEvent::KeyRelease, time);
        platform.runLoop.advance(0.002);
        space(QEvent::KeyPress, time);
    }
    space(QEvent::KeyRelease, 2020);
    EXPECT_EQ(stage.recorder.heard, "v");
    platform.runLoop.advance(0.021);
    EXPECT_EQ(stage.recorder.heard, "v^");
    EXPECT_EQ(platform.runLoop.pendingTimerCount(), 0U);

    // What ends the hold otherwise does so at once, and only once.
    space(QEvent::KeyPress, 3000);
    space(QEvent::KeyRelease, 3100);
    stage.button->hide();
    EXPECT_EQ(stage.recorder.heard, "v^v^");
    platform.runLoop.advance(1);
    EXPECT_EQ(stage.recorder.heard, "v^v^");
}

TEST_F(MouseEventButtonTest, theDelegateMayDeleteTheButton)
{
    for (const char step : {'L', 'S'}) {
        for (const char* deletedAt : {"v", "v^"}) {
            Stage stage;
            stage.recorder.then = [&] {
                if (stage.recorder.heard == deletedAt)
                    delete stage.button;
            };
            stage.act(step);
            stage.field->setFocus();
            EXPECT_EQ(stage.recorder.heard, "v^");
        }
    }
}

TEST_F(MouseEventButtonTest, itLooksPressedExactlyWhileItIsHeld)
{
    Stage stage;
    setBackground(*stage.button, Qt::white);
    const QImage plain = grab(*stage.button);
    stage.act('S');
    EXPECT_LT(colorAt(grab(*stage.button), {8, 20}).lightness(), 250);
    stage.act('s');
    EXPECT_EQ(grab(*stage.button), plain);
}
