// Prints what the windows cost, without a screen: time from a click on the tray icon to a painted main
// window, time of a refresh with a working life in the store, CPU time of a minute with the window open and
// with it closed, memory before and after opening and closing every window many times. Takes a little over
// two minutes.

#include "SimulatedApplication.h"
#include "benchmarks/WorkingLife.h"
#include "data/ActivityMode.h"
#include "data/ActivityPersister.h"
#include "data/AppProperties.h"
#include "data/ManagedObjectContext.h"
#include "desk/Posture.h"
#include "desk/ZelvoController.h"
#include "platform/qt/QtRunLoop.h"
#include "platform/simulated/SimulatedDesktop.h"
#include "resources/Resources.h"
#include "screens/HistoryWindowController.h"
#include "screens/WizardWindowController.h"
#include "shell/MainWindowController.h"
#include "shell/Notification.h"
#include "shell/NotificationWindowController.h"
#include "shell/TestWindowController.h"

#include <QApplication>
#include <QEventLoop>
#include <QFile>
#include <QTextStream>
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <ctime>
#include <functional>
#include <malloc.h>
#include <memory>
#include <optional>
#include <sys/resource.h>
#include <vector>

namespace {
/// A million with RECORDS=1000000 in the environment.
const int kRecords =
    qEnvironmentVariableIsSet("RECORDS") ? qEnvironmentVariableIntValue("RECORDS") : int(kPeriodsOfALife);
constexpr int kOpenings = 200;
constexpr int kRefreshes = 500;

QTextStream& out()
{
    static QTextStream stream(stdout);
    return stream;
}

double millisecondsOf(const std::function<void()>& work)
{
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

double cpuSeconds()
{
    rusage usage {};
    getrusage(RUSAGE_SELF, &usage);
    const auto seconds = [](const timeval& time) { return double(time.tv_sec) + double(time.tv_usec) / 1e6; };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

/// The proportional set size, in kilobytes.
qint64 pssKilobytes()
{
    QFile file(QStringLiteral("/proc/self/smaps_rollup"));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray& line : file.readAll().split('\n')) {
        if (line.startsWith("Pss:"))
            return line.mid(4).trimmed().split(' ').first().toLongLong();
    }
    return 0;
}

/// The program on the simulated desktop, with a finished set-up and a working life in the store.
struct World {
    /// @param realTime passes instead of virtual time
    explicit World(RunLoop* realTime = nullptr)
    {
        if (realTime)
            services.emplace(ProcessServices::Backends {realTime, &desktop.bundle, &desktop.defaults});
        AppProperties& properties = AppProperties::instance();
        properties.setWeight(80);
        properties.setActivityMode(kCalorieGoal);
        properties.setActivityGoal(150);
        properties.setNumberOfStandUps(2);
        app = std::make_unique<AppDelegate>(simulatedApplication(desktop));
        app->applicationDidFinishLaunching();
        fillStore();
    }

    void fillStore() const
    {
        Error error;
        if (!fillWithWorkingLife(app->persistentStoreCoordinator(),
                workingLifeUntil(Date::dateWithDaysFromNow(1)), kRecords, error))
            out() << error.localizedDescription << Qt::endl;
    }

    SimulatedDesktop desktop {double(std::time(nullptr))};
    std::optional<ProcessServices> services;
    std::unique_ptr<AppDelegate> app;
};

/// Notes that a window has been painted.
class PaintWatch final : public QObject {
public:
    bool isPainted = false;

    bool eventFilter(QObject* receiver, QEvent* event) override
    {
        const auto* widget = qobject_cast<const QWidget*>(receiver);
        if (event->type() == QEvent::Paint && widget && widget->isWindow())
            isPainted = true;
        return false;
    }
};

double millisecondsToPaintedWindow(World& world)
{
    PaintWatch watch;
    qApp->installEventFilter(&watch);
    return millisecondsOf([&] {
        world.app->menuletController().menuletClicked();
        while (!watch.isPainted)
            QApplication::processEvents();
        QApplication::processEvents();
    });
}

void measureOpening(World& world)
{
    const double cpuBefore = cpuSeconds();
    const double milliseconds = millisecondsToPaintedWindow(world);
    out() << "click to painted main window, first time: " << milliseconds << " ms ("
          << (cpuSeconds() - cpuBefore) * 1000 << " ms of CPU time)" << Qt::endl;
    std::vector<double> times;
    for (int i = 0; i < 21; ++i) {
        world.app->menuletController().menuletClicked();
        QApplication::processEvents();
        times.push_back(millisecondsToPaintedWindow(world));
    }
    std::sort(times.begin(), times.end());
    out() << "click to painted main window, again:      " << times[times.size() / 2] << " ms (longest "
          << times.back() << ")" << Qt::endl;
}

void measureRefresh(World& world)
{
    MainWindowController& controller = world.app->menuletController().mainWindow();
    const double total = millisecondsOf([&] {
        for (int i = 0; i < kRefreshes; ++i)
            controller.updateData();
    });
    out() << "updateData with " << kRecords << " records:          " << total / kRefreshes << " ms"
          << Qt::endl;
}

void openAndCloseEverything(World& world)
{
    const auto pass = [&world](double seconds) {
        world.desktop.runLoop.advance(seconds);
        QApplication::processEvents();
    };
    MenuletController& menulet = world.app->menuletController();
    menulet.menuletClicked();
    pass(6);
    menulet.mainWindowButtonCloseClicked();
    for (const int position : {kStanding, kSitting}) {
        menulet.showNotification(std::make_shared<Notification>(position));
        pass(0.5);
        menulet.dismissNotification();
        pass(0.5);
    }
    world.app->menuSettingsClicked();
    pass(0.1);
    world.app->wizardWindowController().close();
    world.app->showHistory();
    pass(0.1);
    world.app->historyController().buttonCloseClicked();
    world.app->showTestWindow();
    pass(1);
    world.app->testWindowController().window().close();
    pass(6);
}

void measureMemory(World& world)
{
    VirtualRunLoop& runLoop = world.desktop.runLoop;
    const auto print = [&runLoop](const char* when) {
        malloc_trim(0);
        out() << when << qint64(mallinfo2().uordblks / 1024) << " KB heap, " << pssKilobytes() << " KB PSS, "
              << runLoop.pendingTimerCount() << " timers" << Qt::endl;
    };
    openAndCloseEverything(world); // Whatever is made once is made now.
    print("every window opened and closed once:      ");
    // The store's cache fills as time passes, with and without windows: that share is shown apart.
    const double before = runLoop.now();
    openAndCloseEverything(world);
    const double length = runLoop.now() - before;
    runLoop.advance(length * kOpenings);
    print("as much time without windows:             ");
    for (int i = 0; i < kOpenings; ++i)
        openAndCloseEverything(world);
    print("every window opened and closed 200 times: ");
}

double cpuSecondsOfAMinute()
{
    const double before = cpuSeconds();
    QEventLoop loop;
    QTimer::singleShot(60'000, &loop, [&loop] { loop.quit(); });
    loop.exec();
    return cpuSeconds() - before;
}

void measureMinutes()
{
    QtRunLoop runLoop;
    World world(&runLoop);
    QEventLoop settling;
    QTimer::singleShot(3000, &settling, [&settling] { settling.quit(); });
    settling.exec();
    out() << "CPU of a minute, windows closed:          " << cpuSecondsOfAMinute() << " s" << Qt::endl;
    world.app->menuletController().menuletClicked();
    QApplication::processEvents();
    out() << "CPU of a minute, main window open:        " << cpuSecondsOfAMinute() << " s" << Qt::endl;
}
}

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication::setStyle(QStringLiteral("Fusion"));
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    initResources();
    installTexts(application, QStringLiteral("en"));
    {
        World world;
        world.desktop.runLoop.advance(2);
        measureOpening(world);
        measureRefresh(world);
        world.app->menuletController().mainWindowButtonCloseClicked();
        measureMemory(world);
    }
    measureMinutes();
    return 0;
}
