// The composition root: reads the command line, picks the backends for this machine, builds the application
// and runs it.

#include "CommandLine.h"
#include "commands/CommandClient.h"
#include "commands/CommandService.h"
#include "commands/StatusWatch.h"
#include "platform/Bundle.h"
#include "platform/Log.h"
#include "platform/ProcessServices.h"
#include "platform/linux/AutostartLoginItems.h"
#include "platform/linux/DBusWorkspace.h"
#include "platform/linux/DisplayServer.h"
#include "platform/linux/IdleTimeSource.h"
#include "platform/linux/LinuxHidManager.h"
#include "platform/linux/PortalSetting.h"
#include "platform/linux/SingleInstance.h"
#include "platform/linux/TrayHost.h"
#include "platform/linux/UnixSignals.h"
#include "platform/linux/XScreenWatch.h"
#include "platform/qt/QtDialogs.h"
#include "platform/qt/QtRunLoop.h"
#include "platform/qt/QtUserDefaults.h"
#include "platform/simulated/SimulatedHidManager.h"
#include "resources/Resources.h"
#include "shell/AppDelegate.h"
#include "shell/PictureIcon.h"
#include "ui/Appearance.h"
#include "ui/Motion.h"
#include "ui/PanelWindow.h"

#include <QApplication>
#include <QDBusConnection>
#include <QDir>
#include <QSessionManager>
#include <QStandardPaths>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <memory>
#include <optional>
#include <utility>

namespace {
const QString kIdentifier = QStringLiteral("org.zelvo.StandUp");
const QString kUsualCommand = QStringLiteral("show");
constexpr double kTrayPatienceSeconds = 10.0;
/// What the icon does not need begins so much later, for a panel to read the icon first.
constexpr double kIconsLeadSeconds = 0.1;
/// So long it waits for an icon.
constexpr double kPatienceForIconSeconds = 1.0;

/// As the desktop's base directory rules say. The record would otherwise lie wherever the program was
/// started.
void ignoreRelativeFolders()
{
    for (const char* const variable : {"XDG_CONFIG_HOME", "XDG_DATA_HOME"}) {
        const QString folder = qEnvironmentVariable(variable);
        if (folder.isEmpty() || QDir::isAbsolutePath(folder))
            continue;
        Log::line(QStringLiteral("%1 is not an absolute path and is ignored: %2")
                      .arg(QString::fromLatin1(variable), folder));
        qunsetenv(variable);
    }
}

QString settingsPath()
{
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    return QDir(folder).filePath(kIdentifier + QStringLiteral("/StandUp.conf"));
}

/// An application that ends when the session's end tells it to. Qt itself would close each window first, as
/// if the user had, and stay where one stays.
class Application final : public QApplication {
public:
    using QApplication::QApplication;
    void onQuit(std::function<void()> callback) { m_quit = std::move(callback); }
    void onPaletteChange(std::function<void()> callback) { m_paletteChange = std::move(callback); }

protected:
    bool event(QEvent* event) override
    {
        if (event->type() == QEvent::ApplicationPaletteChange && m_paletteChange)
            m_paletteChange();
        if (event->type() != QEvent::Quit || !m_quit)
            return QApplication::event(event);
        m_quit();
        return true;
    }

private:
    std::function<void()> m_quit;
    std::function<void()> m_paletteChange;
};

std::unique_ptr<HidManager> makeHidManager(bool simulate)
{
    if (!simulate)
        return std::make_unique<LinuxHidManager>();
    Log::line(QStringLiteral("Driving the built-in simulated desk."));
    return std::make_unique<SimulatedHidManager>();
}

void reduceMotionIfZero(const QVariant& value)
{
    bool isTold = false;
    const double factor = value.toDouble(&isTold); // Of a truth value, a number or a text.
    if (isTold)
        Motion::setReduced(factor == 0);
}

/// The parts of the program, in the order in which they are built.
struct Program {
    explicit Program(const CommandLine& commandLine)
        : hidManager(makeHidManager(commandLine.simulate))
        , eventSource(makeIdleTimeSource(QDBusConnection::sessionBus()))
        , tray(QDBusConnection::sessionBus(),
              QGuiApplication::platformName() == QStringLiteral("xcb") ? TrayHost::X11Tray::Accepted
                                                                       : TrayHost::X11Tray::Ignored)
        , app({*hidManager, *eventSource, workspace, loginItems, dialogs,
              QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation),
              QCoreApplication::applicationFilePath(), [] { QCoreApplication::exit(); },
              dynamic_cast<SimulatedHidManager*>(hidManager.get())})
    {
    }

    /// Begins to listen, to record and to take commands, the first time it is called.
    void launch()
    {
        if (commands)
            return;
        workspace.watch(QDBusConnection::systemBus(), QDBusConnection::sessionBus());
        if (!isWaylandSession())
            xScreens =
                std::make_unique<XScreenWatch>([this](bool isDark) { workspace.xScreensChanged(isDark); });
        eventSource->refresh([] {});
        app.applicationDidFinishLaunching();
        commands.emplace(app, QDBusConnection::sessionBus());
        if (const auto damage = defaults.damage())
            dialogs.presentError(*damage);
    }

    void launchAfter(double seconds)
    {
        timers.schedule(seconds, RunLoop::Repeat::No, [this](Timer&) { launch(); });
    }

    void perform(const QString& command)
    {
        launch();
        commands->perform(command);
    }

    QtRunLoop runLoop;
    Bundle bundle {Bundle::compiledInformation()};
    QtUserDefaults defaults {settingsPath()};
    ProcessServices services {{&runLoop, &bundle, &defaults}};
    std::unique_ptr<HidManager> hidManager;
    std::unique_ptr<EventSource> eventSource;
    DBusWorkspace workspace;
    std::unique_ptr<XScreenWatch> xScreens;
    PortalSetting colorScheme {QDBusConnection::sessionBus(), QStringLiteral("org.freedesktop.appearance"),
        QStringLiteral("color-scheme"),
        [](const QVariant& value) { Appearance::setDesktopIsDark(isDarkScheme(value)); }};
    // Each desktop's portal knows one of the two.
    PortalSetting animations {QDBusConnection::sessionBus(), QStringLiteral("org.gnome.desktop.interface"),
        QStringLiteral("enable-animations"), reduceMotionIfZero};
    PortalSetting animationSpeed {QDBusConnection::sessionBus(), QStringLiteral("org.kde.kdeglobals.KDE"),
        QStringLiteral("AnimationDurationFactor"), reduceMotionIfZero};
    AutostartLoginItems loginItems;
    QtDialogs dialogs;
    TrayHost tray;
    AppDelegate app;
    std::optional<CommandService> commands;
    TimerScope timers;
};

bool isAnyWindowOpen()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    return std::any_of(windows.begin(), windows.end(), [](const QWidget* window) {
        return window->isVisible() && qobject_cast<const PanelWindow*>(window);
    });
}

/// The icon appears as soon as a tray is there. A user without one finds the program's window instead.
void appearInTray(Program& program)
{
    program.tray.whenAvailable([&program] {
        program.app.statusItem().appear();
        program.launchAfter(kIconsLeadSeconds);
    });
    program.launchAfter(kPatienceForIconSeconds);
    program.timers.schedule(kTrayPatienceSeconds, RunLoop::Repeat::No, [&program](Timer&) {
        if (program.tray.isAvailable())
            return;
        Log::line(
            QStringLiteral("No tray is there: showing the window instead. A further start shows it again."));
        if (!isAnyWindowOpen()) // It would take the keyboard once more.
            program.app.showSomething();
    });
}

int run(const CommandLine& commandLine, Application& application, SingleInstance& instance)
{
    Program program(commandLine);
    AppDelegate& app = program.app;
    const auto terminate = [&app] { app.terminate(); };
    const UnixSignals signals([terminate](int) { terminate(); });
    program.workspace.onWillShutDown(terminate);
    application.onQuit(terminate);
    application.onPaletteChange(Appearance::update);
    Appearance::whenFollowing([&program] { program.colorScheme.ask(); });
    Appearance::update();
    Motion::whenNeeded([&program] {
        program.animations.ask();
        program.animationSpeed.ask();
    });
    const auto onSession = [&program](auto signal, auto slot) {
        QObject::connect(qApp, signal, &program.tray, slot);
    };
    // Another program may still cancel the log-out.
    onSession(&QGuiApplication::commitDataRequest, [&app](QSessionManager&) { app.commitData(); });
    onSession(&QGuiApplication::saveStateRequest, [](QSessionManager& session) {
        session.setRestartHint(QSessionManager::RestartNever); // The autostart entry starts it.
    });
    instance.onActivated([&program](const SingleInstance::Request& request) {
        qputenv("XDG_ACTIVATION_TOKEN", request.activationToken);
        program.perform(request.action.isEmpty() ? kUsualCommand : QString::fromUtf8(request.action));
    });

    app.applicationWillFinishLaunching();
    appearInTray(program);
    if (commandLine.testWindow) {
        program.launch();
        app.showTestWindow();
    }
    if (!commandLine.command.isEmpty())
        program.perform(commandLine.command);
    return QCoreApplication::exec();
}

/// Qt's own messages, with time and process like all others. What Qt calls fatal (a platform that it cannot
/// load, a display that went away) is nothing that a crash report would help with.
void logQtMessage(QtMsgType type, const QMessageLogContext&, const QString& message)
{
    Log::line(message);
    if (type == QtFatalMsg)
        std::_Exit(1);
}

CommandLine readCommandLine(int argc, char** argv)
{
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    const CommandLine commandLine = CommandLine::parse(arguments);
    const bool isUnknown =
        !commandLine.language.isEmpty() && firstAvailableLanguage({commandLine.language}).isEmpty();
    return isUnknown ? commandLine.refusedLanguage() : commandLine;
}

int showFirstInstance(const SingleInstance& instance, const QString& command)
{
    if (instance.activateFirst({qgetenv("XDG_ACTIVATION_TOKEN"), command.toUtf8()}))
        return 0;
    Log::line(QStringLiteral("The program is already running but does not respond."));
    return 1;
}

CommandClient::Answer ask(CommandClient& client, const CommandLine& commandLine)
{
    if (commandLine.command == QStringLiteral("status"))
        return client.printStatus(commandLine.asJson);
    if (commandLine.command == QStringLiteral("watch"))
        return StatusWatch(client).run();
    return client.perform(commandLine.command, qEnvironmentVariable("XDG_ACTIVATION_TOKEN"));
}

/// Gives the command to the program that runs, which needs no display here. The exit code, or nothing where
/// the program is to be started for it.
std::optional<int> carryOutElsewhere(const CommandLine& commandLine, int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    QtRunLoop runLoop;
    const ProcessServices services({&runLoop});
    CommandClient client;
    const CommandClient::Answer answer = ask(client, commandLine);
    if (answer != CommandClient::Answer::NotRunning)
        return answer == CommandClient::Answer::Done ? 0 : 1;
    if (commandLine.opensWindow())
        return std::nullopt;
    client.tellNotRunning();
    return 1;
}
}

int main(int argc, char** argv)
{
    initResources();
    const CommandLine commandLine = readCommandLine(argc, argv);
    if (commandLine.endsHere)
        return commandLine.exitCode;
    qInstallMessageHandler(logQtMessage);
    if (!commandLine.command.isEmpty()) {
        if (const std::optional<int> exitCode = carryOutElsewhere(commandLine, argc, argv)) {
            std::fflush(nullptr);
            std::_Exit(*exitCode); // QtDBus may still be delivering while what it needs is taken down.
        }
    }
    if (const QString problem = chooseDisplayServer(); !problem.isEmpty()) {
        Log::line(problem);
        return 1;
    }

    ignoreRelativeFolders();

    QGuiApplication::setDesktopFileName(kIdentifier);
    QApplication::setStyle(QStringLiteral("Fusion")); // Fixed colours and sizes belong to one style.
    Application application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("Zelvo StandUp"));
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setWindowIcon(programIcon());

    if (AutostartLoginItems().isStartUnwanted())
        return 0;
    SingleInstance instance;
    if (!instance.acquire())
        return showFirstInstance(instance, commandLine.command);
    installTexts(application, commandLine.language);
    return run(commandLine, application, instance);
}
