#include "storm/World.h"

#include "resources/Resources.h"
#include "shell/TestWindowController.h"
#include "storm/FullDisk.h"
#include "storm/WorldParts.h"

#include <QApplication>

#include <cmath>
#include <fcntl.h>
#include <unistd.h>

namespace storm {
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
            m_platform.folder.path(), QStringLiteral("/opt/zelvo/zelvo-standup"), [] {}});
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
    QApplication::processEvents();
    if (m_held && !m_held->isActiveWindow())
        letGo({Verb::LetGo, 0, 0, 0}); // Another window came up, and here it takes the keyboard.
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
}
