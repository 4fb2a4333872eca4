#pragma once

#include "platform/linux/IdleBackend.h"

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QObject>

class QDBusMessage;

/// Idle time from a service on the user's bus that answers a number. A service that has no owner is not
/// asked; its name is watched instead.
class DBusIdleBackend : public QObject, public IdleBackend {
public:
    struct Method {
        QString service;
        QString path;
        QString interface;
        QString name;
    };

    ~DBusIdleBackend() override;
    void ask(Answer answer) final;

protected:
    /// @param bus may be without connection.
    DBusIdleBackend(QDBusConnection bus, Method method);

    /// What the number means, in seconds; nothing while that is unknown.
    [[nodiscard]] virtual std::optional<double> secondsFrom(double number) = 0;
    /// Another program answers from now on.
    virtual void ownerChanged() { }

private:
    void watchOwner();
    [[nodiscard]] std::optional<double> lastInputFrom(const QDBusMessage& reply);

    QDBusConnection m_bus;
    Method m_method;
    QDBusServiceWatcher m_watcher;
    bool m_hasOwner = true; ///< as long as nothing else is known
    int m_ownerChanges = 0;
};
