#pragma once

#include <QObject>
#include <QString>
#include <QtDBus/QDBusContext>

#include <functional>

// NOLINTBEGIN(readability-identifier-naming): As methods and signals are spelled on the bus.
/// A tray host for measurements: answers as the desktop's StatusNotifierWatcher, and reads each icon as a
/// panel does: when it registers, and when it tells of a new picture or tool tip.
class TrayWatcher : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierWatcher")
    Q_PROPERTY(bool IsStatusNotifierHostRegistered READ isHostRegistered)
    Q_PROPERTY(int ProtocolVersion READ protocolVersion)
    Q_PROPERTY(QStringList RegisteredStatusNotifierItems READ items)

public:
    enum class Event { Registered, Read };
    using Callback = std::function<void(qint64 processId, Event event)>;

    explicit TrayWatcher(Callback happened);

    /// False when another watcher holds the name on this bus.
    bool start();
    [[nodiscard]] bool isHostRegistered() const { return true; }
    [[nodiscard]] int protocolVersion() const { return 0; }
    [[nodiscard]] QStringList items() const { return m_items; }

public Q_SLOTS:
    void RegisterStatusNotifierItem(const QString& service);
    void RegisterStatusNotifierHost(const QString& service);
    void readAgain();

Q_SIGNALS:
    void StatusNotifierHostRegistered();
    void StatusNotifierItemRegistered(const QString& service);

private:
    void read(const QString& service, qint64 processId);

    Callback m_happened;
    QStringList m_items;
};
// NOLINTEND(readability-identifier-naming)
