#include "Program.h"

#include "Application.h"
#include "commands/CommandService.h"
#include "platform/Log.h"
#include "platform/linux/DisplayServer.h"
#include "platform/linux/IdleTimeSource.h"
#include "platform/linux/LinuxHidManager.h"
#include "platform/linux/SingleInstance.h"
#include "platform/simulated/SimulatedHidManager.h"
#include "ui/Appearance.h"
#include "ui/Motion.h"
#include "ui/PanelWindow.h"

#include <QDBusConnection>
#include <QDir>
#include <QSessionManager>
#include <QStandardPaths>

#include <algorithm>

namespace {
const QString kUsualCommand = QStringLiteral("show");
constexpr double kTrayPatienceSeconds = 10.0;
/// What the icon does not need begins so much later, for a panel to read the icon first.
constexpr double kIconsLeadSeconds = 0.1;
/// So long it waits for an icon.
constexpr double kPatienceForIconSeconds = 1.0;

QString settingsPath()
{
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    return QDir(folder).filePath(QStringLiteral("org.zelvo.StandUp/StandUp.conf"));
}

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

bool isAnyWindowOpen()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    return std::any_of(windows.begin(), windows.end(), [](const QWidget* window) {
        return window->isVisible() && qobject_cast<const PanelWindow*>(window);
    });
}
}

Program::Program(bool simulate, Application& application, SingleInstance& instance)
    : m_application(application)
    , m_instance(instance)
    , m_defaults(settingsPath())
    , m_hidManager(makeHidManager(simulate))
    , m_eventSource(makeIdleTimeSource(QDBusConnection::sessionBus()))
    , m_colorScheme(QDBusConnection::sessionBus(), QStringLiteral("org.freedesktop.appearance"),
          QStringLiteral("color-scheme"),
          [](const QVariant& value) { Appearance::setDesktopIsDark(isDarkScheme(value)); })
    , m_animations(QDBusConnection::sessionBus(), QStringLiteral("org.gnome.desktop.interface"),
          QStringLiteral("enable-animations"), reduceMotionIfZero)
    , m_animationSpeed(QDBusConnection::sessionBus(), QStringLiteral("org.kde.kdeglobals.KDE"),
          QStringLiteral("AnimationDurationFactor"), reduceMotionIfZero)
    , m_tray(QDBusConnection::sessionBus(),
          QGuiApplication::platformName() == QStringLiteral("xcb") ? TrayHost::X11Tray::Accepted
                                                                   : TrayHost::X11Tray::Ignored)
    , m_app({*m_hidManager, *m_eventSource, m_workspace, m_loginItems, m_dialogs,
          QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation),
          QCoreApplication::applicationFilePath(), [] { QCoreApplication::exit(); },
          dynamic_cast<SimulatedHidManager*>(m_hidManager.get())})
    , m_signals([this](int) { m_app.terminate(); })
{
    listenToSession();
    listenToFurtherStarts();
    followDesktop();
    m_app.applicationWillFinishLaunching();
}

Program::~Program()
{
    Motion::whenNeeded({});
    Appearance::whenFollowing({});
    m_instance.onActivated({});
    m_application.onPaletteChange({});
    m_application.onQuit({});
}

void Program::listenToSession()
{
    const auto terminate = [this] { m_app.terminate(); };
    m_workspace.onWillShutDown(terminate);
    m_application.onQuit(terminate);
    // Another program may still cancel the log-out.
    QObject::connect(&m_application, &QGuiApplication::commitDataRequest, &m_tray,
        [this](QSessionManager&) { m_app.commitData(); });
    QObject::connect(
        &m_application, &QGuiApplication::saveStateRequest, &m_tray, [](QSessionManager& session) {
            session.setRestartHint(QSessionManager::RestartNever); // The autostart entry starts it.
        });
}

void Program::listenToFurtherStarts()
{
    m_instance.onActivated([this](const SingleInstance::Request& request) {
        qputenv("XDG_ACTIVATION_TOKEN", request.activationToken);
        perform(request.action.isEmpty() ? kUsualCommand : QString::fromUtf8(request.action));
    });
}

void Program::followDesktop()
{
    m_application.onPaletteChange(Appearance::update);
    Appearance::whenFollowing([this] { m_colorScheme.ask(); });
    Appearance::update();
    Motion::whenNeeded([this] {
        m_animations.ask();
        m_animationSpeed.ask();
    });
}

void Program::appear()
{
    m_tray.whenAvailable([this] {
        m_app.statusItem().appear();
        launchAfter(kIconsLeadSeconds);
    });
    launchAfter(kPatienceForIconSeconds);
    m_timers.schedule(kTrayPatienceSeconds, RunLoop::Repeat::No, [this](Timer&) {
        if (!m_tray.isAvailable())
            doWithoutTray();
    });
}

void Program::doWithoutTray()
{
    Log::line(QStringLiteral("No tray is there. A further start shows the window."));
    if (!isAnyWindowOpen()) // It would take the keyboard once more.
        m_app.showSomething();
}

void Program::launchAfter(double seconds)
{
    m_timers.schedule(seconds, RunLoop::Repeat::No, [this](Timer&) { launch(); });
}

void Program::launch()
{
    if (m_commands)
        return;
    m_workspace.watch(QDBusConnection::systemBus(), QDBusConnection::sessionBus());
    if (!isWaylandSession())
        m_xScreens =
            std::make_unique<XScreenWatch>([this](bool isDark) { m_workspace.xScreensChanged(isDark); });
    m_eventSource->refresh([] {});
    m_app.applicationDidFinishLaunching();
    m_commands = std::make_unique<CommandService>(m_app, QDBusConnection::sessionBus());
    if (const auto damage = m_defaults.damage())
        m_dialogs.presentError(*damage);
}

void Program::showTestWindow()
{
    launch();
    m_app.showTestWindow();
}

void Program::perform(const QString& command)
{
    launch();
    m_commands->perform(command);
}
