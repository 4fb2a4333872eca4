#pragma once

#include "platform/NotificationCenter.h"
#include "platform/RunLoop.h"
#include "shell/StatusIcon.h"
#include "shell/StatusItemContent.h"

#include <memory>
#include <vector>

class MenuletController;
class StatusItem;

/// What the status item shows and hears: draws the icon from the controller's state and the desk's, says in
/// the tool tip how things stand, and hands clicks to the controller. The picture is drawn whole, inset by 2
/// of 22 parts on each side.
///
/// A change of the connection is shown at once. The tool tip follows the passing of time once a minute, and a
/// moving desk when it stands still: each change of it wakes the host.
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

private:
    void redraw();
    void redrawSoon();
    void redrawAfter(double seconds);
    void observe();

    StatusItem& m_statusItem;
    MenuletController* m_delegate = nullptr;
    StatusItemContent m_shown;
    PanelGround m_ground = PanelGround::Unknown;
    std::vector<NotificationCenter::Observation> m_observations;
    std::shared_ptr<void> m_heights; ///< hears when the desk stands still
    TimerRef m_redrawing;
    TimerScope m_timers;
};
