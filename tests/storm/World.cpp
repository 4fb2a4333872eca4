#include "storm/World.h"

#include "resources/Resources.h"
#include "shell/TestWindowController.h"

#include <QApplication>
#include <QLabel>

#include <fcntl.h>
#include <unistd.h>

namespace storm {
namespace {
constexpr double kLook = 4.3; ///< at the windows

int adapterOf(const Step& step)
{
    return step.variant == "second" ? 1 : 0;
}
}

class World::Bus final : public HidManager {
public:
    explicit Bus(World& world)
        : m_world(world)
    {
        desks().registerDeviceMatchingCallback([this](const HidDeviceRef& device) {
            if (!m_matched)
                return;
            m_world.oracle().matched(m_numbers.at(device));
            m_matched(device);
        });
        desks().registerDeviceRemovalCallback([this](const HidDeviceRef& device) {
            if (!m_removed)
                return;
            m_world.oracle().removed(m_numbers.at(device));
            m_removed(device);
        });
        desks().registerLateReportCallback(
            [this](const HidDeviceRef& device, std::span<const uint8_t> report) {
                if (m_lateReport)
                    m_lateReport(device, report);
            });
    }
    HidStatus open() override
    {
        desks().setDeviceMatching(m_matching);
        desks().setRestReport(m_restReport);
        const HidStatus status = desks().open();
        m_numbers.clear();
        for (const int number : {0, 1}) {
            if (desks().isPlugged(number))
                m_numbers[copyDevices()[m_numbers.size()]] = number;
        }
        return status;
    }
    [[nodiscard]] std::vector<HidDeviceRef> copyDevices() const override { return desks().copyDevices(); }
    void plug(int number)
    {
        desks().plug(number);
        for (const HidDeviceRef& device : copyDevices())
            m_numbers.try_emplace(device, number);
    }

private:
    [[nodiscard]] SimulatedHidManager& desks() const { return m_world.desks(); }

    World& m_world;
    std::map<HidDeviceRef, int> m_numbers;
};

World::World(const Script& script, Oracle::Figures& figures)
    : m_script(script)
    , m_oracle(script,
          m_platform.folder.filePath(QStringLiteral("org.zelvo.StandUp/StandUp.storedata")).toStdString(),
          figures)
    , m_bus(std::make_unique<Bus>(*this))
{
    for (const int number : {0, 1}) {
        // At its own zero a desk says what an adapter says that has not been heard yet.
        (void)desks().desk(number).setLimits(150, DeskModel::kDefaultUpperLimit);
        desks().adapter(number).onTransfer([this, number](const HidTransfer& transfer) {
            if (m_app)
                oracle().transferred({number, transfer.direction == HidTransfer::Direction::Read,
                    transfer.status == 0, transfer.duration, transfer.bytes});
        });
    }
    initResources();
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    travel({"zone", "CET-1CEST,M3.5.0,M10.5.0/3", 0, 0});
    loop().setWallClock(script.start);
    m_platform.defaults.values.insert(QStringLiteral("Version"), QStringLiteral("1.0.1"));
    for (const auto& [key, value] : script.settings)
        m_platform.defaults.values.insert(QString::fromStdString(key), value);
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

Oracle& World::oracle()
{
    m_oracle.pass(loop().monotonicNow());
    return m_oracle;
}

void World::start()
{
    m_platform.restart();
    m_events = std::make_unique<SleepAwareEventSource>(m_platform.user);
    m_app = std::make_unique<AppDelegate>(AppDelegate::Dependencies {*m_bus, *m_events, m_platform.workspace,
        m_platform.loginItems, m_platform.dialogs, m_platform.folder.path(),
        QStringLiteral("/opt/zelvo/zelvo-standup"), [] {}, {}});
    m_startedAt = loop().monotonicNow();
    oracle().started();
    m_app->applicationDidFinishLaunching();
    const int silent = ::open("/dev/null", O_WRONLY | O_CLOEXEC); // The log of a decade is long.
    dup2(silent, STDERR_FILENO);
    ::close(silent);
}

void World::end(bool killed)
{
    if (!killed)
        m_app->terminate();
    oracle().ended(killed);
    const auto ending = std::move(m_app); // What it still does on its way out, a killed process does not do.
    m_held.clear();
}

void World::restart(const Step& step)
{
    end(step.variant == "kill");
    passUntil(95);
    start();
}

void World::play()
{
    for (const Step& step : m_script.steps) {
        if (!m_oracle.failure().empty())
            return;
        play(step);
        m_hasNews = true;
        look();
        pass(step.seconds);
    }
    for (const Step& step : std::initializer_list<Step> {{"let-go", "button", 0, 0}, {"wire", "well", 0, 0},
             {"error", "none", 0, 0}, {"user", "back", 0, 0}, {"window", "none", 0, 0},
             {"unplug", "second", 0, 0}, {"plug", "first", 0, 90}}) {
        play(step);
        pass(step.seconds);
    }
    // Pulse, idle poll, height, schedule, a reminder; and clocks of errors, of which each of two windows
    // keeps one for every time that two adapters told of the same end.
    if (loop().pendingTimerCount() > 30)
        m_oracle.fail(std::to_string(loop().pendingTimerCount()) + " timers run when all is quiet");
    end(false);
    m_oracle.judge();
}

void World::pass(double seconds)
{
    double left = seconds;
    while (left > 1e-9) {
        loop().advance(std::min(left, kLook));
        look();
        left -= kLook;
    }
}

void World::passUntil(int thousandths)
{
    const auto now = int64_t(std::llround(loop().monotonicNow() * 1000));
    pass(double((100 + thousandths - now % 100) % 100) / 1000);
}

void World::look()
{
    if (std::exchange(m_hasNews, false))
        QApplication::processEvents();
    if (m_held && !m_held->isActiveWindow())
        letGo({"let-go", "button", 0, 0}); // Another window came up, and here it takes the keyboard.
    if (!m_app)
        return;
    Oracle::Shown shown {m_app->menuletController().isDeviceConnected(), {}, {}, false, {}};
    if (m_main && m_main->isVisible()) {
        shown.height = m_height->text().toStdString();
        shown.status = m_status->text().toStdString();
        shown.hasError = !m_error->isHidden();
    }
    if (m_reminder && m_reminder->isVisible())
        shown.memory = m_memory->text().toStdString();
    oracle().look(shown);
}

// The cables.

void World::plug(const Step& step)
{
    const int adapter = adapterOf(step);
    // Which of two slow adapters answers whom, and when, is a story of its own.
    if (desks().isPlugged(adapter) || (m_isSlow && desks().isPlugged(1 - adapter)))
        return;
    passUntil(97 + adapter);
    oracle().plugged(adapter, true);
    m_bus->plug(adapter);
    loop().advance(0);
}

void World::unplug(const Step& step)
{
    const int adapter = adapterOf(step);
    if (!desks().isPlugged(adapter))
        return;
    oracle().plugged(adapter, false);
    desks().unplug(adapter);
    loop().advance(0);
}
}
