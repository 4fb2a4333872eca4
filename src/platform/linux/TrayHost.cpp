#include "platform/linux/TrayHost.h"

#include "platform/DBusCall.h"
#include "platform/linux/XTrayWatch.h"

#include <QDBusPendingReply>
#include <QDBusVariant>

#include <utility>

namespace {
constexpr int kCallTimeoutMs = 5000;
/// So long an X11 tray waits for a host of a watcher that is there already: panels that serve both start
/// slowly.
constexpr double kHostGraceSeconds = 5.0;

const QString kWatcherName = QStringLiteral("org.kde.StatusNotifierWatcher");
const QString kWatcherPath = QStringLiteral("/StatusNotifierWatcher");
}

TrayHost::TrayHost(QDBusConnection sessionBus, X11Tray x11Tray)
    : m_bus(std::move(sessionBus))
    , m_x11Tray(x11Tray)
{
}

TrayHost::~TrayHost() = default;

void TrayHost::whenAvailable(Callback callback)
{
    m_callback = std::move(callback);
    watchBus();
}

void TrayHost::watchBus()
{
    if (!m_bus.isConnected()) {
        m_timers.schedule(0, RunLoop::Repeat::No, [this](Timer&) { watcherIsMissing(); });
        return;
    }
    m_serviceWatcher = std::make_unique<QDBusServiceWatcher>(kWatcherName, m_bus);
    connect(m_serviceWatcher.get(), &QDBusServiceWatcher::serviceRegistered, this, [this] { askWatcher(); });
    connect(m_serviceWatcher.get(), &QDBusServiceWatcher::serviceUnregistered, this,
        [this] { watcherIsMissing(); });
    // Without a sender's name: with one, QtDBus would ask the bus for its owner and wait for the answer.
    m_bus.connect(QString(), kWatcherPath, kWatcherName, QStringLiteral("StatusNotifierHostRegistered"), this,
        SLOT(hostRegistered()));
    askWatcher();
}

void TrayHost::askWatcher()
{
    if (m_available)
        return;
    QDBusMessage message = QDBusMessage::createMethodCall(
        kWatcherName, kWatcherPath, QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
    message << kWatcherName << QStringLiteral("IsStatusNotifierHostRegistered");
    message.setAutoStartService(false);
    askBus(
        m_bus, message, this, [this](const QDBusPendingCallWatcher& call) { watcherAnswered(call); },
        kCallTimeoutMs);
}

void TrayHost::watcherAnswered(const QDBusPendingCallWatcher& call)
{
    const QDBusPendingReply<QDBusVariant> reply = call;
    if (reply.isError()) {
        watcherIsMissing();
        if (reply.error().type() == QDBusError::NoReply)
            askWatcher(); // It is there, and slow; what its hosts told before, nobody repeats.
        return;
    }
    m_hasWatcher = true;
    if (reply.value().variant().toBool())
        found();
    else
        m_timers.schedule(kHostGraceSeconds, RunLoop::Repeat::No, [this](Timer&) { watcherIsMissing(); });
}

void TrayHost::hostRegistered()
{
    found();
}

void TrayHost::watcherIsMissing()
{
    m_hasWatcher = false;
    considerX11Tray();
}

/// Where a watcher is there, nothing is asked of the X server.
void TrayHost::considerX11Tray()
{
    if (m_x11Tray == X11Tray::Ignored || m_hasWatcher != false)
        return;
    if (!m_xTray)
        m_xTray = std::make_unique<XTrayWatch>([this] { considerX11Tray(); });
    if (m_xTray->isTrayThere())
        found();
}

void TrayHost::found()
{
    if (std::exchange(m_available, true))
        return;
    m_timers.schedule(0, RunLoop::Repeat::No, [this](Timer&) {
        m_serviceWatcher.reset();
        m_xTray.reset();
        if (const Callback callback = std::exchange(m_callback, {}))
            callback();
    });
}
