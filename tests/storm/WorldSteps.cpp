#include "data/AppProperties.h"
#include "storm/World.h"

#include <QApplication>
#include <QMouseEvent>
#include <QTest>

#include <cerrno>
#include <ctime>
#include <utility>

namespace storm {
namespace {
QWidget* child(const QWidget* window, const char* name)
{
    return window->findChild<QWidget*>(QLatin1String(name));
}

bool isUsable(const QWidget* window)
{
    return window && window->isVisible() && !window->isMinimized();
}

bool hasWord(const Step& step, const char* word)
{
    return step.variant.find(word) != std::string::npos;
}

void openOrClose(World& world, const Step& step)
{
    if (step.variant == "none")
        return void(world.main && world.main->close());
    world.oracle().opened();
    world.app->menuOpenClicked();
}

void press(World& world, const Step& step)
{
    struct Button {
        const char* name;
        const char* setting; ///< of the height it drives to; none for up and down
        uint16_t command = 0;
    };
    static const std::map<std::string, Button> buttons {{"up", {"buttonUp", nullptr, 0x8000}},
        {"down", {"buttonDown", nullptr, 0x7FFF}}, {"memory1", {"buttonMemory1", "DevicePosition1"}},
        {"memory2", {"buttonMemory2", "DevicePosition2"}}, {"memory3", {"buttonMemory3", "DevicePosition3"}},
        {"reminder-memory", {"buttonMemory", "DevicePosition2"}},
        {"reminder-up", {"buttonUp", nullptr, 0x8000}}, {"reminder-down", {"buttonDown", nullptr, 0x7FFF}}};
    const Button& button = buttons.at(step.variant);
    const bool isOnReminder = hasWord(step, "reminder");
    if (!world.held && !isOnReminder && !isUsable(world.main))
        openOrClose(world, {"window", "main", 0, 0});
    QWidget* const window = isOnReminder ? world.reminder.data() : world.main.data();
    if (world.held || !isUsable(window))
        return;
    world.held = child(window, button.name);
    const bool isToSit = isOnReminder && world.held->property("text") == QStringLiteral("Memory1");
    const char* const setting = button.setting && isToSit ? "DevicePosition1" : button.setting;
    Oracle& oracle = world.oracle();
    oracle.pressed(setting ? uint16_t(oracle.setting(setting)) : button.command, isOnReminder);
    QTest::mousePress(world.held.data(), Qt::LeftButton);
}

void setWire(World& world, const Step& step)
{
    SimulatedHidManager& desks = world.desks();
    const std::string& how = step.variant;
    if (how == "one-failure") // Two on a slow wire can hit one report, which then has failed for good.
        return world.isSlow ? void() : desks.adapter(world.desk()).failNext(1, EPROTO);
    const double now = world.loop().monotonicNow();
    if (desks.desk(world.desk()).faults().noAnswer || world.isSlow) // What has begun takes its time.
        world.busyUntil = now + SimulatedAdapter::kSilenceSeconds;
    // Who hears of the height, or of the answer before, until the adapter is lost goes by what is under way.
    if ((how == "failing-writes" && !world.oracle().isQuick())
        || (how.starts_with("failing") && now < world.busyUntil))
        return;
    world.isSlow = how == "slow" && !(desks.isPlugged(0) && desks.isPlugged(1));
    const bool isGood = how == "well" || how == "slow";
    const double latency = world.isSlow ? step.value + 0.0037 : 0; // At a moment of its own.
    const double seconds = how == "stalled" ? kNever
        : how == "silent"                   ? SimulatedAdapter::kSilenceSeconds
                                            : latency;
    world.oracle().wire(isGood || how == "failing-writes", isGood, seconds);
    for (const int number : {0, 1}) {
        SimulatedAdapter& adapter = desks.adapter(number);
        DeskModel::Faults& faults = adapter.desk().faults();
        faults.failingReads = how == "failing" || how == "failing-reads";
        faults.failingWrites = how == "failing" || how == "failing-writes";
        faults.noAnswer = how == "silent";
        adapter.setLatency(latency);
        adapter.setStalled(how == "stalled");
        world.loop().advance(0.002); // Which of them is heard first shall be no accident.
    }
}

void setUser(World& world, const Step& step)
{
    SimulatedUser& user = *world.platform.user;
    if (step.variant == "back") {
        user.comeBack();
        world.oracle().setAway({});
    } else if (!user.isAway()) {
        user.leave();
        world.oracle().setAway(world.loop().monotonicNow());
    }
}

void signal(World& world, const Step& step)
{
    SimulatedWorkspace& workspace = world.platform.workspace;
    if (step.variant == "dark") {
        workspace.screensSleep();
        world.oracle().dark();
    } else if (step.variant == "sleep") {
        workspace.willSleep();
        world.oracle().sleepAnnounced();
    } else {
        workspace.wake();
        world.oracle().wakeTold();
    }
}

void sleep(World& world, const Step& step)
{
    const int adapter = world.desk();
    const double seconds = step.value * (hasWord(step, "hours") ? 100 : 1);
    if (hasWord(step, "dark"))
        signal(world, {"signal", "dark", 0, 0});
    if (hasWord(step, "announced"))
        signal(world, {"signal", "sleep", 0, 0});
    world.look();
    world.loop().sleepMachine(seconds);
    world.oracle().slept(seconds);
    if (hasWord(step, "unplugged"))
        world.plug(adapter, false);
    if (hasWord(step, "replugged"))
        world.plug(adapter, true);
    if (hasWord(step, "told"))
        signal(world, {"signal", "wake", 0, 0});
    if (hasWord(step, "unplugged"))
        world.plug(adapter, true);
}

void setClock(World& world, const Step& step)
{
    static const std::map<std::string, double> steps {{"a-bit", 7}, {"hour-on", 3600}, {"hour-back", -3600},
        {"day-on", 86400}, {"week-back", -604800}, {"years-on", 1.5e9}};
    const double by = steps.at(step.variant) + step.value;
    world.oracle().clockSet(by);
    world.loop().setWallClock(world.loop().now() + by);
}

/// As the program's own screens do; those without a setter are for whoever edits the file.
void set(World& world, const Step& step)
{
    static const std::map<std::string, void (*)(AppProperties&, double)> setters {
        {"Weight", [](auto& all, double value) { all.setWeight(value); }},
        {"ActivityMode", [](auto& all, double value) { all.setActivityMode(int(value)); }},
        {"ActivityGoal", [](auto& all, double value) { all.setActivityGoal(value); }},
        {"DevicePosition1", [](auto& all, double value) { all.setDevicePosition1(int(value)); }},
        {"DevicePosition2", [](auto& all, double value) { all.setDevicePosition2(int(value)); }},
        {"DevicePosition3", [](auto& all, double value) { all.setDevicePosition3(int(value)); }}};
    if (step.variant == "TablePositionOffset")
        return; // A new one shows with the next refresh, and nobody waits for it.
    world.oracle().set(step.variant, step.value);
    if (const auto setter = setters.find(step.variant); setter != setters.end())
        setter->second(AppProperties::instance(), step.value);
    else
        AppProperties::setDouble(step.value, QString::fromStdString(step.variant));
}

void answer(World& world, const Step& step)
{
    if (world.held || !isUsable(world.reminder) || !world.oracle().isReminderOpen())
        return;
    const std::string& how = step.variant;
    world.oracle().answered(how);
    if (how == "skip") {
        QWidget* const view = child(world.reminder, "notificationView");
        QEnterEvent enter(QPointF(5, 5), QPointF(5, 5), view->mapToGlobal(QPointF(5, 5)));
        QCoreApplication::sendEvent(view, &enter);
    }
    if (how == "close")
        world.reminder->close();
    else
        QTest::mouseClick(
            child(world.reminder, how == "snooze" ? "buttonSnooze" : "buttonCancel"), Qt::LeftButton);
}

/// Once there is room again, what has waited is saved with the next pulse; the first after a sleep ends a
/// period.
void makeRoom(World& world)
{
    if (std::exchange(World::s_isDiskFull, false))
        world.pass(31);
}

void setDisk(World& world, const Step& step)
{
    if (step.variant == "room")
        makeRoom(world);
    else // Whether a store is made without room, and when, is a story of its own.
        World::s_isDiskFull = world.oracle().hasStore();
}

void freeze(World& world, const Step& step)
{
    // Whether what is late on the cable or another timer comes first, nobody can know. An adapter that is
    // lost is late for nobody.
    if (!world.oracle().isQuick() && world.oracle().driven() >= 0)
        return;
    VirtualRunLoop& loop = world.loop();
    world.oracle().frozenUntil(loop.monotonicNow() + step.value);
    loop.jump(step.value / 2);
    const QPointer<QWidget> button = std::exchange(world.held, nullptr);
    if (button) {
        QCoreApplication::postEvent(button.data(),
            new QMouseEvent(QEvent::MouseButtonRelease, QPointF(3, 3), button->mapToGlobal(QPointF(3, 3)),
                Qt::LeftButton, Qt::NoButton, Qt::NoModifier));
        world.oracle().letGo(false);
    }
    loop.jump(step.value / 2);
    loop.advance(0);
    QApplication::processEvents();
    if (button)
        world.oracle().letGo(button->window() == world.reminder); // The window hears of it only now.
}

using Deed = void (*)(World&, const Step&);
/// Each at a moment of its own, in this order.
const std::vector<std::pair<std::string, Deed>> kDeeds {
    {"wait", [](World&, const Step&) {}},
    {"press", &press},
    {"let-go", [](World& world, const Step& step) { world.letGo(step.variant); }},
    {"window", &openOrClose},
    {"plug", [](World& world, const Step& step) { world.plug(step.variant == "second", true); }},
    {"unplug", [](World& world, const Step& step) { world.plug(step.variant == "second", false); }},
    {"wire", &setWire},
    {"error",
        [](World& world, const Step& step) {
            DeskModel& desk = world.desks().desk(world.desk());
            step.variant == "code" ? void(desk.addErrorCode(17)) : desk.clearErrors();
        }},
    {"handset", [](World& world, const Step& step) { world.desks().desk(0).setHeight(int(step.value)); }},
    {"user", &setUser},
    {"signal", &signal},
    {"sleep", &sleep},
    {"clock", &setClock},
    {"zone",
        [](World&, const Step& step) {
            qputenv("TZ", step.variant.c_str());
            tzset();
        }},
    {"set", &set},
    {"answer", &answer},
    {"end",
        [](World& world, const Step& step) {
            makeRoom(world);
            world.end(step.variant == "kill");
            world.passUntil(95);
            world.start();
        }},
    {"freeze", &freeze},
    {"disk", &setDisk},
};
}

void World::play(const Step& step)
{
    const auto deed = std::ranges::find(kDeeds, step.verb, &std::pair<std::string, Deed>::first);
    passUntil(5 * int(deed - kDeeds.begin()) + 2);
    deed->second(*this, step);
}
}
