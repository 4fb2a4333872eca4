#pragma once

#include "desk/AdoptedDesk.h"
#include "desk/DeskHold.h"
#include "platform/RunLoop.h"
#include "shell/NotificationView.h"
#include "ui/MouseEventButton.h"

#include <memory>

class ErrorLine;
class Notification;
class PanelWindow;
class WindowFade;
class Workspace;

namespace Ui {
class NotificationWindow;
}

/// The reminder: offers to move the desk, to snooze or to skip. It snoozes by itself when ignored and leaves
/// shortly after the desk was moved, but not while the pointer rests on it, nor while the keyboard alone is
/// used in it. It comes without the keyboard, so that a key meant for another program never answers it;
/// Alt+Tab, a click and a further start give it that.
class NotificationWindowController final : public MouseEventButtonDelegate, public NotificationViewDelegate {
public:
    explicit NotificationWindowController(Workspace& workspace);
    ~NotificationWindowController();
    NotificationWindowController(const NotificationWindowController&) = delete;
    NotificationWindowController& operator=(const NotificationWindowController&) = delete;

    [[nodiscard]] const std::shared_ptr<Notification>& notification() const { return m_notification; }
    /// The same object again changes nothing; its timer goes on.
    void setNotification(std::shared_ptr<Notification> notification);
    void updateControls();
    void setTabelHeight(int32_t position); ///< raw, 0.1 mm
    void fadeIn();
    /// Gives the keyboard to the open reminder. False when it has it already.
    bool takeKeyboard();
    void buttonSnoozeClicked();
    void snooze();
    void buttonCancelClicked();
    void cancelPeriod();
    void dismiss();
    void startDismissTimer();
    void stopDismissTimer();
    void onDismissTimerTick();

    /// Whether one of the movement buttons has been pressed and released during this reminder.
    [[nodiscard]] bool actionDone() const { return m_actionDone; }
    [[nodiscard]] const TimerRef& dismissTimer() const { return m_dismissTimer; }
    [[nodiscard]] bool isWindowVisible() const;
    [[nodiscard]] bool isOpen() const; ///< visible, and not leaving
    [[nodiscard]] QWidget& window() const;

    void notificationViewMouseEntered() override;
    void notificationViewMouseExited() override;
    void mouseEventButtonMouseDown(MouseEventButton& button) override;
    void mouseEventButtonMouseUp(MouseEventButton& button) override;

private:
    void awakeFromNib();
    void setupGUI();
    void connectButtons();
    void keyboardLeft();
    void moveToMemory(ZelvoHIDDevice& desk);
    [[nodiscard]] bool isButtonHeld() const;

    Workspace& m_workspace;
    std::shared_ptr<Notification> m_notification;
    bool m_actionDone = false;
    DeskHold m_deskHold; // Before the window, whose end lets go of its buttons.
    std::unique_ptr<PanelWindow> m_window;
    std::unique_ptr<Ui::NotificationWindow> m_ui;
    std::unique_ptr<WindowFade> m_fade;
    std::unique_ptr<ErrorLine> m_errorLine;
    AdoptedDesk::Observation m_heights;
    TimerRef m_dismissTimer;
    TimerScope m_timers;
};
