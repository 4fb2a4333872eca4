#include "ui/MouseEventButton.h"

#include "fakes/ControlTest.h"
#include "ui/HoldHint.h"

#include <QMenu>
#include <QShortcutEvent>

#include <map>

namespace {
/// A window with the button and a field beside it. Writes down "v" and "^".
struct Stage final : MouseEventButtonDelegate {
    std::string heard;
    std::function<void()> then = [] {};
    QWidget window;
    QWidget* field = new QWidget(&window);
    QPointer<MouseEventButton> button = new MouseEventButton(&window);
    QMenu menu;
    Qt::MouseButtons pressed;

    Stage()
    {
        button->setDelegate(this);
        field->setFocusPolicy(Qt::StrongFocus);
        window.show();
        QApplication::setActiveWindow(&window);
        button->setFocus();
    }
    void mouseEventButtonMouseDown(MouseEventButton&) override { heard += 'v', then(); }
    void mouseEventButtonMouseUp(MouseEventButton&) override { heard += '^', then(); }

    template <typename Event>
    void send(Event event, QObject* receiver)
    {
        QApplication::sendEvent(receiver, &event);
    }
};

using Act = std::function<void(Stage&)>;
constexpr auto kPress = QEvent::MouseButtonPress;
constexpr auto kRelease = QEvent::MouseButtonRelease;
constexpr auto kMove = QEvent::MouseMove;
constexpr auto kDown = QEvent::KeyPress;
constexpr auto kUp = QEvent::KeyRelease;

Act mouse(QEvent::Type type, Qt::MouseButton which, bool isDown, QWidget* Stage::*receiver = nullptr)
{
    return [=](Stage& stage) {
        stage.pressed.setFlag(which, isDown);
        const QPointF place = stage.button->mapToGlobal(QPointF(9, 9));
        stage.send(QMouseEvent(type, {9, 9}, place, which, stage.pressed, {}),
            receiver ? stage.*receiver : stage.button.data());
    };
}
Act key(QEvent::Type type, int which, Qt::KeyboardModifiers with = {}, bool isRepeat = false)
{
    return [=](Stage& stage) { stage.send(QKeyEvent(type, which, with, {}, isRepeat), stage.button); };
}
Act event(QEvent::Type type, bool isForWindow = false)
{
    return [=](Stage& stage) { stage.send(QEvent(type), isForWindow ? &stage.window : stage.button.data()); };
}

/// A capital goes down, the small letter up.
const std::map<char, Act> kSteps {{'L', mouse(kPress, Qt::LeftButton, true)},
    {'l', mouse(kRelease, Qt::LeftButton, false)}, {'R', mouse(kPress, Qt::RightButton, true)},
    {'r', mouse(kRelease, Qt::RightButton, false)}, {'>', mouse(kMove, Qt::RightButton, true)},
    // Let go where the button could not see it.
    {'o', mouse(kMove, Qt::LeftButton, false)}, {'f', mouse(kRelease, Qt::LeftButton, false, &Stage::field)},
    {'w', [](Stage& stage) { stage.send(QEnterEvent({}, {}, {}), stage.field); }},
    {'S', key(kDown, Qt::Key_Space)}, {'s', key(kUp, Qt::Key_Space)}, {'E', key(kDown, Qt::Key_Enter)},
    {'e', key(kUp, Qt::Key_Enter)}, {'N', key(kDown, Qt::Key_Return)}, {'n', key(kUp, Qt::Key_Return)},
    {'T', key(kDown, Qt::Key_Tab)}, {'+', key(kDown, Qt::Key_Space, {}, true)},
    {'-', key(kUp, Qt::Key_Space, {}, true)}, {'$', key(kDown, Qt::Key_Space, Qt::AltModifier)},
    {'#', key(kDown, Qt::Key_Space, Qt::ControlModifier)}, {'*', key(kDown, Qt::Key_Space, Qt::MetaModifier)},
    {'&', [](Stage& stage) { stage.send(QShortcutEvent(QKeySequence(Qt::Key_U), 0), stage.button); }},
    // None of its business.
    {'q', [](Stage& stage) { stage.send(QShowEvent(), stage.field); }},
    {'c', [](Stage& stage) { stage.send(QCloseEvent(), stage.field); }},
    {'a', [](Stage& stage) { stage.send(QApplicationStateChangeEvent(Qt::ApplicationActive), qApp); }}};

/// What ends a hold, whoever holds.
const Act kEnds[] = {event(QEvent::Hide), event(QEvent::ParentAboutToChange), event(QEvent::TouchCancel),
    event(QEvent::UngrabKeyboard), event(QEvent::UngrabMouse), event(QEvent::Hide, true),
    event(QEvent::WindowBlocked, true), event(QEvent::WindowDeactivate, true),
    event(QEvent::WindowStateChange, true), event(QEvent::Quit, true),
    [](Stage& stage) { stage.send(QCloseEvent(), &stage.window); },
    [](Stage& stage) { stage.send(QShowEvent(), &stage.menu); },
    [](Stage& stage) { stage.send(QApplicationStateChangeEvent(Qt::ApplicationInactive), qApp); },
    [](Stage& stage) { stage.window.setEnabled(false); },
    [](Stage& stage) { stage.button->setDelegate(nullptr); }, [](Stage& stage) { delete stage.button; }};
using MouseEventButtonTest = ControlTest;
}

TEST_F(MouseEventButtonTest, eachStepReportsWhatItBeginsOrEnds)
{
    const std::pair<const char*, const char*> kTestCases[] = {{"LlLl", "v^v^"}, {"RrLRrl", "..v..^"},
        {"L>l", "v.^"}, {"Lol", "v^."}, {"Lfl", "v^."}, {"Lwl", "v^."}, {"SwoLls", "v....^"},
        {"LSsl", "v..^"}, {"S-+s+", "v..^."}, {"Ee", "v^"}, {"Nn", "v^"}, {"STs", "v^."}, {"SNns", "v^.."},
        {"Sns", "v.^"}, {"T$#*&", "....."}, {"Lqcal", "v...^"}};
    for (const auto& [steps, expected] : kTestCases) {
        Stage stage;
        setBackground(*stage.button, Qt::white);
        std::string heard;
        for (const char* step = steps; *step; ++step) {
            kSteps.at (*step)(stage);
            heard += std::exchange(stage.heard, {});
            heard.resize(size_t(step - steps) + 1, '.');
            EXPECT_EQ(stage.button->isDown(), stage.button->isHeld()) << "what a screen reader says";
            EXPECT_EQ(grab(*stage.button).pixelColor(9, 9) != Qt::white, stage.button->isHeld());
            EXPECT_EQ(stage.button->hasMouseTracking(), stage.button->isHeld()) << "to see a lost release";
        }
        EXPECT_EQ(heard, expected) << steps;
    }
}

TEST_F(MouseEventButtonTest, whateverElseEndsTheHoldReportsItOnce)
{
    for (const char holder : {'L', 'S'}) {
        for (const Act& end : kEnds) {
            Stage stage;
            if (holder == 'L') // A reminder's buttons are held by the mouse without having the focus.
                stage.button->clearFocus();
            kSteps.at(holder)(stage);
            end(stage);
            EXPECT_EQ(stage.heard, "v^") << holder << &end - kEnds;
            if (stage.button)
                kSteps.at(char(std::tolower(holder)))(stage);
            EXPECT_EQ(stage.heard, "v^") << holder << &end - kEnds;
        }
    }
}

TEST_F(MouseEventButtonTest, aKeyKeptDownIsHeldThoughX11ReportsItAsGoingUpAndDown)
{
    Stage stage;
    const auto send = [&](QEvent::Type type, quint64 time) {
        QKeyEvent event(type, Qt::Key_Select, {});
        event.setTimestamp(time);
        QApplication::sendEvent(stage.button, &event);
    };
    send(QEvent::KeyPress, 1000);
    send(QEvent::KeyRelease, 1660);
    platform.runLoop.advance(0.019);
    send(QEvent::KeyPress, 1660);
    platform.runLoop.advance(1);
    QEvent other(QEvent::User);
    EXPECT_FALSE(stage.button->eventFilter(stage.field, &other)) << "it takes nothing from anybody";
    send(QEvent::KeyRelease, 2000);
    platform.runLoop.advance(0.019);
    EXPECT_EQ(stage.heard, "v");
    platform.runLoop.advance(0.002);
    EXPECT_EQ(stage.heard, "v^");
}

TEST_F(MouseEventButtonTest, theDelegateMayDeleteTheButton)
{
    for (const char holder : {'L', 'S'}) {
        for (const char* deletedAt : {"v", "v^"}) {
            Stage stage;
            stage.then = [&] {
                if (stage.heard == deletedAt)
                    delete stage.button;
            };
            kSteps.at(holder)(stage);
            stage.field->setFocus();
            EXPECT_EQ(stage.heard, "v^");
        }
    }
}

TEST_F(MouseEventButtonTest, whoLetsGoTooSoonIsToldToHoldForTwoSecondsOrUntilTheNextHold)
{
    Stage stage;
    const auto isTold = [&] {
        const auto* const hint = stage.window.findChild<HoldHint*>();
        return hint && hint->isVisible() && hint->testAttribute(Qt::WA_TransparentForMouseEvents);
    };
    stage.window.resize(200, 40);
    stage.button->resize(60, 33);
    // How long it is held, how long ago that was, and whether that is told.
    for (const auto& [held, ago, told] :
        {std::tuple(0.41, 0.0, false), {0.39, 1.5, true}, {0.39, 1.9, true}, {0.39, 2.1, false}}) {
        kSteps.at('L')(stage);
        EXPECT_FALSE(isTold());
        platform.runLoop.advance(held);
        kSteps.at('l')(stage);
        platform.runLoop.advance(ago);
        EXPECT_EQ(isTold(), told) << held;
    }
    EXPECT_TRUE(stage.window.rect().contains(stage.window.findChild<HoldHint*>()->geometry()));
    stage.button->resize(60, 31); // What stands around a low one says it.
    kSteps.at('L')(stage);
    kSteps.at('l')(stage);
    EXPECT_FALSE(isTold());
}
