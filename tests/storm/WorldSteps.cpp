#include "data/AppProperties.h"
#include "screens/CircleIndicatorView.h"
#include "storm/FullDisk.h"
#include "storm/World.h"
#include "storm/WorldParts.h"

#include <QApplication>
#include <QEnterEvent>
#include <QMouseEvent>
#include <QSettings>
#include <QTest>

#include <array>
#include <cerrno>
#include <ctime>
#include <gtest/gtest.h>

namespace storm {
bool World::eventFilter(QObject* receiver, QEvent* event)
{
    if (event->type() != QEvent::Show && event->type() != QEvent::Hide)
        return false;
    auto* window = qobject_cast<QWidget*>(receiver);
    if (!window || !window->isWindow() || !m_isRunning)
        return false;
    const bool isShow = event->type() == QEvent::Show;
    if (m_held && m_held->window() == window && !isShow) {
        m_held.clear();
        oracle().letGo(isReminder(window));
    }
    if (isReminder(window) && isShow) {
        m_reminder = window;
        oracle().reminderAppeared();
    } else if (isReminder(window)) {
        oracle().reminderLeft();
    } else if (isShow && window->objectName() == QLatin1String("MainWindow")) {
        m_main = window;
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
        &World::set, &World::answer, &World::setDisk, &World::restart, &World::freeze};
    (this->*kPlayers[size_t(step.verb)])(step);
}

void World::setUser(const Step& step)
{
    if (step.variant == 1)
        m_user->awaySince.reset();
    else if (!m_user->awaySince)
        m_user->awaySince = loop().monotonicNow();
    oracle().setAway(m_user->awaySince);
}

void World::darken(const Step&)
{
    m_workspace.screensSleep();
    oracle().dark();
}

void World::signal(const Step& step)
{
    if (step.variant == 0) {
        m_workspace.willSleep();
        oracle().sleepAnnounced();
    } else {
        m_workspace.wake();
        oracle().wakeTold();
    }
}

void World::sleep(const Step& step)
{
    const int with = step.variant;
    const Step adapter {Verb::Plug, std::max(m_oracle.driven(), 0), 0, 0};
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
        {"TablePositionOffset",
            [](auto& properties, double value) { properties.setTablePositionOffset(int(value)); }},
    };
    const char* const key = settingKeys()[size_t(step.variant)];
    oracle().set(size_t(step.variant), step.value);
    if (const auto setter = setters.find(key); setter != setters.end())
        setter->second(AppProperties::instance(), step.value);
    else
        AppProperties::setDouble(step.value, QString::fromLatin1(key));
}

void World::readSettingsBack()
{
    const QSettings file(settingsPath(), QSettings::IniFormat);
    for (const char* key : settingKeys()) {
        if (file.value(QLatin1String(key)).toDouble() != m_oracle.setting(key))
            m_oracle.fail(std::string("the settings file lost ") + key);
    }
}

void World::openOrClose(const Step& step)
{
    if (step.variant == 1)
        return void(m_main && m_main->close());
    oracle().opened();
    m_app->menuOpenClicked();
    ASSERT_TRUE(isUsable(m_main));
    const auto* goal = m_main->findChild<CircleIndicatorView*>(QStringLiteral("caloriesBurnedIndicator"));
    const auto* schedule = m_main->findChild<CircleIndicatorView*>(QStringLiteral("scheduleIndicator"));
    oracle().look({textOf(m_main, "labelPercent"), goal->value().value_or(QString()).toStdString(),
        schedule->value().value_or(QString()).toStdString(), schedule->percent()});
}

void World::press(const Step& step)
{
    const HoldButton& button = kButtons[step.variant];
    QWidget* const window = button.isOnReminder ? m_reminder.data() : m_main.data();
    if (m_held || !isUsable(window))
        return;
    m_held = child(window, button.name);
    const bool isToSit = button.isOnReminder && textOf(window, "buttonMemory") == "Memory1";
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

void World::setDisk(const Step& step)
{
    const bool isFull = step.variant == 0 && m_oracle.hasStore(); // One that cannot be made is another story.
    FullDisk::setFull(isFull);
    oracle().disk(isFull);
}

void World::setWire(const Step& step)
{
    const std::string how = variantNames(Verb::Wire)[size_t(step.variant)];
    if (how == "one-failure")
        return m_desks.adapter(std::max(m_oracle.driven(), 0)).failNext(1, EPROTO);
    m_isSlow = how == "slow" && !(m_desks.isPlugged(0) && m_desks.isPlugged(1));
    const bool isGood = how == "well" || how == "slow";
    const double latency = m_isSlow ? step.value + 0.0037 : 0; // At a moment of its own.
    const double seconds = how == "stalled" ? INFINITY
        : how == "silent"                   ? SimulatedAdapter::kSilenceSeconds
                                            : latency;
    oracle().wire(isGood || how == "failing-writes", isGood, seconds);
    for (int number : {0, 1}) {
        SimulatedAdapter& adapter = m_desks.adapter(number);
        DeskModel::Faults& faults = adapter.desk().faults();
        faults.failingReads = how == "failing" || how == "failing-reads";
        faults.failingWrites = how == "failing" || how == "failing-writes";
        faults.noAnswer = how == "silent";
        adapter.setLatency(latency);
        adapter.setStalled(how == "stalled");
    }
    loop().advance(0);
}

void World::setError(const Step& step)
{
    DeskModel& model = m_desks.desk(std::max(m_oracle.driven(), 0));
    using Kind = DeskModel::ErrorKind;
    if (step.variant < 3)
        model.setError(
            std::array {Kind::PositionLost, Kind::OverloadUp, Kind::OverloadDown}[size_t(step.variant)],
            true);
    else if (step.variant == 3)
        (void)model.addErrorCode(17);
    else if (step.variant == 4)
        model.setUnnamedError(true);
    else
        model.clearErrors();
}

void World::moveByHandset(const Step& step)
{
    m_desks.desk(0).setHeight(int(step.value));
}

void World::plug(const Step& step)
{
    const int adapter = step.variant;
    // Which of two slow adapters answers whom, and when, is a story of its own.
    if (m_desks.isPlugged(adapter) || (m_isSlow && m_desks.isPlugged(1 - adapter)))
        return;
    passUntil(37);
    oracle().plugged(adapter, true);
    m_bus->plug(adapter);
    loop().advance(0);
}

void World::unplug(const Step& step)
{
    if (!m_desks.isPlugged(step.variant))
        return;
    oracle().plugged(step.variant, false);
    m_desks.unplug(step.variant);
    loop().advance(0);
}

void World::restart(const Step& step)
{
    end(step.variant == 0);
    setDisk({Verb::Disk, 1, 0, 0});
    passUntil(13);
    start();
}
}
