#pragma once

#include <QIcon>

#include <optional>

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

    /// The icon of the connection state, drawn at each size that is asked for: the whole picture inset by 2
    /// of 22 parts on each side.
    static QIcon icon(bool deviceConnected);

private:
    void redraw();

    StatusItem& m_statusItem;
    MenuletController* m_delegate = nullptr;
    std::optional<bool> m_shownConnected;
};
