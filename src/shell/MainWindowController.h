#pragma once

#include "data/ActivityPersister.h"
#include "desk/AdoptedDesk.h"
#include "desk/DeskHold.h"
#include "platform/NotificationCenter.h"
#include "platform/RunLoop.h"
#include "ui/MouseEventButton.h"

#include <functional>
#include <memory>
#include <optional>
#include <vector>

class ErrorLine;
class MenuletController;
class PanelWindow;
class QWidget;
class Workspace;

namespace Ui {
class MainWindow;
}

/// The window behind the status item: today's progress, the current session, the desk's height, and the
/// buttons that move the desk while they are held.
class MainWindowController final : public MouseEventButtonDelegate {
public:
    struct Dependencies {
        ManagedObjectContextProvider managedObjectContext;
        MenuletController* delegate; ///< told when Close is pressed
        Workspace& workspace; ///< opens links
        std::function<void()> showHistory;
        std::function<void()> showSettings;
    };

    explicit MainWindowController(Dependencies dependencies);
    ~MainWindowController();
    MainWindowController(const MainWindowController&) = delete;
    MainWindowController& operator=(const MainWindowController&) = delete;

    /// Recomputes everything that the window shows.
    void updateData();
    void setTabelHeight(int32_t position); ///< raw, 0.1 mm
    /// Every opening adds a timer and only the last is kept and stopped; refreshing twice shows the same.
    void startUpdateDataTimer();
    void stopUpdateDataTimer();
    void observerDeviceStateDidChange() { updateData(); }
    void observerNewSession() { updateData(); }
    /// Kept for whoever works the window from outside; the error line itself needs no such mark.
    [[nodiscard]] bool errorRecievedUnderCountdown() const { return m_errorRecievedUnderCountdown; }
    void setErrorRecievedUnderCountdown(bool received) { m_errorRecievedUnderCountdown = received; }
    void buttonCloseClicked();
    void buttonHistoryClicked();
    void buttonSettingsClicked();
    void buttonCopyClicked();

    /// Shows the window near the tray, in front of others.
    void orderFront();
    void close();
    [[nodiscard]] bool isWindowVisible() const;
    [[nodiscard]] QWidget& window() const;
    [[nodiscard]] const TimerRef& updateDateTimer() const { return m_updateDateTimer; }

    void mouseEventButtonMouseDown(MouseEventButton& button) override;
    void mouseEventButtonMouseUp(MouseEventButton& button) override;

private:
    enum class DeskState { Active, Missing, Forbidden };

    void awakeFromNib();
    void windowDidLoad();
    void windowWillClose();
    void setupGUI();
    void connectButtons();
    void observe();
    void onUpdateDataTimerTick(Timer& timer);
    void showGoalProgress();
    void showSchedule();
    void clearSchedule(const QString& status);
    void showDeskState(DeskState state);
    void changeDeskState(DeskState state);
    void placeStatus(bool isUnderCircle);
    void tellPermission();

    Dependencies m_dependencies;
    std::unique_ptr<ActivityPersister> m_persister;
    DeskHold m_deskHold; // Before the window, whose end lets go of its buttons.
    std::unique_ptr<PanelWindow> m_window;
    std::unique_ptr<Ui::MainWindow> m_ui;
    QList<MouseEventButton*> m_holdButtons; ///< belong to the window
    std::unique_ptr<ErrorLine> m_errorLine;
    AdoptedDesk::Observation m_heights;
    std::vector<NotificationCenter::Observation> m_observations;
    std::optional<DeskState> m_deskState; ///< on show
    bool m_errorRecievedUnderCountdown = false;
    TimerRef m_updateDateTimer;
    TimerScope m_timers;
};
