#include "platform/linux/ColorSchemePortal.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

#include <utility>

namespace {
const QString kPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString kInterface = QStringLiteral("org.freedesktop.portal.Settings");
const QString kGroup = QStringLiteral("org.freedesktop.appearance");
const QString kKey = QStringLiteral("color-scheme");
constexpr uint kPrefersDark = 1;
constexpr uint kPrefersLight = 2;

std::optional<bool> isDark(QVariant value)
{
    while (value.canConvert<QDBusVariant>()) // Read answers with a variant in a variant.
        value = value.value<QDBusVariant>().variant();
    const uint scheme = value.toUInt();
    return scheme == kPrefersDark || scheme == kPrefersLight ? std::optional(scheme == kPrefersDark)
                                                             : std::nullopt;
}
}

ColorSchemePortal::ColorSchemePortal(QDBusConnection sessionBus, Callback callback)
    : m_bus(std::move(sessionBus))
    , m_callback(std::move(callback))
{
}

void ColorSchemePortal::ask()
{
    // Without a sender's name: with one, QtDBus would ask the bus for its owner and wait for the answer.
    m_bus.connect(QString(), kPath, kInterface, QStringLiteral("SettingChanged"), this,
        SLOT(settingChanged(QString, QString, QDBusVariant)));
    QDBusMessage message = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.portal.Desktop"), kPath, kInterface, QStringLiteral("Read"));
    message << kGroup << kKey;
    auto* const call = new QDBusPendingCallWatcher(m_bus.asyncCall(message), this);
    connect(call, &QDBusPendingCallWatcher::finished, this, [this](QDBusPendingCallWatcher* finished) {
        finished->deleteLater();
        const QDBusPendingReply<QDBusVariant> reply = *finished;
        m_callback(reply.isError() ? std::nullopt : isDark(reply.value().variant()));
    });
}

void ColorSchemePortal::settingChanged(const QString& group, const QString& key, const QDBusVariant& value)
{
    if (group == kGroup && key == kKey)
        m_callback(isDark(value.variant()));
}
