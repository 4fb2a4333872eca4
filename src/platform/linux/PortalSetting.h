#pragma once

#include <QDBusConnection>
#include <QDBusVariant>
#include <QObject>

#include <functional>
#include <optional>

/// One of the desktop's settings, as its settings portal tells. Asking starts the portal where it does not
/// run; whoever needs no answer does not ask. All calls are asynchronous.
class PortalSetting final : public QObject {
    Q_OBJECT

public:
    /// An invalid value where the desktop does not say, or has no portal.
    using Callback = std::function<void(const QVariant& value)>;

    /// @param sessionBus may be without connection.
    PortalSetting(QDBusConnection sessionBus, QString group, QString key, Callback callback);

    /// Calls back when the answer is there, and again at each change.
    void ask();

private Q_SLOTS:
    void settingChanged(const QString& group, const QString& key, const QDBusVariant& value);

private:
    QDBusConnection m_bus;
    QString m_group;
    QString m_key;
    Callback m_callback;
};

/// What org.freedesktop.appearance's color-scheme says; nothing for no preference.
[[nodiscard]] std::optional<bool> isDarkScheme(const QVariant& colorScheme);
