#pragma once

#include <QIcon>
#include <QPixmap>

class MenuletController;
class StatusItem;

/// What the status item shows and hears: draws the icon from the controller's state and hands clicks to it.
class MenuletView {
public:
    explicit MenuletView(StatusItem& statusItem);
    MenuletView(const MenuletView&) = delete;
    MenuletView& operator=(const MenuletView&) = delete;
    ~MenuletView();

    /// Observes the controller, whose changes redraw the icon, and gives it the clicks. It outlives the view.
    void setDelegate(MenuletController* delegate);
    [[nodiscard]] MenuletController* delegate() const { return m_delegate; }

    void mouseDown();
    void rightMouseDown();
    void mouseEntered();
    void mouseExited();

    /// Draws the icon of the connection state at one size: the whole picture inset by 2 of 22 parts on each
    /// side.
    static QPixmap drawIcon(bool deviceConnected, int pixels);
    /// The icon at all sizes that tray hosts ask for.
    static QIcon icon(bool deviceConnected);

private:
    void redraw();

    StatusItem& m_statusItem;
    MenuletController* m_delegate = nullptr;
};
