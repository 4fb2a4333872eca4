#include "ui/MouseEventButton.h"

#include "fakes/ControlTest.h"

#include <QDialog>
#include <QMenu>
#include <QShortcutEvent>

#include <map>

namespace {
/// A window with the button and a field beside it, and another window. Writes down "v" and "^".
struct Stage final : MouseEventButtonDelegate {
    std::string heard;
    std::function<void()> then = [] {};
    QWidget other;
    QWidget window;
    QPointer<MouseEventButton> button = new MouseEventButton(&window);
    QWidget* field = new QWidget(&window);
    QMenu menu;
    Qt::MouseButtons pressed;

    Stage()
    {
        button->resize(100, 40);
        button->setDelegate(this);
        field->setFocusPolicy(Qt::StrongFocus);
        menu.addAction(QStringLiteral("Quit"));
        other.show();
        window.show();
        QApplication::setActiveWindow(&window);
        QApplication::processEvents();
        button->setFocus();
    }
    ~Stage() { delete button; }
    Q_DISABLE_COPY_MOVE(Stage)
    void mouseEventButtonMouseDown(MouseEventButton&) override { heard += 'v', then(); }
    void mouseEventButtonMouseUp(MouseEventButton&) override { heard += '^', then(); }

    template <typename Event>
    void send(Event event, QObject* receiver = nullptr)
    {
        QApplication::sendEvent(receiver ? receiver : button.data(), &event);
    }
    void mouse(QEvent::Type type, Qt::MouseButton which, bool isDown, QPointF at = {9, 9},
        QWidget* receiver = nullptr)
    {
        pressed.setFlag(which, isDown);
        send(QMouseEvent(type, at, button->mapToGlobal(at), which, pressed, Qt::NoModifier), receiver);
    }
    void key(QEvent::Type type, int which, bool isRepeat = false, quint64 time = 0,
        Qt::KeyboardModifiers with = {})
    {
        QKeyEvent event(type, which, with, QString(), isRepeat);
        event.setTimestamp(time);
        QApplication::sendEvent(button, &event);
    }
};

using Act = std::function<void(Stage&)>;
constexpr auto kPress = QEvent::MouseButtonPress;
constexpr auto kRelease = QEvent::MouseButtonRelease;
/// A capital goes down, the small letter up.
const std::map<char, Act> kSteps {
    {'L', [](Stage& stage) { stage.mouse(kPress, Qt::LeftButton, true); }},
    {'l', [](Stage& stage) { stage.mouse(kRelease, Qt::LeftButton, false); }},
    {'R', [](Stage& stage) { stage.mouse(kPress, Qt::RightButton, true); }},
    {'r', [](Stage& stage) { stage.mouse(kRelease, Qt::RightButton, false); }},
    {'+', [](Stage& stage) { stage.key(QEvent::KeyPress, Qt::Key_Space, true); }},
    {'-', [](Stage& stage) { stage.key(QEvent::KeyRelease, Qt::Key_Space, true); }},
    {'$', [](Stage& stage) { stage.key(QEvent::KeyPress, Qt::Key_Space, false, 0, Qt::ControlModifier); }},
    {'&', [](Stage& stage) { stage.send(QShortcutEvent(QKeySequence(Qt::ALT | Qt::Key_U), 0)); }},
    {'>', [](Stage& stage) { stage.mouse(QEvent::MouseMove, Qt::RightButton, true); }},
    // Let go where the button could not see it.
    {'o', [](Stage& stage) { stage.mouse(QEvent::MouseMove, Qt::LeftButton, false); }},
    {'f',
        [](Stage& stage) {
            stage.mouse(kRelease, Qt::LeftButton, false, {9, 9}, stage.field);
        }},
    {'w', [](Stage& stage) { stage.pressed = {}, stage.send(QEnterEvent({}, {}, {}), &stage.other); }},
};
const std::map<char, int> kKeys {
    {'s', Qt::Key_Space}, {'e', Qt::Key_Enter}, {'n', Qt::Key_Return}, {'t', Qt::Key_Tab}};

void act(Stage& stage, char step)
{
    const auto key = kKeys.find(char(std::tolower(step)));
    if (key == kKeys.end())
        kSteps.at(step)(stage);
    else
        stage.key(std::isupper(step) ? QEvent::KeyPress : QEvent::KeyRelease, key->second);
}

/// What ends a hold, whoever holds.
const std::map<const char*, Act> kEnds {
    {"hidden", [](Stage& stage) { stage.button->hide(); }},
    {"deleted", [](Stage& stage) { delete stage.button; }},
    {"moved away", [](Stage& stage) { stage.button->setParent(&stage.other); }},
    {"window disabled", [](Stage& stage) { stage.window.setEnabled(false); }},
    {"mouse grab lost", [](Stage& stage) { stage.send(QEvent(QEvent::UngrabMouse)); }},
    {"keyboard grab lost", [](Stage& stage) { stage.send(QEvent(QEvent::UngrabKeyboard)); }},
    {"touch cancelled", [](Stage& stage) { stage.send(QEvent(QEvent::TouchCancel)); }},
    {"dialog in front", [](Stage& stage) { (new QDialog(&stage.window))->open(); }},
    {"menu opened", [](Stage& stage) { stage.menu.popup(QPoint(5, 5)); }},
    {"another program",
        [](Stage& stage) { stage.send(QApplicationStateChangeEvent(Qt::ApplicationInactive), qApp); }},
    {"without a delegate", [](Stage& stage) { stage.button->setDelegate(nullptr); }},
};
using MouseEventButtonTest = ControlTest;
}

TEST_F(MouseEventButtonTest, eachStepReportsWhatItBeginsOrEnds)
{
    const std::pair<const char*, const char*> kTestCases[] = {{"LlLl", "v^v^"}, {"RrLRrl", "..v..^"},
        {"L>l", "v.^"}, {"Lol", "v^."}, {"Lfl", "v^."}, {"Lwl", "v^."}, {"SwoLls", "v....^"},
        {"LSsl", "v..^"}, {"S-+s+", "v..^."}, {"Ee", "v^"}, {"Nn", "v^"}, {"STs", "v^."}, {"SNns", "v^.."},
        {"Sns", "v.^"}, {"T$&", "..."}};
    for (const auto& [steps, expected] : kTestCases) {
        Stage stage;
        setBackground(*stage.button, Qt::white);
        std::string heard;
        for (const char* step = steps; *step; ++step) {
            act(stage, *step);
            heard += std::exchange(stage.heard, {});
            heard.resize(size_t(step - steps) + 1, '.');
            EXPECT_EQ(stage.button->isDown(), stage.button->isHeld()) << "what a screen reader says";
            EXPECT_EQ(grab(*stage.button).pixelColor(8, 20) != Qt::white, stage.button->isHeld());
            EXPECT_EQ(stage.button->hasMouseTracking(), stage.button->isHeld()) << "to see a lost release";
        }
        EXPECT_EQ(heard, expected) << steps;
    }
}

TEST_F(MouseEventButtonTest, whateverElseEndsTheHoldReportsItOnce)
{
    // A reminder's buttons are held by the mouse without having the focus.
    for (const auto& [holder, hasFocus] : {std::pair('L', true), {'L', false}, {'S', true}}) {
        for (const auto& [name, end] : kEnds) {
            Stage stage;
            if (!hasFocus)
                stage.button->clearFocus();
            act(stage, holder);
            end(stage);
            QApplication::processEvents();
            EXPECT_EQ(stage.heard, "v^") << name << ' ' << holder << hasFocus;
            if (stage.button)
                act(stage, char(std::tolower(holder)));
            EXPECT_EQ(stage.heard, "v^") << name;
        }
    }
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
            act(stage, holder);
            stage.field->setFocus();
            EXPECT_EQ(stage.heard, "v^");
        }
    }
}
