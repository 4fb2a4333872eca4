#include "storm/World.h"

#include "resources/Resources.h"

#include <QApplication>
#include <QLayout>
#include <QScrollArea>
#include <QTest>

#include <ctime>
#include <unistd.h>

namespace storm {
namespace {
/// Tells the oracle first which adapters are taken up and given up.
class Cables final : public SimulatedHidManager {
public:
    explicit Cables(World& world)
        : m_world(world)
    {
    }
    HidStatus open() override
    {
        m_matched = telling(&Oracle::matched, m_matched);
        m_removed = telling(&Oracle::removed, m_removed);
        return SimulatedHidManager::open();
    }

private:
    DeviceCallback telling(void (Oracle::*told)(int adapter), const DeviceCallback& program)
    {
        return [this, told, program](const HidDeviceRef& device) {
            (m_world.oracle().*told)(m_world.numbers.at(device));
            program(device);
        };
    }

    World& m_world;
};
}

World::World(const Script& script, Figures& figures)
    : m_oracle(script,
        platform.folder.filePath(QStringLiteral("org.zelvo.StandUp/StandUp.storedata")).toStdString(),
        figures)
    , m_desks(std::make_unique<Cables>(*this))
{
    for (const int number : {0, 1}) {
        // At its own zero a desk says what an adapter says that has not been heard yet.
        (void)desks().desk(number).setLimits(150, DeskModel::kDefaultUpperLimit);
        desks().adapter(number).onTransfer([this, number](const HidTransfer& transfer) {
            if (app)
                oracle().transferred({number, transfer.direction == HidTransfer::Direction::Read,
                    transfer.status == 0, transfer.duration, transfer.bytes});
        });
    }
    initResources();
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    qputenv("TZ", "CET-1CEST,M3.5.0,M10.5.0/3");
    tzset();
    loop().setWallClock(script.start);
    platform.defaults.values.insert(QStringLiteral("Version"), QStringLiteral("1.0.1"));
    for (const auto& [key, value] : script.settings)
        platform.defaults.values.insert(QString::fromStdString(key), value);
    qApp->installEventFilter(this);
    m_oracle.plugged(0, true);
    start();
}

World::~World()
{
    if (app)
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
    platform.restart();
    m_events = std::make_unique<SleepAwareEventSource>(platform.user);
    app = std::make_unique<AppDelegate>(
        AppDelegate::Dependencies {desks(), *m_events, platform.workspace, platform.loginItems,
            platform.dialogs, platform.folder.path(), QStringLiteral("/opt/zelvo/zelvo-standup"), [] {}, {}});
    oracle().started();
    app->applicationDidFinishLaunching();
    numbers.clear();
    for (const int number : {0, 1}) {
        if (desks().isPlugged(number))
            numbers[desks().copyDevices()[numbers.size()]] = number;
    }
}

void World::end(bool killed)
{
    if (!killed)
        app->terminate();
    oracle().ended(killed);
    const auto ending = std::move(app); // What it still does on its way out, a killed process does not do.
    held.clear();
}

std::string World::play(const Script& script)
{
    for (const Step& step : script.steps) {
        if (!m_oracle.failure().empty())
            return m_oracle.failure();
        play(step);
        look();
        pass(step.seconds);
    }
    for (const char* verb : {"let-go button", "wire well", "error none", "user back", "window none",
             "disk room", "unplug second", "plug first"})
        play(parseScript(std::string("0;") + verb + " 0 0").steps.front());
    pass(45);
    // Pulse, idle poll, height, schedule, a reminder; and clocks of errors, of which each of two windows
    // keeps one for every time that two adapters told of the same end.
    if (loop().pendingTimerCount() > 30)
        m_oracle.fail(std::to_string(loop().pendingTimerCount()) + " timers run when all is quiet");
    end(false);
    m_oracle.judge();
    return m_oracle.failure();
}

void World::pass(double seconds)
{
    constexpr double kLook = 4.3; // At the windows.
    while (seconds > 1e-9) {
        loop().advance(std::min(seconds, kLook));
        look();
        seconds -= kLook;
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
    if (held && !held->isActiveWindow())
        letGo("button"); // Another window came up, and here it takes the keyboard.
    if (!app)
        return;
    Oracle::Shown shown {app->menuletController().isDeviceConnected(), {}, {}, false, {}};
    if (main && main->isVisible()) {
        shown.height = m_height->text().toStdString();
        shown.status = m_status->text().toStdString();
        shown.hasError = !m_error->isHidden();
    }
    if (reminder && reminder->isVisible())
        shown.memory = m_memory->text().toStdString();
    oracle().look(shown);
}

bool World::eventFilter(QObject* receiver, QEvent* event)
{
    const bool isShow = event->type() == QEvent::Show;
    if (!isShow && event->type() != QEvent::Hide && event->type() != QEvent::Polish)
        return false;
    auto* window = qobject_cast<QWidget*>(receiver);
    if (!window || !window->isWindow() || !app)
        return false;
    if (event->type() == QEvent::Polish) {
        window->setUpdatesEnabled(false); // Nobody sees it, nor where things stand in it.
        for (QLayout* layout : window->findChildren<QLayout*>())
            layout->setEnabled(false);
        for (QScrollArea* area : window->findChildren<QScrollArea*>())
            area->setWidgetResizable(false);
        return false;
    }
    m_hasNews = true;
    const bool isReminder = window->objectName() == QLatin1String("NotificationWindow");
    if (held && held->window() == window && !isShow) {
        held.clear();
        oracle().letGo(isReminder);
    }
    if (isReminder && isShow) {
        reminder = window;
        m_memory = window->findChild<QAbstractButton*>(QStringLiteral("buttonMemory"));
        oracle().reminderAppeared();
    } else if (isReminder) {
        oracle().reminderLeft();
    } else if (isShow && window->objectName() == QLatin1String("MainWindow")) {
        main = window;
        m_height = window->findChild<QLabel*>(QStringLiteral("labelTabelHeigt"));
        m_status = window->findChild<QLabel*>(QStringLiteral("labelStatus"));
        m_error = window->findChild<QLabel*>(QStringLiteral("labelErrorText"));
    }
    return false;
}

void World::plug(int number, bool in)
{
    // Which of two slow adapters answers whom, and when, is a story of its own.
    if (desks().isPlugged(number) == in || (in && isSlow && desks().isPlugged(1 - number)))
        return;
    if (in)
        passUntil(97 + number);
    oracle().plugged(number, in);
    in ? desks().plug(number) : desks().unplug(number);
    for (const HidDeviceRef& device : desks().copyDevices())
        numbers.try_emplace(device, number);
    loop().advance(0);
}

void World::letGo(const std::string& how)
{
    if (!held)
        return;
    const QPointer<QWidget> button = std::exchange(held, nullptr);
    QWidget* const around = button->window();
    const bool hasFrame = around != reminder; // To hide or minimise it by.
    oracle().letGo(!hasFrame);
    if (how == "hide" && hasFrame)
        around->hide();
    else if (how == "minimise" && hasFrame)
        around->showMinimized();
    else if (how == "close")
        around->close();
    else if (how == "deactivate")
        QApplication::setActiveWindow(nullptr);
    if (how == "close" && !hasFrame)
        m_oracle.answered("close"); // After what the stop has heard, and also while it fades out.
    if (button && (how == "button" || !hasFrame)) // Otherwise the release comes too late, or never.
        QTest::mouseRelease(button.data(), Qt::LeftButton);
    QApplication::processEvents();
}
}
