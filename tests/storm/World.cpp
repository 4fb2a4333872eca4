#include "storm/World.h"

#include "data/AppProperties.h"
#include "desk/ZelvoController.h"
#include "resources/Resources.h"
#include "screens/CircleIndicatorView.h"
#include "shell/TestWindowController.h"
#include "storm/FullDisk.h"

#include <QApplication>
#include <QEnterEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QSettings>
#include <QTest>
#include <QTextDocumentFragment>

#include <array>
#include <cerrno>
#include <cmath>
#include <ctime>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

namespace storm {
namespace {
constexpr double kLook = 4.3;

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
    return window->findChild<QWidget*>(QString::fromLatin1(name));
}

std::string textOf(const QWidget* window, const char* name)
{
    return child(window, name)->property("text").toString().toStdString();
}

std::optional<std::string> errorOf(const QWidget* window)
{
    if (!window)
        return std::nullopt;
    const auto* label = window->findChild<QLabel*>(QStringLiteral("labelErrorText"));
    if (label->isHidden())
        return "";
    return QTextDocumentFragment::fromHtml(label->text()).toPlainText().simplified().toStdString();
}
}

class World::Bus final : public HidManager {
public:
    Bus(SimulatedHidManager& desks, World& world)
        : m_desks(desks)
        , m_world(world)
    {
        m_desks.registerDeviceMatchingCallback([this](const HidDeviceRef& device) {
            if (!m_matched)
                return;
            m_world.oracle().matched(m_numbers.at(device));
            m_matched(device);
        });
        m_desks.registerDeviceRemovalCallback([this](const HidDeviceRef& device) {
            if (!m_removed)
                return;
            m_world.oracle().removed(m_numbers.at(device));
            m_removed(device);
        });
        m_desks.registerLateReportCallback(
            [this](const HidDeviceRef& device, std::span<const uint8_t> report) {
                if (m_lateReport)
                    m_lateReport(device, report);
            });
    }
    HidStatus open() override
    {
        m_desks.setDeviceMatching(m_matching);
        m_desks.setRestReport(m_restReport);
        const HidStatus status = m_desks.open();
        m_numbers.clear();
        for (const int number : {0, 1}) {
            if (m_desks.isPlugged(number))
                m_numbers[copyDevices()[m_numbers.size()]] = number;
        }
        return status;
    }
    [[nodiscard]] std::vector<HidDeviceRef> copyDevices() const override { return m_desks.copyDevices(); }
    void plug(int number)
    {
        m_desks.plug(number);
        for (const HidDeviceRef& device : copyDevices())
            m_numbers.try_emplace(device, number);
    }

private:
    SimulatedHidManager& m_desks;
    World& m_world;
    std::map<HidDeviceRef, int> m_numbers;
};

/// Like the system's own sources they count on a clock that stands still in sleep.
struct World::User {
    std::optional<double> awaySince;
    /// The program's source of idle time ends with it, the user does not.
    class Seen final : public EventSource {
    public:
        explicit Seen(const User& user)
            : m_user(user)
        {
        }
        [[nodiscard]] double secondsSinceLastEventType(EventType) override
        {
            return m_user.awaySince ? RunLoop::main().monotonicNow() - *m_user.awaySince : 1.0;
        }

    private:
        const User& m_user;
    };
};

World::World(const Script& script)
    : m_script(script)
    , m_oracle(script,
          m_platform.folder.filePath(QStringLiteral("org.zelvo.StandUp/StandUp.storedata")).toStdString())
    , m_user(std::make_unique<User>())
    , m_bus(std::make_unique<Bus>(m_desks, *this))
{
    for (int number : {0, 1}) {
        // At its own zero a desk says what an adapter says that has not been heard yet.
        (void)m_desks.desk(number).setLimits(150, DeskModel::kDefaultUpperLimit);
        m_desks.adapter(number).onTransfer([this, number](const HidTransfer& transfer) {
            if (m_isRunning)
                oracle().transferred(number,
                    {transfer.direction == HidTransfer::Direction::Read, transfer.status == 0,
                        transfer.duration, transfer.bytes});
        });
    }
    initResources();
    FullDisk::install();
    FullDisk::setFull(false);
    travel({Verb::Zone, 0, 0, 0});
    loop().setWallClock(script.start);
    QtUserDefaults settings(settingsPath());
    settings.setObject(QStringLiteral("Version"), QStringLiteral("1.0.1"));
    for (size_t i = 0; i < settingKeys().size(); ++i)
        settings.setObject(QString::fromLatin1(settingKeys()[i]), script.settings[i]);
    settings.synchronize();
    qApp->installEventFilter(this);
    m_oracle.plugged(0, true);
    start();
}

World::~World()
{
    if (m_app)
        end(true);
    dup2(STDOUT_FILENO, STDERR_FILENO); // For what the test has to say.
}

QString World::settingsPath() const
{
    return m_platform.folder.filePath(QStringLiteral("StandUp.conf"));
}

Oracle& World::oracle()
{
    m_oracle.pass(loop().monotonicNow());
    return m_oracle;
}

void World::start()
{
    m_isRunning = true;
    m_defaults = std::make_unique<QtUserDefaults>(settingsPath());
    m_process.emplace(ProcessServices::Backends {&m_platform.runLoop, &m_platform.bundle, m_defaults.get()});
    m_events = std::make_unique<SleepAwareEventSource>(std::make_unique<User::Seen>(*m_user));
    m_app = std::make_unique<AppDelegate>(
        AppDelegate::Dependencies {*m_bus, *m_events, m_workspace, m_platform.loginItems, m_dialogs,
            m_platform.folder.path(), QStringLiteral("/opt/zelvo/zelvo-standup"), [] {}, {}});
    oracle().started();
    m_app->applicationDidFinishLaunching();
    const int silent = ::open("/dev/null", O_WRONLY | O_CLOEXEC); // The log of a decade is long.
    dup2(silent, STDERR_FILENO);
    ::close(silent);
    readSettingsBack();
}

void World::end(bool killed)
{
    if (!killed)
        m_app->terminate();
    oracle().ended(killed);
    m_isRunning = false; // What the objects still do on their way out, a killed process does not do.
    m_app.reset();
    m_process.reset();
    m_events.reset();
    m_held.clear();
}

void World::play()
{
    for (const Step& step : m_script.steps) {
        if (!m_oracle.failure().empty())
            return;
        play(step);
        look();
        pass(step.seconds);
    }
    quiet();
    m_oracle.judge();
}

/// All is let go, well and quiet; then the program ends.
void World::quiet()
{
    for (const Verb verb :
        {Verb::LetGo, Verb::Disk, Verb::Wire, Verb::Error, Verb::User, Verb::Open, Verb::Unplug})
        play({verb, verb == Verb::Error ? 5 : verb == Verb::LetGo || verb == Verb::Wire ? 0 : 1, 0, 0});
    play({Verb::Plug, 0, 0, 0});
    pass(90);
    const size_t timers = loop().pendingTimerCount();
    if (const auto expected = m_oracle.timers(); timers != expected.value_or(timers))
        m_oracle.fail(
            std::to_string(timers) + " timers run when all is quiet, and not " + std::to_string(*expected));
    end(false);
}

void World::pass(double seconds)
{
    for (double left = seconds; left > 1e-9; left -= kLook) {
        loop().advance(std::min(left, kLook));
        look();
    }
}

void World::passUntil(int thousandths)
{
    const auto now = int64_t(std::llround(loop().monotonicNow() * 1000));
    pass(double((100 + thousandths - now % 100) % 100) / 1000);
}

void World::look()
{
    QApplication::processEvents();
    if (!m_isRunning)
        return;
    Oracle::Shown shown {{errorOf(m_main), errorOf(m_reminder)}, {}, {}, {}, {}};
    if (m_main) {
        shown.height = textOf(m_main, "labelTabelHeigt");
        shown.status = textOf(m_main, "labelStatus");
    }
    if (m_reminder && m_reminder->isVisible()) {
        shown.number = textOf(m_reminder, "calRadialTitle");
        shown.memory = textOf(m_reminder, "buttonMemory");
    }
    oracle().look(shown);
}

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
    constexpr Player players[] {&World::wait, &World::press, &World::letGo, &World::openOrClose, &World::plug,
        &World::unplug, &World::setWire, &World::setError, &World::moveByHandset, &World::setUser,
        &World::darken, &World::signal, &World::sleep, &World::setClock, &World::travel, &World::set,
        &World::answer, &World::setDisk, &World::restart, &World::freeze};
    (this->*players[size_t(step.verb)])(step);
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
    const bool isStuck = how == "stalled" || how == "silent";
    const bool isGood = how == "well" || how == "slow";
    const double latency = m_isSlow ? step.value + 0.0037 : 0; // At a moment of its own.
    oracle().wire(isGood || how == "failing-writes", isGood, isStuck ? INFINITY : latency);
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
