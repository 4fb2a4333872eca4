#include "platform/linux/DBusIdleBackend.h"

#include "platform/DBusCall.h"
#include "platform/RunLoop.h"

#include <utility>

namespace {
constexpr int kCallTimeoutMs = 2000;

bool isWithoutOwner(const QDBusMessage& reply)
{
    return reply.errorName() == QStringLiteral("org.freedesktop.DBus.Error.NameHasNoOwner")
        || reply.errorName() == QStringLiteral("org.freedesktop.DBus.Error.ServiceUnknown");
}
}

DBusIdleBackend::DBusIdleBackend(QDBusConnection bus, Method method)
    : m_bus(std::move(bus))
    , m_method(std::move(method))
{
    if (m_bus.isConnected())
        watchOwner();
}

DBusIdleBackend::~DBusIdleBackend() = default;

void DBusIdleBackend::watchOwner()
{
    m_watcher.setConnection(m_bus);
    m_watcher.setWatchMode(QDBusServiceWatcher::WatchForOwnerChange);
    m_watcher.addWatchedService(m_method.service);
    connect(&m_watcher, &QDBusServiceWatcher::serviceOwnerChanged, this,
        [this](const QString&, const QString&, const QString& newOwner) {
            m_hasOwner = !newOwner.isEmpty();
            ++m_ownerChanges;
            ownerChanged();
        });
}

void DBusIdleBackend::ask(Answer answer)
{
    if (!m_hasOwner || !m_bus.isConnected())
        return answer(std::nullopt);
    QDBusMessage message =
        QDBusMessage::createMethodCall(m_method.service, m_method.path, m_method.interface, m_method.name);
    message.setAutoStartService(false);
    const auto answered = [this, answer = std::move(answer), changes = m_ownerChanges](
                              const QDBusPendingCallWatcher& call) {
        const QDBusMessage reply = call.reply();
        if (isWithoutOwner(reply) && changes == m_ownerChanges)
            m_hasOwner = false;
        answer(lastInputFrom(reply));
    };
    askBus(m_bus, message, this, answered, kCallTimeoutMs);
}

std::optional<double> DBusIdleBackend::lastInputFrom(const QDBusMessage& reply)
{
    bool isNumber = false;
    const double number = reply.arguments().value(0).toDouble(&isNumber);
    if (reply.type() != QDBusMessage::ReplyMessage || !isNumber)
        return std::nullopt;
    const std::optional<double> seconds = secondsFrom(number);
    return seconds ? std::optional(RunLoop::main().monotonicNow() - *seconds) : std::nullopt;
}
