#include "data/AppProperties.h"
#include "storm/World.h"

#include <QApplication>
#include <QEnterEvent>
#include <QMouseEvent>
#include <QTest>

#include <algorithm>
#include <cerrno>
#include <ctime>

namespace storm {
namespace {
struct HoldButton {
    const char* name;
    const char* setting; ///< of the height it drives to; none for up and down
    uint16_t command = 0;
};

/// By the variants of a press.
const std::map<std::string, HoldButton> kButtons {
    {"up", {"buttonUp", nullptr, 0x8000}},
    {"down", {"buttonDown", nullptr, 0x7FFF}},
    {"memory1", {"buttonMemory1", "DevicePosition1"}},
    {"memory2", {"buttonMemory2", "DevicePosition2"}},
    {"memory3", {"buttonMemory3", "DevicePosition3"}},
    {"reminder-memory", {"buttonMemory", "DevicePosition2"}},
    {"reminder-up", {"buttonUp", nullptr, 0x8000}},
    {"reminder-down", {"buttonDown", nullptr, 0x7FFF}},
};

bool hasWord(const Step& step, const char* word)
{
    return step.variant.find(word) != std::string::npos;
}

bool isUsable(const QWidget* window)
{
    return window && window->isVisible() && !window->isMinimized();
}

bool isReminder(const QWidget* window)
{
    return window->objectName() == QLatin1String("NotificationWindow");
}

QWidget* child(const QWidget* window, const char* name)
{
    return window->findChild<QWidget*>(QLatin1String(name));
}
}

bool World::eventFilter(QObject* receiver, QEvent* event)
{
    const bool isShow = event->type() == QEvent::Show;
    if (!isShow && event->type() != QEvent::Hide)
        return false;
    auto* window = qobject_cast<QWidget*>(receiver);
    if (!window || !window->isWindow() || !m_app)
        return false;
    window->setUpdatesEnabled(false); // Nobody sees it.
    m_hasNews = true;
    if (m_held && m_held->window() == window && !isShow) {
        m_held.clear();
        oracle().letGo(isReminder(window));
    }
    if (isReminder(window) && isShow) {
        m_reminder = window;
        m_memory = window->findChild<QAbstractButton*>(QStringLiteral("buttonMemory"));
        oracle().reminderAppeared();
    } else if (isReminder(window)) {
        oracle().reminderLeft();
    } else if (isShow && window->objectName() == QLatin1String("MainWindow")) {
        m_main = window;
        m_height = window->findChild<QLabel*>(QStringLiteral("labelTabelHeigt"));
        m_status = window->findChild<QLabel*>(QStringLiteral("labelStatus"));
        m_error = window->findChild<QLabel*>(QStringLiteral("labelErrorText"));
    }
    return false;
}

void World::play(const Step& step)
{
    using Player = void (World::*)(const Step&);
    static const std::vector<std::pair<std::string, Player>> players {{"wait", &World::wait},
        {"press", &World::press}, {"let-go", &World::letGo}, {"window", &World::openOrClose},
        {"plug", &World::plug}, {"unplug", &World::unplug}, {"wire", &World::setWire},
        {"error", &World::setError}, {"handset", &World::moveByHandset}, {"user", &World::setUser},
        {"dark", &World::darken}, {"signal", &World::signal}, {"sleep", &World::sleep},
        {"clock", &World::setClock}, {"zone", &World::travel}, {"set", &World::set},
        {"answer", &World::answer}, {"end", &World::restart}, {"freeze", &World::freeze}};
    const auto player =
        std::ranges::find(players, step.verb, &std::pair<std::string, Player>::first) - players.begin();
    passUntil(5 * int(player) + 2);
    (this->*players.at(size_t(player)).second)(step);
}

void World::setUser(const Step& step)
{
    SimulatedUser& user = *m_platform.user;
    if (step.variant == "back") {
        user.comeBack();
        oracle().setAway({});
    } else if (!user.isAway()) {
        user.leave();
        oracle().setAway(loop().monotonicNow());
    }
}

void World::darken(const Step&)
{
    m_platform.workspace.screensSleep();
    oracle().dark();
}

void World::signal(const Step& step)
{
    if (step.variant == "sleep") {
        m_platform.workspace.willSleep();
        oracle().sleepAnnounced();
    } else {
        m_platform.workspace.wake();
        oracle().wakeTold();
    }
}

void World::sleep(const Step& step)
{
    const Step adapter {"plug", desk() == 1 ? "second" : "first", 0, 0};
    const double seconds = step.value * (hasWord(step, "hours") ? 100 : 1);
    if (hasWord(step, "dark"))
        darken(step);
    if (hasWord(step, "announced"))
        signal({"signal", "sleep", 0, 0});
    look();
    loop().sleepMachine(seconds);
    oracle().slept(seconds);
    if (hasWord(step, "unplugged"))
        unplug(adapter);
    if (hasWord(step, "replugged"))
        plug(adapter);
    if (hasWord(step, "told"))
        signal({"signal", "wake", 0, 0});
    if (hasWord(step, "unplugged"))
        plug(adapter);
}

void World::freeze(const Step& step)
{
    // Whether what is late on the cable or a late look at the user comes first, nobody can know: none falls
    // into it.
    if (!oracle().isQuick())
        pass(5.03 - std::fmod(loop().monotonicNow() - m_startedAt, 5));
    if (step.variant == "held" && !m_held) {
        openOrClose({"window", "main", 0, 0});
        press({"press", "up", 0, 0});
        pass(0.5);
    }
    oracle().frozenUntil(loop().monotonicNow() + step.value);
    loop().jump(step.value / 2);
    const QPointer<QWidget> button = std::exchange(m_held, nullptr);
    if (button) {
        QCoreApplication::postEvent(button.data(),
            new QMouseEvent(QEvent::MouseButtonRelease, QPointF(3, 3), button->mapToGlobal(QPointF(3, 3)),
                Qt::LeftButton, Qt::NoButton, Qt::NoModifier));
        oracle().letGo(false);
    }
    loop().jump(step.value / 2);
    loop().advance(0);
    QApplication::processEvents();
    if (button)
        oracle().letGo(isReminder(button->window())); // The window hears of it only now.
}

void World::setClock(const Step& step)
{
    static const std::map<std::string, double> steps {{"a-bit", 7}, {"hour-on", 3600}, {"hour-back", -3600},
        {"day-on", 86400}, {"week-back", -604800}, {"years-on", 1.5e9}};
    const double by = steps.at(step.variant) + step.value;
    oracle().clockSet(by);
    loop().setWallClock(loop().now() + by);
}

void World::travel(const Step& step)
{
    qputenv("TZ", step.variant.c_str());
    tzset();
}

/// As the program's own screens do; those without a setter are for whoever edits the file.
void World::set(const Step& step)
{
    using Setter = void (*)(AppProperties&, double);
    static const std::map<std::string, Setter> setters {
        {"Weight", [](auto& properties, double value) { properties.setWeight(value); }},
        {"ActivityMode", [](auto& properties, double value) { properties.setActivityMode(int(value)); }},
        {"ActivityGoal", [](auto& properties, double value) { properties.setActivityGoal(value); }},
        {"NumberOfStandUps",
            [](auto& properties, double value) { properties.setNumberOfStandUps(int(value)); }},
        {"DevicePosition1",
            [](auto& properties, double value) { properties.setDevicePosition1(int(value)); }},
        {"DevicePosition2",
            [](auto& properties, double value) { properties.setDevicePosition2(int(value)); }},
        {"DevicePosition3",
            [](auto& properties, double value) { properties.setDevicePosition3(int(value)); }},
    };
    if (step.variant == "TablePositionOffset")
        return; // A new one shows with the next refresh, and nobody waits for it.
    oracle().set(step.variant, step.value);
    if (const auto setter = setters.find(step.variant); setter != setters.end())
        setter->second(AppProperties::instance(), step.value);
    else
        AppProperties::setDouble(step.value, QString::fromStdString(step.variant));
}

void World::openOrClose(const Step& step)
{
    if (step.variant == "none")
        return void(m_main && m_main->close());
    oracle().opened();
    m_app->menuOpenClicked();
}

void World::press(const Step& step)
{
    const HoldButton& button = kButtons.at(step.variant);
    const bool isOnReminder = hasWord(step, "reminder");
    QWidget* const window = isOnReminder ? m_reminder.data() : m_main.data();
    if (m_held || !isUsable(window))
        return;
    m_held = child(window, button.name);
    const bool isToSit = isOnReminder && m_held->property("text") == QStringLiteral("Memory1");
    const char* const setting = button.setting && isToSit ? "DevicePosition1" : button.setting;
    oracle().pressed(setting ? uint16_t(m_oracle.setting(setting)) : button.command, isOnReminder);
    QTest::mousePress(m_held.data(), Qt::LeftButton);
}

void World::letGo(const Step& step)
{
    if (!m_held)
        return;
    const QPointer<QWidget> button = std::exchange(m_held, nullptr);
    QWidget* const around = button->window();
    const bool hasFrame = !isReminder(around); // To hide or minimise it by.
    oracle().letGo(!hasFrame);
    if (!hasFrame && step.variant == "close" && m_oracle.isReminderOpen())
        m_oracle.answered("close");
    if (step.variant == "hide" && hasFrame)
        around->hide();
    else if (step.variant == "minimise" && hasFrame)
        around->showMinimized();
    else if (step.variant == "close")
        around->close();
    else if (step.variant == "deactivate")
        QApplication::setActiveWindow(nullptr);
    if (button)
        QTest::mouseRelease(button.data(), Qt::LeftButton);
    QApplication::processEvents();
}

void World::answer(const Step& step)
{
    if (m_held || !isUsable(m_reminder) || !oracle().isReminderOpen())
        return;
    const std::string& how = step.variant;
    m_oracle.answered(how);
    if (how == "skip") {
        QWidget* const view = child(m_reminder, "notificationView");
        QEnterEvent enter(QPointF(5, 5), QPointF(5, 5), view->mapToGlobal(QPointF(5, 5)));
        QCoreApplication::sendEvent(view, &enter);
    }
    if (how == "close")
        m_reminder->close();
    else
        QTest::mouseClick(
            child(m_reminder, how == "snooze" ? "buttonSnooze" : "buttonCancel"), Qt::LeftButton);
}

void World::setWire(const Step& step)
{
    const std::string& how = step.variant;
    if (how == "one-failure") // Two on a slow wire can hit one report, which then has failed for good.
        return m_isSlow ? void() : desks().adapter(desk()).failNext(1, EPROTO);
    m_isSlow = how == "slow" && !(desks().isPlugged(0) && desks().isPlugged(1));
    const bool isGood = how == "well" || how == "slow";
    const double latency = m_isSlow ? step.value + 0.0037 : 0; // At a moment of its own.
    const double seconds = how == "stalled" ? INFINITY
        : how == "silent"                   ? SimulatedAdapter::kSilenceSeconds
                                            : latency;
    oracle().wire(isGood || how == "failing-writes", isGood, seconds);
    for (int number : {0, 1}) {
        SimulatedAdapter& adapter = desks().adapter(number);
        DeskModel::Faults& faults = adapter.desk().faults();
        faults.failingReads = how == "failing" || how == "failing-reads";
        faults.failingWrites = how == "failing" || how == "failing-writes";
        faults.noAnswer = how == "silent";
        adapter.setLatency(latency);
        adapter.setStalled(how == "stalled");
        loop().advance(0.002); // Which of them is heard first shall be no accident.
    }
}

void World::setError(const Step& step)
{
    DeskModel& model = desks().desk(desk());
    if (step.variant == "code")
        (void)model.addErrorCode(17);
    else
        model.clearErrors();
}

void World::moveByHandset(const Step& step)
{
    desks().desk(0).setHeight(int(step.value));
}
}
