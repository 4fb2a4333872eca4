#pragma once

#include "data/ManagedObjectContextProvider.h"
#include "data/ManagedObjectModel.h"
#include "platform/Dialogs.h"
#include "shell/MenuletController.h"
#include "shell/MenuletView.h"
#include "shell/StatusItem.h"

#include <QAction>
#include <QMenu>
#include <QString>

#include <functional>
#include <memory>

class EventSource;
class HidManager;
class HistoryWindowController;
class LoginItems;
class PersistentStoreCoordinator;
class SimulatedHidManager;
class TestWindowController;
class WizardWindowController;
class Workspace;

/// The application's life: start-up sequence, data stack, status item, menu, windows on first use, end.
class AppDelegate {
public:
    enum class TerminateReply { Cancel, Now };

    /// What the composition root picks for this machine, or a test for itself.
    struct Dependencies {
        HidManager& hidManager;
        EventSource& eventSource;
        Workspace& workspace;
        LoginItems& loginItems;
        Dialogs& dialogs;
        /// The folder that holds the application files folder (the user's data folder).
        QString applicationSupportDirectory;
        QString executablePath;
        /// Ends the event loop.
        std::function<void()> quit;
        /// The desk that the developer's test window works beside the real one; null when there is none.
        SimulatedHidManager* simulatedDesk = nullptr;
    };

    explicit AppDelegate(Dependencies dependencies);
    ~AppDelegate();
    AppDelegate(const AppDelegate&) = delete;
    AppDelegate& operator=(const AppDelegate&) = delete;

    /// The first half of the start-up sequence, up to the status item. A window that somebody opens before
    /// the second half starts the hub ahead of it.
    void applicationWillFinishLaunching();
    /// The start-up sequence in its fixed order, or what remains of it.
    void applicationDidFinishLaunching();
    void versionUpgrade();
    void redirectConsoleLogToDocumentFolder();
    void setupStatusBar();
    void setLaunchAtLogin();

    void showWizard();
    void showHistory();
    void showTestWindow();
    /// Shows a user who started it again, or has no tray, the main window, or gives the keyboard to a
    /// reminder that waits; before set-up the wizard.
    void showSomething();
    void menuOpenClicked();
    void menuHistoryClicked();
    void menuSettingsClicked();
    /// Open and History are enabled only once set-up is complete; all else always.
    [[nodiscard]] bool validateMenuItem(const QAction* item) const;

    /// `org.zelvo.StandUp` in the user's data folder, made when missing; opening the store shows a failure.
    QString applicationFilesDirectory();
    /// Compiled in, so that it is never missing.
    [[nodiscard]] const ManagedObjectModel& managedObjectModel() const { return m_managedObjectModel; }
    /// The open store, or null after the error has been presented; the next call then tries again.
    std::shared_ptr<PersistentStoreCoordinator> persistentStoreCoordinator();
    /// The application's one context, or null as above.
    std::shared_ptr<ManagedObjectContext> managedObjectContext();

    /// The termination flow: stops a held movement, asks applicationShouldTerminate(), then lets the hub
    /// close the record and quits. A further request while the question waits for its answer is the answer.
    void terminate();
    TerminateReply applicationShouldTerminate();
    void applicationWillTerminate();
    /// The session asks for a save point. It may go on afterwards, so the record stays open.
    void commitData();

    [[nodiscard]] MenuletController& menuletController() { return *m_menuletController; }
    [[nodiscard]] WizardWindowController& wizardWindowController();
    [[nodiscard]] HistoryWindowController& historyController();
    [[nodiscard]] TestWindowController& testWindowController();
    [[nodiscard]] StatusItem& statusItem() { return m_statusItem; }
    [[nodiscard]] QMenu& statusMenu() { return m_statusMenu; }
    [[nodiscard]] QAction* statusMenuOpen() const { return m_statusMenuOpen; }
    [[nodiscard]] QAction* statusMenuHistory() const { return m_statusMenuHistory; }
    [[nodiscard]] QAction* statusMenuSettings() const { return m_statusMenuSettings; }
    [[nodiscard]] QAction* statusMenuQuit() const { return m_statusMenuQuit; }

private:
    MenuletController::Windows makeWindows();
    QAction* addMenuItem(const QString& title, void (AppDelegate::*action)());
    void validateMenu();
    void provideZelvoController();
    bool ensureFilesFolder(const QString& folder);
    void endApplication();
    [[nodiscard]] ManagedObjectContextProvider contextProvider();

    Dependencies m_dependencies;
    QMenu m_statusMenu;
    StatusItem m_statusItem;
    QAction* m_statusMenuOpen = nullptr;
    QAction* m_statusMenuHistory = nullptr;
    QAction* m_statusMenuSettings = nullptr;
    QAction* m_statusMenuQuit = nullptr;
    ManagedObjectModel m_managedObjectModel;
    std::shared_ptr<PersistentStoreCoordinator> m_persistentStoreCoordinator;
    std::shared_ptr<ManagedObjectContext> m_managedObjectContext;
    std::unique_ptr<MenuletController> m_menuletController;
    std::unique_ptr<MenuletView> m_menuletView;
    std::unique_ptr<WizardWindowController> m_wizardWindowController;
    std::unique_ptr<HistoryWindowController> m_historyController;
    std::unique_ptr<TestWindowController> m_testWindowController;
    bool m_isAskedToTerminate = false; ///< a question about it may be open
    bool m_terminated = false; ///< the end is certain
};
