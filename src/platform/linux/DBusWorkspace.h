#pragma once

#include "platform/Workspace.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusServiceWatcher>
#include <QDBusUnixFileDescriptor>
#include <QObject>
#include <QSet>

/// The session as its services describe it over D-Bus: logind's sleep and lock, and the screen savers' and
/// GNOME's own signals. Without a bus, or without one of these services, its news are simply missing.
///
/// The same event arrives through several services. Each has a state of its own here; the first to go dark
/// counts and the others join it, until one of them is light again. All calls are asynchronous;
/// only connecting to logind's signals waits for the bus to say who logind is.
class DBusWorkspace final : public QObject, public Workspace {
    Q_OBJECT

public:
    DBusWorkspace();
    ~DBusWorkspace() override;

    /// Begins to listen. Call it once. Either bus may be without connection.
    void watch(const QDBusConnection& systemBus, const QDBusConnection& sessionBus);

    bool openUrl(const QUrl& url) override;
    /// What the X server says of its screens. It counts as long as no service says anything of them: lockers
    /// let the screens light up again while they are locked.
    void xScreensChanged(bool isDark);

private Q_SLOTS:
    void prepareForSleep(bool isAboutToSleep);
    void prepareForShutdown(bool isAboutToShutDown);
    void screenSaverActiveChanged(bool isActive, const QDBusMessage& message);
    void propertiesChanged(
        const QString& interface, const QVariantMap& changed, const QStringList& invalidated);

private:
    void watchScreens(QDBusConnection sessionBus);
    void watchLogind();
    void watchLockOfSession();

    void takeDelayLock();
    void releaseDelayLock();
    void serviceSays(const QString& service, bool isDark);
    void setDark(const QString& source, bool isDark);

    QDBusConnection m_systemBus {QString()}; ///< without connection until it is watched
    QDBusServiceWatcher m_logindWatcher;
    QDBusUnixFileDescriptor m_delayLock; ///< logind waits with sleep and shutdown while it is open
    bool m_isTakingLock = false;
    int m_lockRequest = 0; ///< counts up when an answer that is still under way no longer counts
    QSet<QString> m_darkSources; ///< their last word was dark
    bool m_isDark = false;
    bool m_isSleepAnnounced = false; ///< and its wake not yet
    bool m_hasService = false; ///< one has said something of the screens
};
