#pragma once

#include "platform/RunLoop.h"

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QObject>

#include <functional>
#include <memory>
#include <optional>

class QDBusPendingCallWatcher;
class XTrayWatch;

/// Waits until a tray can show an icon, and says so once.
///
/// QSystemTrayIcon asks for a tray a single time in the life of a process and remembers the answer: an icon
/// made before the tray is there never appears. So nothing may touch QSystemTrayIcon before this object has
/// called back.
///
/// A tray is a registered StatusNotifier host on the session bus or, on the xcb platform and without such a
/// host, the owner of the X11 tray selection. What is asked over D-Bus is not
/// waited for; the X server's answers are.
class TrayHost : public QObject {
    Q_OBJECT

public:
    using Callback = std::function<void()>;
    enum class X11Tray { Ignored, Accepted };

    /// @param sessionBus may be without connection. @param x11Tray Accepted only on the xcb platform.
    TrayHost(QDBusConnection sessionBus, X11Tray x11Tray);
    ~TrayHost() override;

    /// Starts looking. The callback comes once, on the main loop and never within this call.
    void whenAvailable(Callback callback);
    [[nodiscard]] bool isAvailable() const { return m_available; }

private Q_SLOTS:
    void hostRegistered();

private:
    void watchBus();
    void askWatcher();
    void watcherAnswered(const QDBusPendingCallWatcher& call);
    void watcherIsMissing();
    void considerX11Tray();
    void found();

    QDBusConnection m_bus;
    X11Tray m_x11Tray;
    Callback m_callback;
    std::unique_ptr<QDBusServiceWatcher> m_serviceWatcher;
    std::unique_ptr<XTrayWatch> m_xTray;
    std::optional<bool> m_hasWatcher; ///< nothing until the bus has answered
    bool m_available = false;
    TimerScope m_timers;
};
