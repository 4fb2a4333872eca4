#include "shell/MainWindowController.h"

#include "data/ActivityMode.h"
#include "data/AppProperties.h"
#include "data/GoalProgress.h"
#include "data/Helper.h"
#include "data/Saturation.h"
#include "platform/Workspace.h"
#include "shell/ErrorLine.h"
#include "shell/MenuletController.h"
#include "ui/Dissolve.h"
#include "ui/FormStyle.h"
#include "ui/Motion.h"
#include "ui/PanelWindow.h"
#include "ui/WindowPlacement.h"
#include "ui_MainWindow.h"

#include <QClipboard>
#include <QFontDatabase>
#include <QGuiApplication>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {
constexpr double kRefreshSeconds = 5.0;
constexpr int kAboveNoDesk = 8;
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
    m_holdButtons = m_window->findChildren<MouseEventButton*>();
    for (MouseEventButton* button : m_holdButtons)
        button->setDelegate(this);
    m_ui->caloriesBurnedIndicator->setTransparent(true);
    m_ui->scheduleIndicator->setTransparent(true);
    setTabelHeight(AdoptedDesk::position()); // The window counts on its lines before they are shown.
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
    m_heights = AdoptedDesk::observePosition([this](int32_t height) { setTabelHeight(height); });
}

void MainWindowController::connectButtons()
{
    m_ui->buttonClose->onClicked([this] { buttonCloseClicked(); });
    m_ui->buttonHistory->onClicked([this] { buttonHistoryClicked(); });
    m_ui->buttonSettings->onClicked([this] { buttonSettingsClicked(); });
    m_ui->buttonCopy->onClicked([this] { buttonCopyClicked(); });
    m_ui->labelErrorText->setOpener([this](const QUrl& url) { m_dependencies.workspace.openUrl(url); });
}

void MainWindowController::setupGUI()
{
    // The percent sign stands on the number's line.
    const int baselines =
        baselineBelowMiddle(m_ui->labelPercent->font()) - baselineBelowMiddle(m_ui->labelProcentSign->font());
    m_ui->labelProcentSign->setContentsMargins(0, 2 * baselines, 0, 0);
    m_ui->labelNoDesk->setContentsMargins(0, kAboveNoDesk, 0, 0);
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

void MainWindowController::buttonCopyClicked()
{
    QGuiApplication::clipboard()->setText(m_ui->labelCommands->text());
    m_ui->buttonCopy->setText(qtTrId("CommandsCopied"));
}

void MainWindowController::orderFront()
{
    Motion::need();
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
    const ZelvoHIDDevice* const desk = AdoptedDesk::device();
    for (MouseEventButton* button : m_holdButtons)
        button->setEnabled(desk); // One that does not answer yet is told to move all the same.
    const bool isActive = AdoptedDesk::isActive();
    if (isActive) // Nobody knows it otherwise, and it is not shown.
        setTabelHeight(AdoptedDesk::position());
    showDeskState(isActive                      ? DeskState::Active
            : AdoptedDesk::isAdapterForbidden() ? DeskState::Forbidden
                                                : DeskState::Missing);
    ScheduleManager* const schedule = isActive ? AdoptedDesk::hub()->scheduleManager() : nullptr;
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
    const ScheduleManager& schedule = *AdoptedDesk::hub()->scheduleManager();
    const ActivityRef activity = AdoptedDesk::hub()->activity();
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

void MainWindowController::showDeskState(DeskState state)
{
    if (m_deskState != state)
        dissolve(*m_window, [this, state] { changeDeskState(state); });
}

void MainWindowController::changeDeskState(DeskState state)
{
    m_deskState = state;
    const bool isActive = state == DeskState::Active;
    const bool isForbidden = state == DeskState::Forbidden;
    m_ui->labelTabelHeigt->setVisible(isActive); // What is to be done stands there otherwise.
    m_ui->labelNoDesk->setVisible(state == DeskState::Missing);
    m_ui->labelStatus->setHidden(isForbidden);
    placeStatus(isActive);
    if (isForbidden)
        tellPermission();
    m_ui->permission->setVisible(isForbidden);
    const int freed = m_ui->labelTabelHeigt->sizeHint().height();
    m_window->setExtraHeight(isForbidden ? std::max(0, m_ui->permission->height() - freed) : 0);
}

/// Under the circle that it names, or after the words that there is no desk.
void MainWindowController::placeStatus(bool isUnderCircle)
{
    if (isUnderCircle)
        m_ui->circles->addWidget(m_ui->labelStatus, 1, 1);
    else
        m_ui->circles->addWidget(m_ui->labelStatus, 3, 0, 1, 2);
}

void MainWindowController::tellPermission()
{
    m_ui->labelPermission->setText(qtTrId("AdapterForbidden"));
    // As in the terminal, where they go; not before, for another font takes memory.
    QFont fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    fixed.setPixelSize(m_ui->labelCommands->font().pixelSize());
    m_ui->labelCommands->setFont(fixed);
    m_ui->labelCommands->setText(AdoptedDesk::permissionCommands().join(u'\n'));
    m_ui->buttonCopy->setText(qtTrId("CopyCommands"));
    const int width = m_window->width() - 2 * m_ui->rows->contentsMargins().left();
    m_ui->permission->setFixedHeight(m_ui->permissionRows->heightForWidth(width));
}

void MainWindowController::setTabelHeight(int32_t position)
{
    m_ui->labelTabelHeigt->setText(
        QStringLiteral("%1\n %2 %3")
            .arg(qtTrId("TableHeightLabel"),
                Helper::formattedTableHeight(double(AdoptedDesk::heightMillimetres(position))),
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
    m_deskHold.end(); // Also where no height was stored to go to: a stop too many does no harm.
}
