#include "shell/StatusItem.h"

#include "ui/WindowPlacement.h"

#include <QMenu>

StatusItem::StatusItem() = default;

StatusItem::~StatusItem() = default;

void StatusItem::setIcon(const QIcon& icon)
{
    m_icon = icon;
    if (m_trayIcon)
        m_trayIcon->setIcon(icon);
}

void StatusItem::setToolTip(const QString& toolTip)
{
    m_toolTip = toolTip;
    if (m_trayIcon)
        m_trayIcon->setToolTip(toolTip);
}

void StatusItem::setMenu(QMenu* menu)
{
    m_menu = menu;
}

void StatusItem::appear()
{
    if (m_trayIcon)
        return;
    m_trayIcon = std::make_unique<QSystemTrayIcon>(m_icon);
    m_trayIcon->setToolTip(m_toolTip);
    m_trayIcon->setContextMenu(m_menu); // Hosts read the menu when the icon registers: before show().
    connect(m_trayIcon.get(), &QSystemTrayIcon::activated, this, &StatusItem::activated);
    m_trayIcon->show();
}

void StatusItem::popUpMenu()
{
    if (m_menu && !m_menu->isVisible())
        m_menu->popup(WindowPlacement::pointer());
}

void StatusItem::activated(QSystemTrayIcon::ActivationReason reason)
{
    // Over D-Bus a right click arrives only from a host that does not draw the menu itself.
    if (reason == QSystemTrayIcon::Trigger && m_clicked)
        m_clicked();
    else if (reason == QSystemTrayIcon::Context && m_rightClicked)
        m_rightClicked();
}
