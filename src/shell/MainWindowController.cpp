#include "shell/MainWindowController.h"

#include "data/ActivityMode.h"
#include "data/AppProperties.h"
#include "data/GoalProgress.h"
#include "data/Helper.h"
#include "data/Saturation.h"
#include "platform/Workspace.h"
#include "shell/ErrorLine.h"
#include "shell/MenuletController.h"
#include "ui/FormStyle.h"
#include "ui/PanelWindow.h"
#include "ui/WindowPlacement.h"
#include "ui_MainWindow.h"

#include <cmath>
#include <utility>

namespace {
constexpr double kRefreshSeconds = 5.0;
constexpr double kFullScale = 100.0;
constexpr double kSecondsPerMinute = 60.0;

/// The number without its fraction; sums of a damaged clock must not overflow a text.
QString truncated(double number)
{
    const double whole = std::trunc(number) + 0.0; // The sum takes the sign off a negative zero.
    return std::isfinite(number) ? QString::number(whole, 'f', 0) : QStringLiteral("0");
}

/// Where a line of that font that is centred in a label stands.
int baselineBelowMiddle(const QFont& font)
{
    const QFontMetrics metrics(font);
    return metrics.ascent() - metrics.height() / 2;
}

QString caption(const GoalProgress& progress)
{
    if (progress.mode == kCalorieGoal)
        return qtTrId("Calories", saturated<int>(progress.value));
    return progress.mode == kTimeGoal ? qtTrId("Min") : QString();
}
}

MainWindowController::MainWindowController(Dependencies dependencies)
    : m_dependencies(std::move(dependencies))
    , m_persister(std::make_unique<ActivityPersister>(m_dependencies.managedObjectContext))
    , m_window(std::make_unique<PanelWindow>(Qt::Window | Qt::FramelessWindowHint))
    , m_ui(std::make_unique<Ui::MainWindow>())
{
    m_ui->setupUi(m_window.get());
    applyFormStyle(*m_window);
    awakeFromNib();
    windowDidLoad();
}

MainWindowController::~MainWindowController()
{
    m_window->onWillClose({});
}

void MainWindowController::awakeFromNib()
{
    m_window->onWillClose([this] { windowWillClose(); });
    m_window->onCloseRequested([this] { buttonCloseClicked(); });
    m_window->setOpensUnfocused(); // A key typed a moment too late must not move the desk.
    m_window->setMovableByWindowBackground(true);
    observe();
    for (MouseEventButton* button :
        {m_ui->buttonDown, m_ui->buttonUp, m_ui->buttonMemory1, m_ui->buttonMemory2, m_ui->buttonMemory3})
        button->setDelegate(this);
    m_ui->caloriesBurnedIndicator->setTransparent(true);
    m_ui->scheduleIndicator->setTransparent(true);
    updateData();
}

void MainWindowController::windowDidLoad()
{
    startUpdateDataTimer();
    setupGUI();
    connectButtons();
}

void MainWindowController::windowWillClose()
{
    stopUpdateDataTimer();
}

void MainWindowController::observe()
{
    NotificationCenter& center = NotificationCenter::defaultCenter();
    m_observations.push_back(center.addObserver(ZelvoController::kDeviceStateDidChange,
        [this](const PostedNotification&) { observerDeviceStateDidChange(); }));
    m_observations.push_back(center.addObserver(
        ScheduleManager::kNewSession, [this](const PostedNotification&) { observerNewSession(); }));
    m_observations.push_back(center.addObserver(
        ZelvoHIDManager::kAccessDidChange, [this](const PostedNotification&) { updateData(); }));
    m_errorLine = std::make_unique<ErrorLine>(
        *m_ui->labelErrorText, *m_ui->errorArea, ErrorLine::WithoutUrl::PlainText);
    m_heights = observeDeskPosition([this](int32_t height) { setTabelHeight(height); });
}

void MainWindowController::connectButtons()
{
    m_ui->buttonClose->onClicked([this] { buttonCloseClicked(); });
    m_ui->buttonHistory->onClicked([this] { buttonHistoryClicked(); });
    m_ui->buttonSettings->onClicked([this] { buttonSettingsClicked(); });
    m_ui->labelErrorText->setOpener([this](const QUrl& url) { m_dependencies.workspace.openUrl(url); });
}

void MainWindowController::setupGUI()
{
    // The percent sign stands on the number's line.
    const int baselines =
        baselineBelowMiddle(m_ui->labelPercent->font()) - baselineBelowMiddle(m_ui->labelProcentSign->font());
    m_ui->labelProcentSign->setContentsMargins(0, 2 * baselines, 0, 0);
    for (HoverButton* button : {m_ui->buttonMemory1, m_ui->buttonMemory2, m_ui->buttonMemory3})
        button->setAlternateBackgroundRole(QPalette::Highlight);
}

void MainWindowController::startUpdateDataTimer()
{
    // A timer that still runs is not stopped: refreshing twice shows the same.
    m_updateDateTimer = m_timers.schedule(
        kRefreshSeconds, RunLoop::Repeat::Yes, [this](Timer& timer) { onUpdateDataTimerTick(timer); });
}

void MainWindowController::stopUpdateDataTimer()
{
    invalidate(m_updateDateTimer);
}

void MainWindowController::onUpdateDataTimerTick(Timer& timer)
{
    if (m_window->isVisible())
        updateData();
    else
        timer.invalidate(); // One of several openings; left alone they would wake an idle program for ever.
}

void MainWindowController::buttonCloseClicked()
{
    if (m_dependencies.delegate)
        m_dependencies.delegate->mainWindowButtonCloseClicked();
}

void MainWindowController::buttonHistoryClicked()
{
    m_dependencies.showHistory();
}

void MainWindowController::buttonSettingsClicked()
{
    m_dependencies.showSettings();
}

void MainWindowController::orderFront()
{
    m_window->comeToFront(WindowPlacement::moveNearPointer);
}

void MainWindowController::close()
{
    m_window->hide();
}

bool MainWindowController::isWindowVisible() const
{
    return m_window->isVisible();
}

QWidget& MainWindowController::window() const
{
    return *m_window;
}

void MainWindowController::updateData()
{
    showGoalProgress();
    setTabelHeight(deskPosition());
    showPermission();
    const bool isActive = isDeskActive();
    ScheduleManager* const schedule = isActive ? hub()->scheduleManager() : nullptr;
    if (schedule && schedule->isScheduled())
        showSchedule();
    else
        clearSchedule(isActive ? QString() : qtTrId("ConnectTable"));
}

void MainWindowController::showGoalProgress()
{
    const GoalProgress progress = GoalProgress::onDay(Date::now(), *m_persister);
    m_ui->caloriesBurnedIndicator->setValue(truncated(progress.value));
    m_ui->caloriesBurnedIndicator->setTitle(caption(progress));
    m_ui->caloriesBurnedIndicator->setPercent(progress.percent);
    m_ui->labelPercent->setText(truncated(progress.percent));
}

void MainWindowController::showSchedule()
{
    const ScheduleManager& schedule = *hub()->scheduleManager();
    const ActivityRef& activity = hub()->activity();
    // A record that could not be stored leaves no start to count from.
    const double session =
        activity ? Date::now().timeIntervalSinceDate(activity->startDate()) / kSecondsPerMinute : 0;
    m_ui->scheduleIndicator->setValue(truncated(session));
    m_ui->scheduleIndicator->setTitle(qtTrId("Min"));
    const double interval = schedule.currentScheduleInterval() / kSecondsPerMinute;
    const double left = schedule.timeToSchedule() / kSecondsPerMinute;
    m_ui->scheduleIndicator->setPercent(std::fmin((interval - left) / interval * kFullScale, kFullScale));
    m_ui->labelStatus->setText(qtTrId("CurrentSession"));
}

void MainWindowController::clearSchedule(const QString& status)
{
    m_ui->scheduleIndicator->setValue(QStringLiteral(""));
    m_ui->scheduleIndicator->setTitle(QStringLiteral(""));
    m_ui->scheduleIndicator->setPercent(0.0);
    m_ui->labelStatus->setText(status);
}

void MainWindowController::showPermission()
{
    QLabel& label = *m_ui->labelPermission;
    const bool isForbidden = isAdapterForbidden();
    if (label.isHidden() == !isForbidden)
        return;
    if (isForbidden)
        label.setText(qtTrId("AdapterForbidden") + u'\n' + permissionCommands().join(u'\n'));
    label.setVisible(isForbidden);
    m_window->setExtraHeight(isForbidden ? label.heightForWidth(label.minimumWidth()) : 0);
}

void MainWindowController::setTabelHeight(int32_t position)
{
    m_ui->labelTabelHeigt->setText(
        QStringLiteral("%1\n %2 %3")
            .arg(qtTrId("TableHeightLabel"),
                Helper::formattedTableHeight(double(deskHeightMillimetres(position))),
                Helper::TableHeightUnit()));
}

void MainWindowController::mouseEventButtonMouseDown(MouseEventButton& button)
{
    ZelvoHIDDevice* const desk = m_deskHold.begin();
    if (!desk)
        return;
    AppProperties& properties = AppProperties::instance();
    if (&button == m_ui->buttonDown)
        desk->moveDown();
    else if (&button == m_ui->buttonUp)
        desk->moveUp();
    else if (&button == m_ui->buttonMemory1 && properties.hasDevicePosition1())
        desk->moveToPosition(properties.devicePosition1());
    else if (&button == m_ui->buttonMemory2 && properties.hasDevicePosition2())
        desk->moveToPosition(properties.devicePosition2());
    else if (&button == m_ui->buttonMemory3 && properties.hasDevicePosition3())
        desk->moveToPosition(properties.devicePosition3());
}

void MainWindowController::mouseEventButtonMouseUp(MouseEventButton&)
{
    m_deskHold.end();
}
