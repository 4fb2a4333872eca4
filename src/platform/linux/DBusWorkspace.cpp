#include "platform/linux/DBusWorkspace.h"

#include "platform/DBusCall.h"
#include "platform/Log.h"

#include <QDBusObjectPath>
#include <QDBusPendingReply>
#include <QDesktopServices>

#include <utility>

namespace {
constexpr int kCallTimeoutMs = 5000;

const QString kLogind = QStringLiteral("org.freedesktop.login1");
const QString kLogindPath = QStringLiteral("/org/freedesktop/login1");
const QString kLogindManager = QStringLiteral("org.freedesktop.login1.Manager");
const QString kLogindSession = QStringLiteral("org.freedesktop.login1.Session");
const QString kProperties = QStringLiteral("org.freedesktop.DBus.Properties");
const QString kDisplayConfig = QStringLiteral("org.gnome.Mutter.DisplayConfig");
const QString kLockedHint = QStringLiteral("LockedHint");
const QString kPowerSaveMode = QStringLiteral("PowerSaveMode");
const QString kDisplayConfigPath = QStringLiteral("/org/gnome/Mutter/DisplayConfig");

/// Where the desktops' screen savers say that they cover or free the screen. KDE's uses both of the first
/// paths.
const struct ScreenSaver {
    const char* path;
    const char* interface;
} kScreenSavers[] = {
    {"/ScreenSaver", "org.freedesktop.ScreenSaver"},
    {"/org/freedesktop/ScreenSaver", "org.freedesktop.ScreenSaver"},
    {"/org/gnome/ScreenSaver", "org.gnome.ScreenSaver"},
    {"/org/cinnamon/ScreenSaver", "org.cinnamon.ScreenSaver"},
    {"/org/mate/ScreenSaver", "org.mate.ScreenSaver"},
    {"/org/xfce/ScreenSaver", "org.xfce.ScreenSaver"},
};
}

DBusWorkspace::DBusWorkspace() = default;

DBusWorkspace::~DBusWorkspace() = default;

void DBusWorkspace::watch(const QDBusConnection& systemBus, const QDBusConnection& sessionBus)
{
    m_systemBus = systemBus;
    if (sessionBus.isConnected())
        watchScreens(sessionBus);
    if (m_systemBus.isConnected())
        watchLogind();
}

bool DBusWorkspace::openUrl(const QUrl& url)
{
    return QDesktopServices::openUrl(url);
}

void DBusWorkspace::watchScreens(QDBusConnection sessionBus)
{
    // On the user's own bus any sender is the user's; naming one would make QtDBus wait for the bus's answer.
    for (const ScreenSaver& saver : kScreenSavers) {
        sessionBus.connect(QString(), QLatin1String(saver.path), QLatin1String(saver.interface),
            QStringLiteral("ActiveChanged"), this, SLOT(screenSaverActiveChanged(bool, QDBusMessage)));
    }
    sessionBus.connect(QString(), kDisplayConfigPath, kProperties, QStringLiteral("PropertiesChanged"), this,
        SLOT(propertiesChanged(QString, QVariantMap, QStringList)));
}

void DBusWorkspace::watchLogind()
{
    // On the system bus every user may send signals, so only logind's own count.
    m_systemBus.connect(kLogind, kLogindPath, kLogindManager, QStringLiteral("PrepareForSleep"), this,
        SLOT(prepareForSleep(bool)));
    m_systemBus.connect(kLogind, kLogindPath, kLogindManager, QStringLiteral("PrepareForShutdown"), this,
        SLOT(prepareForShutdown(bool)));
    m_logindWatcher.setConnection(m_systemBus);
    m_logindWatcher.addWatchedService(kLogind);
    connect(&m_logindWatcher, &QDBusServiceWatcher::serviceRegistered, this, [this] {
        releaseDelayLock();
        takeDelayLock();
        watchLockOfSession();
        if (m_isSleepAnnounced)
            prepareForSleep(false); // The logind that would have said so is gone.
    });
    takeDelayLock();
    watchLockOfSession();
}

void DBusWorkspace::watchLockOfSession()
{
    QDBusMessage message =
        QDBusMessage::createMethodCall(kLogind, kLogindPath, kLogindManager, QStringLiteral("GetSession"));
    // "auto" also finds the session of a program that systemd started, but signals carry the real path only.
    message << QStringLiteral("auto");
    const auto answered = [this](const QDBusPendingCallWatcher& call) {
        const QDBusPendingReply<QDBusObjectPath> reply = call;
        if (reply.isError())
            return;
        m_systemBus.connect(kLogind, reply.value().path(), kProperties, QStringLiteral("PropertiesChanged"),
            this, SLOT(propertiesChanged(QString, QVariantMap, QStringList)));
    };
    askBus(m_systemBus, message, this, answered, kCallTimeoutMs);
}

void DBusWorkspace::takeDelayLock()
{
    if (m_delayLock.isValid() || std::exchange(m_isTakingLock, true))
        return;
    QDBusMessage message =
        QDBusMessage::createMethodCall(kLogind, kLogindPath, kLogindManager, QStringLiteral("Inhibit"));
    message << QStringLiteral("sleep:shutdown") << QStringLiteral("Zelvo StandUp")
            << QStringLiteral("Stops the desk and saves the record") << QStringLiteral("delay");
    const auto answered = [this, request = m_lockRequest](const QDBusPendingCallWatcher& call) {
        if (request != m_lockRequest)
            return; // Asked of a logind that is gone, or for a sleep that has come: such a lock ends here.
        m_isTakingLock = false;
        const QDBusPendingReply<QDBusUnixFileDescriptor> reply = call;
        if (reply.isError())
            Log::line(QStringLiteral("Sleep cannot be delayed until the record is saved: %1")
                          .arg(reply.error().message()));
        else
            m_delayLock = reply.value();
    };
    askBus(m_systemBus, message, this, answered, kCallTimeoutMs);
}

void DBusWorkspace::releaseDelayLock()
{
    m_delayLock = QDBusUnixFileDescriptor();
    m_isTakingLock = false;
    ++m_lockRequest;
}

void DBusWorkspace::prepareForSleep(bool isAboutToSleep)
{
    m_isSleepAnnounced = isAboutToSleep;
    if (isAboutToSleep) {
        tell(m_willSleep);
        releaseDelayLock();
        return;
    }
    takeDelayLock();
    tell(m_didWake);
}

void DBusWorkspace::prepareForShutdown(bool isAboutToShutDown)
{
    if (!isAboutToShutDown) {
        takeDelayLock();
        return;
    }
    tell(m_willShutDown);
    releaseDelayLock();
}

void DBusWorkspace::screenSaverActiveChanged(bool isActive, const QDBusMessage& message)
{
    serviceSays(message.interface() + message.path(), isActive);
}

void DBusWorkspace::propertiesChanged(
    const QString& interface, const QVariantMap& changed, const QStringList&)
{
    if (interface == kDisplayConfig && changed.contains(kPowerSaveMode))
        serviceSays(interface, changed.value(kPowerSaveMode).toInt() > 0); // 0 is on, -1 cannot be told.
    else if (interface == kLogindSession && changed.contains(kLockedHint))
        serviceSays(interface, changed.value(kLockedHint).toBool());
}

void DBusWorkspace::xScreensChanged(bool isDark)
{
    if (!m_hasService)
        setDark(QStringLiteral("X server"), isDark);
}

void DBusWorkspace::serviceSays(const QString& service, bool isDark)
{
    m_hasService = true;
    setDark(service, isDark);
}

void DBusWorkspace::setDark(const QString& source, bool isDark)
{
    if (m_darkSources.contains(source) == isDark)
        return;
    if (!isDark) {
        // One source that is stuck (a locker that crashed) must not hide all that the others will say.
        m_darkSources.remove(source);
        m_isDark = false;
        return;
    }
    m_darkSources.insert(source);
    if (!std::exchange(m_isDark, true))
        tell(m_screensDidSleep);
}
