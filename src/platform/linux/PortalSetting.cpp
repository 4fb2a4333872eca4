#include "platform/linux/PortalSetting.h"

#include "platform/DBusCall.h"

#include <QDBusPendingReply>

#include <utility>

namespace {
const QString kPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString kInterface = QStringLiteral("org.freedesktop.portal.Settings");

/// Read answers with a variant in a variant.
QVariant unwrapped(QVariant value)
{
    while (value.canConvert<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    return value;
}
}

std::optional<bool> isDarkScheme(const QVariant& colorScheme)
{
    constexpr uint kPrefersDark = 1;
    constexpr uint kPrefersLight = 2;
    const uint scheme = colorScheme.toUInt();
    return scheme == kPrefersDark || scheme == kPrefersLight ? std::optional(scheme == kPrefersDark)
                                                             : std::nullopt;
}

PortalSetting::PortalSetting(QDBusConnection sessionBus, QString group, QString key, Callback callback)
    : m_bus(std::move(sessionBus))
    , m_group(std::move(group))
    , m_key(std::move(key))
    , m_callback(std::move(callback))
{
    // A signal is connected only where its types are known by their names. QtDBus makes its own known with
    // the first message of a process, which may be the question that follows the connecting.
    qRegisterMetaType<QDBusVariant>();
}

void PortalSetting::ask()
{
    // Without a sender's name: with one, QtDBus would ask the bus for its owner and wait for the answer.
    m_bus.connect(QString(), kPath, kInterface, QStringLiteral("SettingChanged"), this,
        SLOT(settingChanged(QString, QString, QDBusVariant)));
    QDBusMessage message = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.portal.Desktop"), kPath, kInterface, QStringLiteral("Read"));
    message << m_group << m_key;
    askBus(m_bus, message, this, [this](const QDBusPendingCallWatcher& call) {
        const QDBusPendingReply<QDBusVariant> reply = call;
        m_callback(reply.isError() ? QVariant() : unwrapped(reply.value().variant()));
    });
}

void PortalSetting::settingChanged(const QString& group, const QString& key, const QDBusVariant& value)
{
    if (group == m_group && key == m_key)
        m_callback(unwrapped(value.variant()));
}
