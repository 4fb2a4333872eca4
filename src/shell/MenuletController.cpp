#include "shell/MenuletController.h"

#include "data/AppProperties.h"
#include "desk/ZelvoController.h"
#include "shell/MainWindowController.h"
#include "shell/Notification.h"
#include "shell/NotificationWindowController.h"
#include "shell/StatusItem.h"

#include <utility>

MenuletController::MenuletController(Windows windows)
    : m_windows(std::move(windows))
    , m_deviceStateObservation(
          NotificationCenter::defaultCenter().addObserver(ZelvoController::kDeviceStateDidChange,
              [this](const PostedNotification& posted) { observerDeviceStateDidChange(posted); }))
{
}

MenuletController::~MenuletController() = default;

void MenuletController::showMainWindow()
{
    if (!AppProperties::instance().isUserSetupCompleted())
        return;
    dismissNotification();
    MainWindowController& controller = mainWindow();
    controller.updateData();
    controller.startUpdateDataTimer();
    controller.orderFront();
}

void MenuletController::dismissMainWindow()
{
    mainWindow().close();
}

void MenuletController::showNotification(const std::shared_ptr<Notification>& notification)
{
    NotificationWindowController& controller = notificationWindow();
    controller.setNotification(notification);
    controller.fadeIn();
}

void MenuletController::dismissNotification()
{
    if (m_notificationWindow)
        m_notificationWindow->dismiss();
}

void MenuletController::menuletClicked()
{
    // Before set-up only `active` flips: it counts the clicks, whatever they could show.
    setActive(!m_active);
    if (m_active)
        showMainWindow();
    else
        dismissMainWindow();
}

void MenuletController::menuletRightClicked()
{
    if (m_statusItem)
        m_statusItem->popUpMenu();
}

void MenuletController::mainWindowButtonCloseClicked()
{
    setActive(false);
    dismissMainWindow();
}

void MenuletController::setActive(bool active)
{
    m_active = active;
    changed();
}

void MenuletController::setDeviceConnected(bool deviceConnected)
{
    m_deviceConnected = deviceConnected;
    changed();
}

MainWindowController& MenuletController::mainWindow()
{
    if (!m_mainWindow)
        m_mainWindow = m_windows.makeMainWindow(*this);
    return *m_mainWindow;
}

NotificationWindowController& MenuletController::notificationWindow()
{
    if (!m_notificationWindow)
        m_notificationWindow = m_windows.makeNotificationWindow();
    return *m_notificationWindow;
}

NotificationWindowController* MenuletController::openNotification() const
{
    return m_notificationWindow && m_notificationWindow->isOpen() ? m_notificationWindow.get() : nullptr;
}

void MenuletController::observerDeviceStateDidChange(const PostedNotification& posted)
{
    const auto device = std::static_pointer_cast<ZelvoHIDDevice>(posted.object);
    setDeviceConnected(device && device->isActive());
}

void MenuletController::changed() const
{
    if (m_changed)
        m_changed();
}
