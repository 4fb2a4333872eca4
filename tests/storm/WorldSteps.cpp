#include "data/AppProperties.h"
#include "storm/World.h"

#include <QApplication>
#include <QEnterEvent>
#include <QMouseEvent>
#include <QTest>

#include <array>
#include <cerrno>
#include <ctime>

namespace storm {
namespace {
struct HoldButton {
    const char* name;
    const char* setting; ///< of the height it drives to; none for up and down
    uint16_t command;
    bool isOnReminder;
};

/// In the order of the variants of Verb::Press.
constexpr HoldButton kButtons[] {
    {"buttonUp", nullptr, 0x8000, false},
    {"buttonDown", nullptr, 0x7FFF, false},
    {"buttonMemory1", "DevicePosition1", 0, false},
    {"buttonMemory2", "DevicePosition2", 0, false},
    {"buttonMemory3", "DevicePosition3", 0, false},
    {"buttonMemory", "DevicePosition2", 0, true},
    {"buttonUp", nullptr, 0x8000, true},
    {"buttonDown", nullptr, 0x7FFF, true},
};

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
    /// In the order of Verb.
    constexpr Player kPlayers[] {&World::wait, &World::press, &World::letGo, &World::openOrClose,
        &World::plug, &World::unplug, &World::setWire, &World::setError, &World::moveByHandset,
        &World::setUser, &World::darken, &World::signal, &World::sleep, &World::setClock, &World::travel,
        &World::set, &World::answer, &World::restart, &World::freeze};
    passUntil(5 * int(step.verb) + 2);
    (this->*kPlayers[size_t(step.verb)])(step);
}

void World::setUser(const Step& step)
{
    SimulatedUser& user = *m_platform.user;
    if (step.variant == 1) {
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
    if (step.variant == 0) {
        m_platform.workspace.willSleep();
        oracle().sleepAnnounced();
    } else {
        m_platform.workspace.wake();
        oracle().wakeTold();
    }
}

void World::sleep(const Step& step)
{
    const int with = step.variant;
    const Step adapter {Verb::Plug, desk(), 0, 0};
    const double seconds = step.value * (with & ForHours ? 100 : 1);
    if (with & DarkBefore)
        darken(step);
    if (with & Announced)
        signal({Verb::Signal, 0, 0, 0});
    look();
    loop().sleepMachine(seconds);
    oracle().slept(seconds);
    if (with & UnpluggedInSleep)
        unplug(adapter);
    if (with & ReplugBeforeWake)
        plug(adapter);
    if (with & WakeTold)
        signal({Verb::Signal, 1, 0, 0});
    if (with & UnpluggedInSleep)
        plug(adapter);
}

void World::freeze(const Step& step)
{
    // Whether a slow answer or a late look at the user comes first, nobody can know: none falls into it.
    if (m_isSlow)
        pass(5.03 - std::fmod(loop().monotonicNow() - m_startedAt, 5));
    if (step.variant == 1 && !m_held) {
        openOrClose({Verb::Open, 0, 0, 0});
        press({Verb::Press, 0, 0, 0});
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
    const double by =
        std::array {7., 3600., -3600., 86400., -604800., 1.5e9}[size_t(step.variant)] + step.value;
    oracle().clockSet(by);
    loop().setWallClock(loop().now() + by);
}

void World::travel(const Step& step)
{
    qputenv("TZ", variantNames(Verb::Zone)[size_t(step.variant)]);
    tzset();
}

/// As the program's own screens do; those without a setter are for whoever edits the file.
void World::set(const Step& step)
{
    using Setter = void (*)(AppProperties&, double);
    /// In the order of settingKeys().
    constexpr Setter kSetters[] {
        [](auto& properties, double value) { properties.setWeight(value); },
        [](auto& properties, double value) { properties.setActivityMode(int(value)); },
        [](auto& properties, double value) { properties.setActivityGoal(value); },
        [](auto& properties, double value) { properties.setNumberOfStandUps(int(value)); },
        [](auto& properties, double value) { properties.setDevicePosition1(int(value)); },
        [](auto& properties, double value) { properties.setDevicePosition2(int(value)); },
        [](auto& properties, double value) { properties.setDevicePosition3(int(value)); },
    };
    const auto key = size_t(step.variant);
    if (key == indexOfSetting("TablePositionOffset"))
        return; // A new one shows with the next refresh, and nobody waits for it.
    oracle().set(key, step.value);
    if (key < std::size(kSetters))
        kSetters[key](AppProperties::instance(), step.value);
    else
        AppProperties::setDouble(step.value, QString::fromLatin1(settingKeys()[key]));
}

void World::openOrClose(const Step& step)
{
    if (step.variant == 1)
        return void(m_main && m_main->close());
    oracle().opened();
    m_app->menuOpenClicked();
}

void World::press(const Step& step)
{
    const HoldButton& button = kButtons[step.variant];
    QWidget* const window = button.isOnReminder ? m_reminder.data() : m_main.data();
    if (m_held || !isUsable(window))
        return;
    m_held = child(window, button.name);
    const bool isToSit = button.isOnReminder && m_held->property("text") == QStringLiteral("Memory1");
    const char* const setting = button.setting && isToSit ? "DevicePosition1" : button.setting;
    oracle().pressed(setting ? uint16_t(m_oracle.setting(setting)) : button.command, button.isOnReminder);
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
    if (!hasFrame && step.variant == 3 && m_oracle.isReminderOpen())
        m_oracle.answered("close");
    if (step.variant == 1 && hasFrame)
        around->hide();
    else if (step.variant == 2 && hasFrame)
        around->showMinimized();
    else if (step.variant == 3)
        around->close();
    else if (step.variant == 4)
        QApplication::setActiveWindow(nullptr);
    if (button)
        QTest::mouseRelease(button.data(), Qt::LeftButton);
    QApplication::processEvents();
}

void World::answer(const Step& step)
{
    if (m_held || !isUsable(m_reminder) || !oracle().isReminderOpen())
        return;
    const std::string how = variantNames(Verb::Answer)[size_t(step.variant)];
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
    const std::string how = variantNames(Verb::Wire)[size_t(step.variant)];
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
    if (step.variant == 0)
        (void)model.addErrorCode(17);
    else
        model.clearErrors();
}

void World::moveByHandset(const Step& step)
{
    desks().desk(0).setHeight(int(step.value));
}

}
