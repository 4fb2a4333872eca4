#include "shell/MenuletView.h"

#include "desk/AdoptedDesk.h"
#include "shell/MenuletController.h"
#include "shell/StatusItem.h"

namespace {
constexpr double kMinute = 60;
}

MenuletView::MenuletView(StatusItem& statusItem)
    : m_statusItem(statusItem)
{
    m_statusItem.onClicked([this] { mouseDown(); });
    m_statusItem.onRightClicked([this] { rightMouseDown(); });
}

MenuletView::~MenuletView()
{
    m_statusItem.onClicked({});
    m_statusItem.onRightClicked({});
    if (m_delegate)
        m_delegate->onChanged({});
}

void MenuletView::setDelegate(MenuletController* delegate)
{
    m_delegate = delegate;
    if (!m_delegate)
        return;
    m_delegate->onChanged([this] { redraw(); });
    observe();
    redraw();
}

void MenuletView::mouseDown()
{
    if (m_delegate)
        m_delegate->menuletClicked();
}

void MenuletView::rightMouseDown()
{
    if (m_delegate)
        m_delegate->menuletRightClicked();
}

void MenuletView::mouseEntered()
{
    if (m_delegate)
        m_delegate->menuletMouseEntered();
}

void MenuletView::mouseExited()
{
    if (m_delegate)
        m_delegate->menuletMouseExited();
}

void MenuletView::observe()
{
    m_observations.clear();
    NotificationCenter& center = NotificationCenter::defaultCenter();
    // Told in the middle of the change.
    const auto redrawAfterwards = [this](const PostedNotification&) { redrawSoon(); };
    for (const QString& news :
        {ZelvoController::kIdleDidChange, ScheduleManager::kNewSession, ZelvoHIDDevice::kErrorCodeRemoved})
        m_observations.push_back(center.addObserver(news, redrawAfterwards));
    m_observations.push_back(
        center.addObserver(ZelvoHIDDevice::kErrorCode, [this](const PostedNotification&) {
            if (m_shown.picture != StatusItemContent::kErrorPicture) // Each report repeats it.
                redrawSoon();
        }));
}

void MenuletView::redraw()
{
    const bool isConnected = m_delegate->isDeviceConnected();
    const PanelGround ground = panelGround();
    const StatusItemContent content = StatusItemContent::now(isConnected);
    if (m_shown.picture != content.picture || m_ground != ground)
        m_statusItem.setIcon(statusIcon(content.picture, ground));
    if (m_shown.text != content.text) // The window's opening and closing change nothing that is shown.
        m_statusItem.setToolTip(content.text);
    m_shown = content;
    m_ground = ground;
    if (isConnected && !m_heights) // The hub was not there at the start.
        m_heights = AdoptedDesk::observeRest([this] { redraw(); });
    if (!isConnected)
        invalidate(m_redrawing);
    else if (!m_redrawing || !m_redrawing->isValid()) // What is to follow a change still does.
        redrawAfter(kMinute);
}

void MenuletView::redrawSoon()
{
    invalidate(m_redrawing);
    redrawAfter(0);
}

void MenuletView::redrawAfter(double seconds)
{
    m_redrawing = m_timers.schedule(seconds, RunLoop::Repeat::No, [this](Timer&) { redraw(); });
}
