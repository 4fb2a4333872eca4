#include "screens/WizardWindowController.h"

#include "data/AppProperties.h"
#include "desk/ZelvoController.h"
#include "screens/WizardWindow.h"
#include "ui/FormStyle.h"
#include "ui/WindowPlacement.h"
#include "ui_WizardWindow.h"

#include <QLayout>
#include <QScreen>

#include <utility>

WizardWindowController::WizardWindowController(
    Workspace& workspace, std::function<void()> completed, std::function<void()> terminate)
    : m_workspace(workspace)
    , m_completed(std::move(completed))
    , m_terminate(std::move(terminate))
    , m_window(std::make_unique<WizardWindow>())
    , m_ui(std::make_unique<Ui::WizardWindow>())
{
    m_ui->setupUi(m_window.get());
    applyFormStyle(*m_window);
    m_window->onCloseRequested([this] { setupViewController().buttonCloseWithoutSavingClicked(); });
    showSetupView();
}

WizardWindowController::~WizardWindowController() = default;

void WizardWindowController::showWindow()
{
    if (!setupViewController().isViewLoaded())
        showSetupView();
    if (!m_window->isVisible()) // One that is open has its width.
        showWelcome();
    m_window->comeToFront(WindowPlacement::moveToCentre);
}

void WizardWindowController::showWelcome()
{
    const int width = m_ui->welcome->maximumWidth();
    const bool isWideEnough = m_window->screen()->availableSize().width() >= m_window->minimumWidth() + width;
    const bool isFirstRun = isWideEnough && !AppProperties::instance().isUserSetupCompleted();
    m_ui->welcome->setVisible(isFirstRun);
    m_window->setExtraWidth(isFirstRun ? width : 0);
}

void WizardWindowController::showSetupView()
{
    removeSubviews();
    addSubview(setupViewController().view());
}

void WizardWindowController::removeSubviews()
{
    const auto children = m_ui->view->findChildren<QWidget*>(Qt::FindDirectChildrenOnly);
    for (QWidget* child : children)
        child->setParent(nullptr); // The layout hears of it.
}

void WizardWindowController::addSubview(QWidget* view)
{
    m_ui->view->layout()->addWidget(view); // The layout has no margins: the view is pinned to all four edges.
    view->show();
}

void WizardWindowController::close()
{
    m_window->hide();
}

void WizardWindowController::setupViewButtonCloseClicked()
{
    close();
    if (!completeSetup())
        return;
    ZelvoController* const hub = AppProperties::instance().zelvoController().get();
    if (!hub)
        return;
    if (!hub->activity())
        hub->startNewActivity();
    else if (ScheduleManager* const schedule = hub->scheduleManager())
        schedule->restartScheduleTimer(); // A running period takes the new number of stand-ups at once.
}

void WizardWindowController::setupViewButtonCloseWithoutSaveClicked()
{
    close();
    completeSetup();
}

bool WizardWindowController::completeSetup()
{
    AppProperties& properties = AppProperties::instance();
    // The settings always say yes at present; a set-up that they refused would leave nothing to run on.
    const bool isComplete = properties.isUserSetupCompleted() || properties.setDefaultUserValues();
    if (isComplete)
        m_completed();
    else
        m_terminate();
    return isComplete;
}

SetupViewController& WizardWindowController::setupViewController()
{
    if (!m_setupViewController) {
        m_setupViewController = std::make_unique<SetupViewController>(m_workspace);
        m_setupViewController->setDelegate(this);
    }
    return *m_setupViewController;
}

bool WizardWindowController::isWindowVisible() const
{
    return m_window->isVisible();
}

QWidget& WizardWindowController::window() const
{
    return *m_window;
}
