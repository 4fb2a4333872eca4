#pragma once

#include <QObject>
#include <QString>
#include <QtDBus/QDBusContext>

#include <functional>

/// A tray host for measurements: answers as the desktop's StatusNotifierWatcher and reports each icon that
/// registers.
class TrayWatcher : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierWatcher")
    Q_PROPERTY(bool IsStatusNotifierHostRegistered READ isHostRegistered)
    Q_PROPERTY(int ProtocolVersion READ protocolVersion)
    Q_PROPERTY(QStringList RegisteredStatusNotifierItems READ items)

public:
    /// @param registered called with the process that registered an icon
    explicit TrayWatcher(std::function<void(qint64 processId)> registered);

    /// False when another watcher holds the name on this bus.
    bool start();
    [[nodiscard]] bool isHostRegistered() const { return true; }
    [[nodiscard]] int protocolVersion() const { return 0; }
    [[nodiscard]] QStringList items() const { return m_items; }

public Q_SLOTS:
    void RegisterStatusNotifierItem(const QString& service);
    void RegisterStatusNotifierHost(const QString& service);

Q_SIGNALS:
    void StatusNotifierHostRegistered();
    void StatusNotifierItemRegistered(const QString& service);

private:
    std::function<void(qint64)> m_registered;
    QStringList m_items;
};
