#pragma once

#include "platform/NotificationCenter.h"

#include <functional>
#include <memory>

class MainWindowController;
class Notification;
class NotificationWindowController;
class QMenu;
class StatusItem;

/// The status item's controller: owns the main window and the reminder window, shows and dismisses both, and
/// follows the desk's connection.
class MenuletController {
public:
    /// How the two windows are made on first use; this class knows nothing of what they need.
    struct Windows {
        std::function<std::unique_ptr<MainWindowController>(MenuletController&)> makeMainWindow;
        std::function<std::unique_ptr<NotificationWindowController>()> makeNotificationWindow;
    };

    explicit MenuletController(Windows windows);
    ~MenuletController();
    MenuletController(const MenuletController&) = delete;
    MenuletController& operator=(const MenuletController&) = delete;

    /// Nothing before set-up is complete; else closes an open reminder and brings the window to the front.
    void showMainWindow();
    void dismissMainWindow();
    void showNotification(const std::shared_ptr<Notification>& notification);
    /// Closes the reminder; does nothing (and creates nothing) when none was ever shown.
    void dismissNotification();
    void menuletClicked();
    void menuletRightClicked();
    void mainWindowButtonCloseClicked();
    /// Empty on purpose: the icon reacts to clicks alone.
    void menuDidClose() { }
    void menuletMouseEntered() { }
    void menuletMouseExited() { }

    [[nodiscard]] StatusItem* statusItem() const { return m_statusItem; }
    void setStatusItem(StatusItem* statusItem) { m_statusItem = statusItem; }
    [[nodiscard]] QMenu* statusMenu() const { return m_statusMenu; }
    void setStatusMenu(QMenu* statusMenu) { m_statusMenu = statusMenu; }
    /// Whether the main window is meant to be shown: flips with each left click, and closing the window ends
    /// it. "Open" in the menu does not set it, so that the next click brings that window to the front instead
    /// of taking away what was just asked for.
    [[nodiscard]] bool isActive() const { return m_active; }
    void setActive(bool active);
    [[nodiscard]] bool isDeviceConnected() const { return m_deviceConnected; }
    void setDeviceConnected(bool deviceConnected);
    [[nodiscard]] MainWindowController& mainWindow();
    [[nodiscard]] NotificationWindowController& notificationWindow();
    /// The reminder while it waits for an answer, else null.
    [[nodiscard]] NotificationWindowController* openNotification() const;
    /// Called after `active` or `deviceConnected` was set.
    void onChanged(std::function<void()> callback) { m_changed = std::move(callback); }

private:
    void observerDeviceStateDidChange(const PostedNotification& posted);
    void changed() const;

    Windows m_windows;
    StatusItem* m_statusItem = nullptr;
    QMenu* m_statusMenu = nullptr;
    bool m_active = false;
    bool m_deviceConnected = false;
    std::unique_ptr<MainWindowController> m_mainWindow;
    std::unique_ptr<NotificationWindowController> m_notificationWindow;
    std::function<void()> m_changed;
    NotificationCenter::Observation m_deviceStateObservation;
};
