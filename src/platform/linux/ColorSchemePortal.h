#pragma once

#include <QDBusConnection>
#include <QDBusVariant>
#include <QObject>

#include <functional>
#include <optional>

/// Whether the desktop prefers dark windows, as its settings portal tells (org.freedesktop.appearance,
/// color-scheme). Asking starts the portal where it does not run; whoever does not follow the desktop does
/// not ask. All calls are asynchronous.
class ColorSchemePortal final : public QObject {
    Q_OBJECT

public:
    /// Nothing where the desktop has no preference, or no portal.
    using Callback = std::function<void(std::optional<bool> isDark)>;

    /// @param sessionBus may be without connection.
    ColorSchemePortal(QDBusConnection sessionBus, Callback callback);

    /// Calls back when the answer is there, and again at each change.
    void ask();

private Q_SLOTS:
    void settingChanged(const QString& group, const QString& key, const QDBusVariant& value);

private:
    QDBusConnection m_bus;
    Callback m_callback;
};
