#pragma once

#include "desk/DeskHold.h"
#include "platform/RunLoop.h"
#include "ui/MouseEventButton.h"

#include <cstdint>
#include <functional>
#include <map>
#include <memory>

class MenuletController;
class PanelWindow;
class QCheckBox;
class QPushButton;
class QWidget;
class SimulatedHidManager;

namespace Ui {
class TestWindow;
}

/// The developer's window: moves the desk to fixed heights while held, shows what the adapter says in the
/// raw, raises a reminder for each position, and works the simulated desk's plug, errors and faults. Its
/// texts are English only.
class TestWindowController final : public MouseEventButtonDelegate {
public:
    /// @param simulated the simulated desk, or null: its controls are hidden then
    TestWindowController(MenuletController& menulet, SimulatedHidManager* simulated);
    ~TestWindowController();
    TestWindowController(const TestWindowController&) = delete;
    TestWindowController& operator=(const TestWindowController&) = delete;

    void showWindow();
    /// Shows height, status word and report bytes as last read.
    void updateValues();
    [[nodiscard]] QWidget& window() const;

    void mouseEventButtonMouseDown(MouseEventButton& button) override;
    void mouseEventButtonMouseUp(MouseEventButton& button) override;

private:
    void connectMovement();
    void connectReminders();
    void connectSimulation();
    void connectFaults();
    void onToggled(QCheckBox* box, std::function<void(bool)> action);
    void onClicked(QPushButton* button, std::function<void()> action);

    MenuletController& m_menulet;
    SimulatedHidManager* m_simulated;
    DeskHold m_deskHold; // Before the window, whose end lets go of its buttons.
    std::unique_ptr<PanelWindow> m_window;
    std::unique_ptr<Ui::TestWindow> m_ui;
    std::map<const MouseEventButton*, int32_t> m_heights; ///< raw, 0.1 mm
    TimerRef m_valuesTimer;
    TimerScope m_timers;
};
