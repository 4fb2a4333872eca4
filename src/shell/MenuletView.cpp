#include "shell/MenuletView.h"

#include "platform/Bundle.h"
#include "shell/MenuletController.h"
#include "shell/StatusItem.h"

#include <QPainter>
#include <QSvgRenderer>

namespace {
constexpr double kInset = 2.0; // At the status bar's own thickness; larger icons keep the proportion.
constexpr int kIconSizes[] = {16, 22, 24, 32, 44, 48, 64};
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

QPixmap MenuletView::drawIcon(bool deviceConnected, int pixels)
{
    const QString name =
        deviceConnected ? QStringLiteral("StatusItemIcon") : QStringLiteral("StatusItemIconDisconnected");
    QPixmap pixmap(pixels, pixels);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    const double inset = kInset * pixels / StatusItem::thickness();
    QSvgRenderer(Bundle::imagePath(name))
        .render(&painter, QRectF(pixmap.rect()).adjusted(inset, inset, -inset, -inset));
    return pixmap;
}

QIcon MenuletView::icon(bool deviceConnected)
{
    QIcon icon;
    for (const int size : kIconSizes)
        icon.addPixmap(drawIcon(deviceConnected, size));
    return icon;
}

void MenuletView::redraw()
{
    const bool connected = m_delegate->isDeviceConnected();
    m_statusItem.setIcon(icon(connected));
    m_statusItem.setToolTip(Bundle::main().localizedString(
        connected ? QStringLiteral("TrayTooltipConnected") : QStringLiteral("TrayTooltipDisconnected")));
}
