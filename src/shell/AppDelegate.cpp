#include "shell/AppDelegate.h"

#include "data/AppProperties.h"
#include "data/ManagedObjectContext.h"
#include "data/PersistentStoreCoordinator.h"
#include "desk/ZelvoController.h"
#include "platform/Log.h"
#include "platform/LoginItems.h"
#include "screens/HistoryWindowController.h"
#include "screens/WizardWindowController.h"
#include "shell/MainWindowController.h"
#include "shell/Notification.h"
#include "shell/NotificationWindowController.h"
#include "shell/TestWindowController.h"

#include <QDir>
#include <QFileInfo>
#include <QVersionNumber>

#include <filesystem>
#include <system_error>
#include <utility>

namespace {
const QString kDomainPrefix = QStringLiteral("org.zelvo");
const QString kErrorDomain = QStringLiteral("YOUR_ERROR_DOMAIN");
constexpr int kExpectedFolder = 101;
/// The release whose first start gives the reminder's dismiss time its new default.
const QString kDismissTimeRelease = QStringLiteral("1.0.1");

}

AppDelegate::AppDelegate(Dependencies dependencies)
    : m_dependencies(std::move(dependencies))
{
}

AppDelegate::~AppDelegate()
{
    // The hub lets go of the backends before they go.
    AppProperties::instance().setZelvoController(nullptr);
}

void AppDelegate::applicationWillFinishLaunching()
{
    versionUpgrade();
    redirectConsoleLogToDocumentFolder();
    setupStatusBar();
    provideZelvoController();
}

void AppDelegate::applicationDidFinishLaunching()
{
    if (!m_menuletController)
        applicationWillFinishLaunching();
    AppProperties::instance().startZelvoController();
    if (!AppProperties::instance().isUserSetupCompleted())
        showWizard();
    setLaunchAtLogin();
}

void AppDelegate::versionUpgrade()
{
    AppProperties& properties = AppProperties::instance();
    const QString stored = properties.version();
    const QString running = properties.bundleVersion();
    // Compared as numbers, so that 1.0.10 is later than 1.0.9. A missing version is earlier than any; a
    // downgrade neither lowers what is stored nor resets anything.
    if (QVersionNumber::fromString(stored) >= QVersionNumber::fromString(running))
        return;
    if (running == kDismissTimeRelease) {
        AppProperties::removeValueForKey(QStringLiteral("TimeNotificationDismiss"));
        properties.setDefaultAppSettings();
    }
    properties.setVersion(running);
}

void AppDelegate::redirectConsoleLogToDocumentFolder()
{
    const QString name = QStringLiteral("%1.log").arg(AppProperties::instance().bundleName());
    Log::redirectToFile(QDir(applicationFilesDirectory()).filePath(name));
}

void AppDelegate::setupStatusBar()
{
    m_menuletView.reset(); // A view lets go of its controller, so it goes first.
    m_menuletController = std::make_unique<MenuletController>(makeWindows());
    m_menuletController->setStatusItem(&m_statusItem);
    m_menuletController->setStatusMenu(&m_statusMenu);
    m_menuletView = std::make_unique<MenuletView>(m_statusItem);
    m_menuletView->setDelegate(m_menuletController.get());

    m_statusMenuOpen = addMenuItem(qtTrId("ContextMenuOpen"), &AppDelegate::menuOpenClicked);
    m_statusMenuHistory = addMenuItem(qtTrId("ContextMenuHistory"), &AppDelegate::menuHistoryClicked);
    m_statusMenuSettings = addMenuItem(qtTrId("ContextMenuSettings"), &AppDelegate::menuSettingsClicked);
    m_statusMenuQuit = addMenuItem(qtTrId("ContextMenuExit"), &AppDelegate::terminate);
    // Not every tray tells that it is about to show the menu.
    QObject::connect(&m_statusMenu, &QMenu::aboutToShow, &m_statusMenu, [this] { validateMenu(); });
    QObject::connect(
        &m_statusMenu, &QMenu::aboutToHide, &m_statusMenu, [this] { m_menuletController->menuDidClose(); });
    validateMenu();
    m_statusItem.setMenu(&m_statusMenu);
}

void AppDelegate::setLaunchAtLogin()
{
    m_dependencies.loginItems.insertItem(m_dependencies.executablePath);
}

void AppDelegate::showWizard()
{
    wizardWindowController().showWindow();
}

void AppDelegate::showHistory()
{
    HistoryWindowController& controller = historyController();
    controller.showWindow();
    controller.updateData();
}

void AppDelegate::showTestWindow()
{
    testWindowController().showWindow();
}

void AppDelegate::showSomething()
{
    if (!AppProperties::instance().isUserSetupCompleted()) {
        showWizard();
        return;
    }
    if (NotificationWindowController* const reminder = m_menuletController->openNotification();
        reminder && reminder->takeKeyboard())
        return;
    m_menuletController->setActive(true);
    m_menuletController->showMainWindow();
}

void AppDelegate::menuOpenClicked()
{
    m_menuletController->showMainWindow();
}

void AppDelegate::menuHistoryClicked()
{
    showHistory();
}

void AppDelegate::menuSettingsClicked()
{
    showWizard();
    wizardWindowController().showSetupView();
}

bool AppDelegate::validateMenuItem(const QAction* item) const
{
    const bool needsSetup = item == m_statusMenuOpen || item == m_statusMenuHistory;
    return !needsSetup || AppProperties::instance().isUserSetupCompleted();
}

QString AppDelegate::applicationFilesDirectory()
{
    const QString name = QStringLiteral("%1.%2").arg(kDomainPrefix, AppProperties::instance().bundleName());
    QString folder = QDir(m_dependencies.applicationSupportDirectory).filePath(name);
    if (!QFileInfo::exists(folder))
        QDir().mkpath(folder);
    return folder;
}

std::shared_ptr<PersistentStoreCoordinator> AppDelegate::persistentStoreCoordinator()
{
    if (m_persistentStoreCoordinator)
        return m_persistentStoreCoordinator;
    const QString folder = applicationFilesDirectory();
    if (!ensureFilesFolder(folder))
        return nullptr;
    Error error;
    const QString file = QStringLiteral("%1.storedata").arg(AppProperties::instance().bundleName());
    m_persistentStoreCoordinator =
        PersistentStoreCoordinator::open(managedObjectModel(), QDir(folder).filePath(file), error);
    if (!m_persistentStoreCoordinator)
        m_dependencies.dialogs.presentError(error);
    return m_persistentStoreCoordinator;
}

bool AppDelegate::ensureFilesFolder(const QString& folder)
{
    if (QFileInfo(folder).isDir())
        return true;
    Error error {kErrorDomain, kExpectedFolder,
        qtTrId("Expected a folder to store application data, found a file (%1).").arg(folder),
        qtTrId("DataFolderAdvice")};
    if (!QFileInfo::exists(folder)) {
        std::error_code failure; // Made once more for its reason, which Qt does not tell.
        std::filesystem::create_directories(QFileInfo(folder).filesystemFilePath(), failure);
        if (!failure)
            return true;
        error = {QString::fromLatin1(failure.category().name()), failure.value(),
            qtTrId("DataFolderError").arg(QDir::toNativeSeparators(folder)), qtTrId("DataFolderAdvice")};
        Log::line(QString::fromLocal8Bit(failure.message().c_str()));
    }
    m_dependencies.dialogs.presentError(error);
    return false;
}

std::shared_ptr<ManagedObjectContext> AppDelegate::managedObjectContext()
{
    if (m_managedObjectContext)
        return m_managedObjectContext;
    const auto coordinator = persistentStoreCoordinator();
    if (!coordinator) {
        m_dependencies.dialogs.presentError(ManagedObjectContext::missingError());
        return nullptr;
    }
    m_managedObjectContext = std::make_shared<ManagedObjectContext>(coordinator);
    m_managedObjectContext->setTroubleObserver([this](const std::optional<Error>& trouble) {
        if (trouble)
            m_dependencies.dialogs.presentError(*trouble);
        else
            m_dependencies.dialogs.forgetErrors();
    });
    return m_managedObjectContext;
}

void AppDelegate::terminate()
{
    if (m_terminated)
        return;
    if (const auto& controller = AppProperties::instance().zelvoController())
        controller->stopHeldMovement();
    if (std::exchange(m_isAskedToTerminate, true)) {
        Log::line(QStringLiteral("Told to end again: ending without an answer."));
        endApplication();
        return;
    }
    const TerminateReply reply = applicationShouldTerminate();
    m_isAskedToTerminate = false;
    if (reply == TerminateReply::Now && !m_terminated)
        endApplication();
}

void AppDelegate::endApplication()
{
    m_terminated = true;
    applicationWillTerminate();
    m_dependencies.quit();
}

AppDelegate::TerminateReply AppDelegate::applicationShouldTerminate()
{
    if (!m_managedObjectContext)
        return TerminateReply::Now;
    if (!m_managedObjectContext->commitEditing()) {
        Log::line(
            QStringLiteral("AppDelegate:applicationShouldTerminate: unable to commit editing to terminate"));
        return TerminateReply::Cancel;
    }
    if (!m_managedObjectContext->hasChanges())
        return TerminateReply::Now;
    Error error;
    if (m_managedObjectContext->save(error))
        return TerminateReply::Now;
    if (m_dependencies.dialogs.presentError(error))
        return TerminateReply::Cancel;
    const int answer =
        m_dependencies.dialogs.runAlert(qtTrId("Could not save changes while quitting. Quit anyway?"),
            qtTrId("Quitting now will lose any changes you have made since the last successful save"),
            {qtTrId("Quit anyway"), qtTrId("Cancel")});
    // Both buttons answer with a code above zero, so both quit: a program that is told to end ends.
    return answer == 0 ? TerminateReply::Cancel : TerminateReply::Now;
}

void AppDelegate::applicationWillTerminate()
{
    if (const auto& controller = AppProperties::instance().zelvoController())
        controller->terminate();
}

void AppDelegate::commitData()
{
    if (const auto& controller = AppProperties::instance().zelvoController())
        controller->pulse();
}

WizardWindowController& AppDelegate::wizardWindowController()
{
    AppProperties::instance().startZelvoController();
    if (!m_wizardWindowController)
        m_wizardWindowController = std::make_unique<WizardWindowController>(
            m_dependencies.workspace, [this] { validateMenu(); }, [this] { terminate(); });
    return *m_wizardWindowController;
}

HistoryWindowController& AppDelegate::historyController()
{
    if (!m_historyController)
        m_historyController =
            std::make_unique<HistoryWindowController>(contextProvider(), m_dependencies.dialogs);
    return *m_historyController;
}

TestWindowController& AppDelegate::testWindowController()
{
    if (!m_testWindowController)
        m_testWindowController =
            std::make_unique<TestWindowController>(*m_menuletController, m_dependencies.simulatedDesk);
    return *m_testWindowController;
}

MenuletController::Windows AppDelegate::makeWindows()
{
    return {
        [this](MenuletController& controller) {
            AppProperties::instance().startZelvoController(); // A click may come before the launch is over.
            return std::make_unique<MainWindowController>(
                MainWindowController::Dependencies {contextProvider(), &controller, m_dependencies.workspace,
                    [this] { showHistory(); }, [this] { menuSettingsClicked(); }});
        },
        [this] { return std::make_unique<NotificationWindowController>(m_dependencies.workspace); },
    };
}

QAction* AppDelegate::addMenuItem(const QString& title, void (AppDelegate::*action)())
{
    QAction* item = m_statusMenu.addAction(title);
    QObject::connect(item, &QAction::triggered, &m_statusMenu, [this, action] { (this->*action)(); });
    return item;
}

void AppDelegate::validateMenu()
{
    for (QAction* item : m_statusMenu.actions())
        item->setEnabled(validateMenuItem(item));
}

void AppDelegate::provideZelvoController()
{
    AppProperties::instance().setZelvoControllerFactory([this] {
        return std::make_shared<ZelvoController>(
            ZelvoController::Dependencies {m_dependencies.hidManager, m_dependencies.eventSource,
                m_dependencies.workspace, contextProvider(), [this](int32_t newPosition) {
                    m_menuletController->showNotification(std::make_shared<Notification>(newPosition));
                }});
    });
}

ManagedObjectContextProvider AppDelegate::contextProvider()
{
    return [this] { return managedObjectContext(); };
}
