#include "shell/MenuletView.h"

#include "platform/Bundle.h"
#include "shell/MenuletController.h"
#include "shell/StatusItem.h"

#include <QIconEngine>
#include <QPainter>
#include <QSvgRenderer>

namespace {
constexpr double kInset = 2.0; // At the status bar's own thickness; larger icons keep the proportion.

/// Draws the icon at whatever size the tray host asks for, and only then: crisp at each, and nothing is kept.
class StatusIconEngine final : public QIconEngine {
public:
    explicit StatusIconEngine(bool deviceConnected)
        : m_deviceConnected(deviceConnected)
    {
    }

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode, QIcon::State) override
    {
        const QString name = m_deviceConnected ? QStringLiteral("StatusItemIcon")
                                               : QStringLiteral("StatusItemIconDisconnected");
        const double inset = kInset * rect.width() / StatusItem::thickness();
        QSvgRenderer(Bundle::imagePath(name))
            .render(painter, QRectF(rect).adjusted(inset, inset, -inset, -inset));
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, pixmap.rect(), mode, state);
        return pixmap;
    }

    [[nodiscard]] QIconEngine* clone() const override { return new StatusIconEngine(m_deviceConnected); }

private:
    bool m_deviceConnected;
};
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
    return QIcon(new StatusIconEngine(deviceConnected));
}

void MenuletView::redraw()
{
    const bool connected = m_delegate->isDeviceConnected();
    if (m_shownConnected == connected)
        return; // The window's opening and closing change nothing that is drawn.
    m_shownConnected = connected;
    m_statusItem.setIcon(icon(connected));
    m_statusItem.setToolTip(Bundle::main().localizedString(
        connected ? QStringLiteral("TrayTooltipConnected") : QStringLiteral("TrayTooltipDisconnected")));
}
