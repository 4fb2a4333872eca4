#include "TrayWatcher.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusPendingCallWatcher>

#include <utility>

namespace {
const QString kName = QStringLiteral("org.kde.StatusNotifierWatcher");
const QString kItem = QStringLiteral("org.kde.StatusNotifierItem");
const QString kItemPath = QStringLiteral("/StatusNotifierItem");
}

TrayWatcher::TrayWatcher(Callback happened)
    : m_happened(std::move(happened))
{
}

bool TrayWatcher::start()
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    for (const QString& news : {QStringLiteral("NewIcon"), QStringLiteral("NewToolTip")})
        bus.connect(QString(), kItemPath, kItem, news, this, SLOT(readAgain()));
    return bus.registerObject(
               QStringLiteral("/StatusNotifierWatcher"), this, QDBusConnection::ExportAllContents)
        && bus.registerService(kName);
}

void TrayWatcher::RegisterStatusNotifierItem(const QString& service)
{
    m_items.append(service);
    const QDBusReply<uint> reply = connection().interface()->servicePid(message().service());
    const qint64 processId = reply.isValid() ? qint64(reply.value()) : 0;
    m_happened(processId, Event::Registered);
    read(message().service(), processId);
    Q_EMIT StatusNotifierItemRegistered(service);
}

void TrayWatcher::RegisterStatusNotifierHost(const QString&) { }

void TrayWatcher::readAgain()
{
    read(message().service(), 0);
}

void TrayWatcher::read(const QString& service, qint64 processId)
{
    QDBusMessage question = QDBusMessage::createMethodCall(
        service, kItemPath, QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("GetAll"));
    question << kItem;
    auto* const call = new QDBusPendingCallWatcher(connection().asyncCall(question), this);
    connect(
        call, &QDBusPendingCallWatcher::finished, this, [this, processId](QDBusPendingCallWatcher* ended) {
            ended->deleteLater();
            m_happened(processId, Event::Read);
        });
}
