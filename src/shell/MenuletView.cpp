#include "shell/MenuletView.h"

#include "shell/MenuletController.h"
#include "shell/PictureIcon.h"
#include "shell/StatusItem.h"

namespace {
constexpr double kInset = 2.0; // At the status bar's own thickness; larger icons keep the proportion.
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

QIcon MenuletView::icon(bool deviceConnected)
{
    return pictureIcon(
        deviceConnected ? QStringLiteral("StatusItemIcon") : QStringLiteral("StatusItemIconDisconnected"),
        kInset / StatusItem::thickness());
}

void MenuletView::redraw()
{
    const bool connected = m_delegate->isDeviceConnected();
    if (m_shownConnected == connected)
        return; // The window's opening and closing change nothing that is drawn.
    m_shownConnected = connected;
    m_statusItem.setIcon(icon(connected));
    m_statusItem.setToolTip(connected ? qtTrId("TrayTooltipConnected") : qtTrId("TrayTooltipDisconnected"));
}
