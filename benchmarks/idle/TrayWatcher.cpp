#include "TrayWatcher.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>

#include <utility>

namespace {
const QString kName = QStringLiteral("org.kde.StatusNotifierWatcher");
}

TrayWatcher::TrayWatcher(std::function<void(qint64)> registered)
    : m_registered(std::move(registered))
{
}

bool TrayWatcher::start()
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    return bus.registerObject(
               QStringLiteral("/StatusNotifierWatcher"), this, QDBusConnection::ExportAllContents)
        && bus.registerService(kName);
}

void TrayWatcher::RegisterStatusNotifierItem(const QString& service)
{
    m_items.append(service);
    const QDBusReply<uint> processId = connection().interface()->servicePid(message().service());
    m_registered(processId.isValid() ? qint64(processId.value()) : 0);
    Q_EMIT StatusNotifierItemRegistered(service);
}

void TrayWatcher::RegisterStatusNotifierHost(const QString&) { }
