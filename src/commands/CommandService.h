#pragma once

#include "desk/AdoptedDesk.h"
#include "platform/NotificationCenter.h"
#include "platform/RunLoop.h"

#include <QDBusConnection>
#include <QDBusContext>
#include <QObject>
#include <QVariantMap>

#include <vector>

class AppDelegate;

/// The running program on the session bus: it carries out the commands of other processes, which get an error
/// when that cannot be done, and tells them its status. There is no command that moves the desk and there
/// must not be one: nobody would hold a button.
class CommandService final : public QObject, protected QDBusContext {
    Q_OBJECT

public:
    /// Commands are heard from the first turn of the main loop on. Without a bus there are none.
    CommandService(AppDelegate& app, QDBusConnection bus);

    /// The main window, or a reminder that waits without the keyboard; before set-up is complete the wizard.
    void show();
    void showHistory(); ///< before set-up is complete the wizard
    void showSettings();
    void quit();
    /// Snooze or skip as the reminder's own buttons do; refused while none is shown.
    void snooze();
    void skip();
    /// One of these by its name: "show", "history", "settings", "quit", "snooze" or "skip".
    void perform(const QString& action);
    /// Takes what lets the next window come to the front from a caller's platform data.
    static void takeActivationToken(const QVariantMap& platformData);
    [[nodiscard]] static QVariantMap status();

Q_SIGNALS:
    /// What status() tells is another than before, if only by the passing of time since. The desk's height
    /// is told when the desk stands still.
    void changed();

private:
    void observe();
    void takeName();
    void announceSoon();
    void refuse(const QString& why);

    AppDelegate& m_app;
    QDBusConnection m_bus;
    std::vector<NotificationCenter::Observation> m_observations;
    AdoptedDesk::Observation m_heights;
    TimerRef m_announcement;
    TimerScope m_timers;
};
