#pragma once

#include "screens/SetupViewController.h"

#include <functional>
#include <memory>

class QWidget;
class WizardWindow;
class Workspace;

namespace Ui {
class WizardWindow;
}

/// The window around the setup screen: the first-run wizard, and the settings window afterwards. It decides
/// what happens when the setup screen is closed.
class WizardWindowController final : public SetupViewControllerDelegate {
public:
    /// @param completed called when the window was closed after a set-up that is complete
    /// @param terminate ends the program, for a first-run set-up that cannot be completed
    WizardWindowController(
        Workspace& workspace, std::function<void()> completed, std::function<void()> terminate);
    ~WizardWindowController();
    WizardWindowController(const WizardWindowController&) = delete;
    WizardWindowController& operator=(const WizardWindowController&) = delete;

    /// Shows the window in front, ready for the keyboard.
    void showWindow();
    /// Puts the setup screen into the window; what was there leaves first.
    void showSetupView();
    void removeSubviews();
    void addSubview(QWidget* view);
    void close();

    void setupViewButtonCloseClicked() override;
    void setupViewButtonCloseWithoutSaveClicked() override;

    /// Made on first use.
    [[nodiscard]] SetupViewController& setupViewController();
    [[nodiscard]] bool isWindowVisible() const;
    [[nodiscard]] QWidget& window() const;

private:
    /// On the first run, where the screen has room: what to do first, beside the desk as it stands.
    void showWelcome();
    bool completeSetup();

    Workspace& m_workspace;
    std::function<void()> m_completed;
    std::function<void()> m_terminate;
    std::unique_ptr<WizardWindow> m_window;
    std::unique_ptr<Ui::WizardWindow> m_ui;
    std::unique_ptr<SetupViewController> m_setupViewController;
};
