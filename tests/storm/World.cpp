#include "storm/World.h"

#include "data/AppProperties.h"
#include "desk/ZelvoController.h"
#include "resources/Resources.h"
#include "shell/TestWindowController.h"
#include "storm/FullDisk.h"

#include <QApplication>
#include <QEnterEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QTest>

#include <cerrno>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

namespace storm {
namespace {
constexpr double kLook = 0.5;
constexpr double kReturn = 15; ///< a lost adapter is back as soon
constexpr double kPulse = 16; ///< the program saves as often, and at the latest then what waits

struct HoldButton {
    const char* window;
    const char* name;
    const char* setting; ///< of the height it drives to; none for up and down
    uint16_t command;
};

/// In the order of the variants of Verb::Press.
constexpr HoldButton kButtons[] {
    {"MainWindow", "buttonUp", nullptr, 0x8000},
    {"MainWindow", "buttonDown", nullptr, 0x7FFF},
    {"MainWindow", "buttonMemory1", "DevicePosition1", 0},
    {"MainWindow", "buttonMemory2", "DevicePosition2", 0},
    {"MainWindow", "buttonMemory3", "DevicePosition3", 0},
    {"NotificationWindow", "buttonMemory", "DevicePosition2", 0},
    {"NotificationWindow", "buttonUp", nullptr, 0x8000},
    {"NotificationWindow", "buttonDown", nullptr, 0x7FFF},
};
}

/// The hands on mouse and keyboard; like the system's own sources they count on a clock that stands still in
/// sleep.
class World::User final : public EventSource {
public:
    [[nodiscard]] double secondsSinceLastEventType(EventType) override
    {
        return awaySince ? RunLoop::main().monotonicNow() - *awaySince : 1.0;
    }
    std::optional<double> awaySince;
};

/// The program's source of idle time ends with it, the user does not.
class UserSeen final : public EventSource {
public:
    explicit UserSeen(EventSource& user)
        : m_user(user)
    {
    }
    [[nodiscard]] double secondsSinceLastEventType(EventType type) override
    {
        return m_user.secondsSinceLastEventType(type);
    }

private:
    EventSource& m_user;
};

World::World(const Script& script)
    : m_script(script)
    , m_oracle(script,
          m_platform.folder.filePath(QStringLiteral("org.zelvo.StandUp/StandUp.storedata")).toStdString())
    , m_user(std::make_unique<User>())
{
    for (int number : {0, 1}) {
        // At its own zero a desk says what an adapter says that has not been heard yet.
        (void)m_hid.desk(number).setLimits(150, DeskModel::kDefaultUpperLimit);
        m_hid.adapter(number).onTransfer([this, number](const HidTransfer& transfer) {
            const bool isCommand =
                transfer.direction == HidTransfer::Direction::Write && transfer.bytes[0] == 5;
            const double awake = m_platform.runLoop.monotonicNow() - transfer.duration;
            double begin = awake;
            for (const Slept& sleep : m_sleeps)
                begin += sleep.at < awake - 1e-6 ? sleep.seconds : 0;
            if (isCommand && !m_ended)
                m_oracle.written(begin, number, uint16_t(transfer.bytes[1] | transfer.bytes[2] << 8));
        });
    }
    initResources();
    FullDisk::install();
    FullDisk::setFull(false);
    m_platform.runLoop.setWallClock(script.start);
    QtUserDefaults settings(m_platform.folder.filePath(QStringLiteral("StandUp.conf")));
    settings.setObject(QStringLiteral("Version"), QStringLiteral("1.0.1"));
    for (size_t i = 0; i < settingKeys().size(); ++i)
        settings.setObject(QString::fromLatin1(settingKeys()[i]), script.settings[i]);
    settings.synchronize();
    qApp->installEventFilter(this);
    m_oracle.plugged(now(), 0);
    start();
}

World::~World()
{
    if (m_app)
        end(true);
    dup2(STDOUT_FILENO, STDERR_FILENO); // For what the test has to say.
}

void World::start()
{
    m_ended = false;
    m_defaults = std::make_unique<QtUserDefaults>(m_platform.folder.filePath(QStringLiteral("StandUp.conf")));
    m_process.emplace(ProcessServices::Backends {&m_platform.runLoop, &m_platform.bundle, m_defaults.get()});
    m_events = std::make_unique<SleepAwareEventSource>(std::make_unique<UserSeen>(*m_user));
    m_app =
        std::make_unique<AppDelegate>(AppDelegate::Dependencies {m_hid, *m_events, m_workspace, m_loginItems,
            m_dialogs, m_platform.folder.path(), QStringLiteral("/opt/zelvo/zelvo-standup"), [] {}, {}});
    m_oracle.started(now());
    m_app->applicationDidFinishLaunching();
    const int silent = ::open("/dev/null", O_WRONLY | O_CLOEXEC); // The log of a decade is long.
    dup2(silent, STDERR_FILENO);
    ::close(silent);
    tellOfError();
}

void World::end(bool killed)
{
    m_oracle.ended(now(), killed);
    if (!killed)
        m_app->terminate();
    m_ended = true; // What the objects still do on their way out, a killed process does not do.
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
    letGo(0);
    setDisk(false);
    setWire("well", 0);
    setError(5);
    comeBack();
    close("MainWindow");
    unplug(1);
    plug(0);
    pass(90);
    m_quietTimers = m_platform.runLoop.pendingTimerCount();
    end(false);
}

void World::pass(double seconds)
{
    VirtualRunLoop& loop = m_platform.runLoop;
    for (double left = seconds; left > 1e-9; left -= kLook) {
        loop.advance(std::min(left, kLook));
        if (m_shownWindows > 0)
            QApplication::processEvents();
        look();
    }
}

void World::look()
{
    Oracle::World world {{int(m_hid.desk(0).height()), int(m_hid.desk(1).height())}, {}};
    for (int i = 0; i < 2; ++i) {
        if (m_hid.desk(i).isMoving())
            m_lastMotion = now();
    }
    if (m_errorLine)
        world.errorLine = !m_errorLine->isHidden();
    m_oracle.look(now(), world);
}

QWidget* World::window(const char* name)
{
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (widget->isVisible() && !widget->isMinimized() && widget->objectName() == QLatin1String(name))
            return widget;
    }
    return nullptr;
}

bool World::eventFilter(QObject* receiver, QEvent* event)
{
    if (event->type() != QEvent::Show && event->type() != QEvent::Hide)
        return false;
    auto* shown = qobject_cast<QWidget*>(receiver);
    if (!shown || !shown->isWindow())
        return false;
    m_shownWindows += event->type() == QEvent::Show ? 1 : -1;
    if (m_ended)
        return false;
    if (m_held && m_held->window() == shown && event->type() == QEvent::Hide) {
        m_held.clear();
        m_oracle.letGo(now(), shown->objectName() == QLatin1String("NotificationWindow"));
    }
    if (shown->objectName() != QLatin1String("NotificationWindow"))
        return false;
    const auto label = [&](const char* name) {
        const auto* widget = shown->findChild<QWidget*>(QString::fromLatin1(name));
        return widget->property("text").toString().toStdString();
    };
    if (event->type() == QEvent::Show)
        m_oracle.reminderShown(now(), label("calRadialTitle"), label("buttonMemory"));
    else
        m_oracle.reminderHidden(now());
    return false;
}

void World::play(const Step& step)
{
    const auto& names = variantNames(step.verb);
    const std::string variant = names.empty() ? std::string() : names[size_t(step.variant)];
    switch (step.verb) {
    case Verb::Wait:
        return;
    case Verb::Press:
        return press(step.variant);
    case Verb::LetGo:
        return letGo(step.variant);
    case Verb::Open:
        return variant == "main" ? open() : close("MainWindow");
    case Verb::Plug:
        return plug(step.variant);
    case Verb::Unplug:
        return unplug(step.variant);
    case Verb::Wire:
        return setWire(variant, step.value);
    case Verb::Error:
        return setError(step.variant);
    case Verb::Handset:
        m_lastMotion = now();
        return m_hid.desk(step.variant).setHeight(int(step.value));
    case Verb::User:
        return variant == "away" ? leave() : comeBack();
    case Verb::Dark:
        return darken();
    case Verb::Signal:
        return variant == "sleep" ? announceSleep() : tellOfWake();
    case Verb::Sleep:
        return sleep(step);
    case Verb::Clock:
        return setClock(step.value);
    case Verb::Set:
        return set(step.variant, step.value);
    case Verb::Answer:
        return answer(variant);
    case Verb::Disk:
        return setDisk(variant == "full");
    case Verb::End:
        end(variant == "kill");
        pass(step.seconds);
        return start();
    case Verb::Freeze:
        return freeze(step.value);
    }
}

void World::leave()
{
    if (!m_user->awaySince)
        m_user->awaySince = m_platform.runLoop.monotonicNow();
    m_oracle.away(now());
}

void World::comeBack()
{
    m_user->awaySince.reset();
    m_oracle.back(now());
}

void World::darken()
{
    m_oracle.dark(now());
    m_workspace.screensSleep();
}

void World::announceSleep()
{
    m_workspace.willSleep();
    m_oracle.sleepAnnounced(now());
}

void World::tellOfWake()
{
    m_oracle.wakeTold(now());
    m_workspace.wake();
}

void World::setClock(double by)
{
    if (now() < m_rowsWaitUntil)
        return; // Of rows that wait for room nobody could tell by which clock they began.
    m_oracle.clockSet(now(), by);
    m_platform.runLoop.setWallClock(m_platform.runLoop.now() + by);
}

void World::close(const char* name)
{
    if (QWidget* shown = window(name))
        shown->close();
}

void World::open()
{
    m_oracle.opened(now());
    m_app->menuOpenClicked();
    QWidget* const shown = window("MainWindow");
    ASSERT_TRUE(shown);
    m_errorLine = shown->findChild<QWidget*>(QStringLiteral("labelErrorText"));
}

void World::press(int variant)
{
    HoldButton button = kButtons[variant];
    QWidget* const shown = window(button.window);
    if (m_held || !shown)
        return;
    m_held = shown->findChild<QWidget*>(QString::fromLatin1(button.name));
    if (button.setting && button.name == std::string("buttonMemory")
        && m_held->property("text") == QLatin1String("Memory1"))
        button.setting = "DevicePosition1";
    m_oracle.pressed(now(), button.setting ? uint16_t(m_oracle.setting(button.setting)) : button.command,
        shown->objectName() == QLatin1String("NotificationWindow"));
    QTest::mousePress(m_held.data(), Qt::LeftButton);
}

void World::letGo(int variant)
{
    if (!m_held)
        return;
    const QPointer<QWidget> button = std::exchange(m_held, nullptr);
    QWidget* const around = button->window();
    const bool isReminder = around->objectName() == QLatin1String("NotificationWindow");
    m_oracle.letGo(now(), isReminder);
    if (isReminder && variant < 3)
        variant = 0; // It has no frame to hide or minimise it by.
    if (isReminder && variant == 3)
        m_oracle.reminderAnswered(now(), "close");
    if (variant == 1)
        around->hide();
    else if (variant == 2)
        around->showMinimized();
    else if (variant == 3)
        around->close();
    else if (variant == 4)
        QApplication::setActiveWindow(nullptr);
    if (button)
        QTest::mouseRelease(button.data(), Qt::LeftButton);
    QApplication::processEvents();
}

void World::plug(int adapter)
{
    if (m_hid.isPlugged(adapter) || (now() < m_lostUntil && m_hid.isPlugged(1 - adapter)))
        return;
    m_oracle.plugged(now(), adapter);
    m_hid.plug(adapter);
    tellOfError();
    m_platform.runLoop.advance(0);
}

void World::unplug(int adapter)
{
    if (!m_hid.isPlugged(adapter))
        return;
    m_oracle.unplugged(now(), adapter);
    m_hid.unplug(adapter);
    m_platform.runLoop.advance(0);
    tellOfError();
}

void World::tellOfError()
{
    const int driven = m_oracle.driven();
    m_oracle.deskError(now(), driven >= 0 && m_hid.desk(driven).hasError());
}

void World::setDisk(bool full)
{
    m_rowsWaitUntil = full ? 1e18 : now() + kPulse;
    FullDisk::setFull(full);
    m_oracle.disk(now(), full);
}

void World::setWire(const std::string& how, double value)
{
    // Of two adapters that are lost and found, which one is driven in the end is a matter of luck.
    const bool isBad = how != "well" && how != "one-failure" && how != "slow";
    if (isBad && m_hid.isPlugged(0) && m_hid.isPlugged(1))
        return;
    if (how != "one-failure")
        m_lostUntil = isBad ? 1e18 : std::min(m_lostUntil, now() + kReturn);
    m_oracle.wire(now(), how, value);
    for (int number : {0, 1}) {
        SimulatedAdapter& adapter = m_hid.adapter(number);
        if (how == "one-failure") {
            adapter.failNext(1, EPROTO);
            continue;
        }
        DeskModel::Faults& faults = adapter.desk().faults();
        faults.failingReads = how == "failing" || how == "failing-reads";
        faults.failingWrites = how == "failing" || how == "failing-writes";
        faults.noAnswer = how == "silent";
        adapter.setLatency(how == "slow" ? value : 0);
        adapter.setStalled(how == "stalled");
    }
}

void World::setError(int variant)
{
    DeskModel& model = m_hid.desk(std::max(m_oracle.driven(), 0));
    using Kind = DeskModel::ErrorKind;
    const Kind kinds[] = {Kind::PositionLost, Kind::OverloadUp, Kind::OverloadDown};
    if (variant < 3)
        model.setError(kinds[variant], true);
    else if (variant == 3)
        (void)model.addErrorCode(17);
    else if (variant == 4)
        model.setUnnamedError(true);
    else
        model.clearErrors();
    tellOfError();
}

void World::sleep(const Step& step)
{
    const int with = step.variant;
    const int adapter = std::max(m_oracle.driven(), 0);
    if (with & DarkBefore)
        darken();
    if (with & Announced)
        announceSleep();
    look();
    const double from = now();
    m_platform.runLoop.sleepMachine(step.value);
    m_oracle.slept(from, now());
    m_sleeps.push_back({m_platform.runLoop.monotonicNow(), step.value});
    if (with & UnpluggedInSleep)
        unplug(adapter);
    if ((with & UnpluggedInSleep) && (with & ReplugBeforeWake))
        plug(adapter);
    if (with & WakeTold)
        m_workspace.wake();
    if ((with & UnpluggedInSleep) && !(with & ReplugBeforeWake))
        plug(adapter);
}

void World::freeze(double seconds)
{
    m_oracle.frozen(now(), now() + seconds);
    m_platform.runLoop.jump(seconds / 2);
    if (m_held) {
        QCoreApplication::postEvent(m_held.data(),
            new QMouseEvent(QEvent::MouseButtonRelease, QPointF(3, 3), m_held->mapToGlobal(QPointF(3, 3)),
                Qt::LeftButton, Qt::NoButton, Qt::NoModifier));
        m_oracle.letGo(now(), m_held->window()->objectName() == QLatin1String("NotificationWindow"));
        m_held.clear();
    }
    m_platform.runLoop.jump(seconds / 2);
    m_platform.runLoop.advance(0);
    QApplication::processEvents();
}

void World::set(int variant, double value)
{
    AppProperties& properties = AppProperties::instance();
    const std::string key = settingKeys()[size_t(variant)];
    const bool moves = m_held
        || now() < std::max(
               m_lastMotion + 5, m_lostUntil); // Then which standing point counts is a matter of luck.
    if (moves && key.starts_with("DevicePosition"))
        return;
    m_oracle.settingChanged(now(), size_t(variant), value);
    if (key == "Weight")
        properties.setWeight(value);
    else if (key == "ActivityMode")
        properties.setActivityMode(int(value));
    else if (key == "ActivityGoal")
        properties.setActivityGoal(value);
    else if (key == "NumberOfStandUps")
        properties.setNumberOfStandUps(int(value));
    else if (key == "DevicePosition1")
        properties.setDevicePosition1(int(value));
    else if (key == "DevicePosition2")
        properties.setDevicePosition2(int(value));
    else if (key == "DevicePosition3")
        properties.setDevicePosition3(int(value));
    else
        AppProperties::setDouble(value, QString::fromStdString(key));
}

void World::answer(const std::string& how)
{
    QWidget* const reminder = window("NotificationWindow");
    if (m_held || !reminder || !m_oracle.isReminderOpen())
        return;
    m_oracle.reminderAnswered(now(), how);
    auto* view = reminder->findChild<QWidget*>(QStringLiteral("notificationView"));
    if (how == "skip") {
        QEnterEvent enter(QPointF(5, 5), QPointF(5, 5), view->mapToGlobal(QPointF(5, 5)));
        QCoreApplication::sendEvent(view, &enter);
    }
    if (how == "close") {
        reminder->close();
        return;
    }
    const char* const name = how == "snooze" ? "buttonSnooze" : "buttonCancel";
    QTest::mouseClick(reminder->findChild<QWidget*>(QString::fromLatin1(name)), Qt::LeftButton);
}
}
