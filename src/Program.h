#pragma once

#include "platform/Bundle.h"
#include "platform/EventSource.h"
#include "platform/HidManager.h"
#include "platform/ProcessServices.h"
#include "platform/linux/AutostartLoginItems.h"
#include "platform/linux/DBusWorkspace.h"
#include "platform/linux/PortalSetting.h"
#include "platform/linux/TrayHost.h"
#include "platform/linux/UnixSignals.h"
#include "platform/linux/XScreenWatch.h"
#include "platform/qt/QtDialogs.h"
#include "platform/qt/QtRunLoop.h"
#include "platform/qt/QtUserDefaults.h"
#include "shell/AppDelegate.h"

#include <QString>

#include <memory>
#include <optional>

class Application;
class CommandService;
class SingleInstance;

/// The program over the backends for this machine, in the order in which they are built, and what its
/// surroundings tell it: the tray, the session, signals, further starts.
class Program {
public:
    /// @param simulate drives the built-in simulated desk
    Program(bool simulate, Application& application, SingleInstance& instance);
    ~Program();
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    /// Shows the icon as soon as a tray is there; a user without one finds the program's window instead. What
    /// the icon does not need begins a little later.
    void appear();
    void showTestWindow();
    /// One of the commands that a further start may bring.
    void perform(const QString& command);

private:
    void listenToSession();
    void listenToFurtherStarts();
    void followDesktop();
    void doWithoutTray();
    /// Begins to listen, to record and to take commands, the first time it is called.
    void launch();
    void launchAfter(double seconds);

    Application& m_application;
    SingleInstance& m_instance;
    QtRunLoop m_runLoop;
    Bundle m_bundle {Bundle::compiledInformation()};
    QtUserDefaults m_defaults;
    ProcessServices m_services {{&m_runLoop, &m_bundle, &m_defaults}};
    std::unique_ptr<HidManager> m_hidManager;
    std::unique_ptr<EventSource> m_eventSource;
    DBusWorkspace m_workspace;
    std::unique_ptr<XScreenWatch> m_xScreens;
    PortalSetting m_colorScheme;
    // Each desktop's portal knows one of the two.
    PortalSetting m_animations;
    PortalSetting m_animationSpeed;
    AutostartLoginItems m_loginItems;
    QtDialogs m_dialogs;
    TrayHost m_tray;
    AppDelegate m_app;
    std::unique_ptr<CommandService> m_commands;
    UnixSignals m_signals;
    TimerScope m_timers;
};
