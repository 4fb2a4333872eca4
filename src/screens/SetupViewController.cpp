#include "screens/SetupViewController.h"

#include "data/ActivityMode.h"
#include "data/AppProperties.h"
#include "data/Saturation.h"
#include "platform/Workspace.h"
#include "screens/EntryNumber.h"
#include "screens/GoalSentence.h"
#include "screens/MemoryCard.h"
#include "screens/SetupView.h"
#include "ui/Appearance.h"
#include "ui/FormStyle.h"
#include "ui_SetupView.h"

#include <QLabel>
#include <QSignalBlocker>

#include <utility>

namespace {
constexpr int32_t kMiddleStep = 2;
constexpr double kRoomForUnit = 4; // Number and unit together stand in the middle of their circle.

AppProperties& properties()
{
    return AppProperties::instance();
}
}

SetupViewController::SetupViewController(Workspace& workspace)
    : m_workspace(workspace)
    , m_ui(std::make_unique<Ui::SetupView>())
    , m_entries(*m_ui)
    , m_memories(*m_ui)
{
}

SetupViewController::~SetupViewController()
{
    // A held button stops the desk through this object, which is still whole here.
    delete std::exchange(m_view, nullptr).data();
}

QWidget* SetupViewController::view()
{
    if (!m_view) {
        m_view = new SetupView;
        m_ui->setupUi(m_view);
        applyFormStyle(*m_view);
        awakeFromNib();
    }
    return m_view;
}

void SetupViewController::awakeFromNib()
{
    observe();
    setLocalizationText();
    connectControls();
    showAbsenceLine();
    showStoredGoal();
    m_entries.awakeFromNib();
    m_memories.awakeFromNib(*this);
    m_ui->appearance->setCurrentIndex(properties().appearance());
    updateGoalLabel();
}

void SetupViewController::observe()
{
    // Registrations pile up with each loading of the form: without a form they do nothing, so none needs to
    // be taken back.
    m_observations.push_back(
        NotificationCenter::defaultCenter().addObserver(ZelvoController::kDeviceStateDidChange,
            [this](const PostedNotification&) { observerDeviceStateDidChange(); }));
    m_observations.push_back(NotificationCenter::defaultCenter().addObserver(
        EventSource::kCanTellDidChange, [this](const PostedNotification&) { showAbsenceLine(); }));
    m_heights.push_back(AdoptedDesk::observePosition([this](int32_t height) { positionUpdated(height); }));
}

void SetupViewController::setLocalizationText()
{
    constexpr int kMany = 2;
    m_ui->labelCalories->setText(qtTrId("Calories", kMany));
    m_ui->buttonDone->setText(QStringLiteral("   %1").arg(qtTrId("DoneButton")));
    m_ui->labelVersion->setText(QStringLiteral("Ver: %1").arg(properties().bundleVersion()));
    m_ui->labelVideoLinkInfo->setHidden(properties().videoUrl().isEmpty());
    m_ui->labelMoreInfo->setHidden(properties().infoUrl().isEmpty());
}

void SetupViewController::connectControls()
{
    m_ui->buttonDone->onClicked([this] { buttonClosedClicked(); });
    m_ui->buttonCloseWithoutSaving->onClicked([this] { buttonCloseWithoutSavingClicked(); });
    m_ui->labelMoreInfo->onClicked([this] { buttonInfoClicked(); });
    m_ui->labelVideoLinkInfo->onClicked([this] { buttonVideoLinkClicked(); });
    for (MemoryCard* card : m_memories.cards())
        card->onClicked([this, card] { buttonMemoryClicked(*card); });
    QObject::connect(m_ui->slider, &QSlider::valueChanged, m_view, [this] { sliderMoved(); });
    m_ui->labelCalories->setDelegateClick(this);
    m_ui->labelTime->setDelegateClick(this);
    for (GoalCircleView* circle : goalIndicators())
        circle->setDelegate(this);
    for (QLineEdit* field : m_entries.fields()) {
        QObject::connect(
            field, &QLineEdit::textChanged, m_view, [this, field] { controlTextDidChange(*field); });
        QObject::connect(
            field, &QLineEdit::editingFinished, m_view, [this, field] { controlTextDidEndEditing(*field); });
    }
}

void SetupViewController::buttonClosedClicked()
{
    for (QLineEdit* field : m_entries.fields()) {
        // A press by a screen reader takes the focus from no field, so editing may still be going on.
        controlTextDidEndEditing(*field);
        if (!m_entries.accept(*field))
            return updateGoalLabel();
    }
    properties().setActivityMode(currentActivityMode());
    properties().setActivityGoal(goal());
    properties().setWeight(m_entries.kilograms());
    properties().setTablePositionOffset(m_entries.tablePositionOffset());
    properties().setNumberOfStandUps(m_entries.numberOfStandUps());
    properties().setAppearance(m_ui->appearance->currentIndex());
    Appearance::update();
    m_memories.showStoredHeights();
    if (m_delegate)
        m_delegate->setupViewButtonCloseClicked();
}

void SetupViewController::buttonCloseWithoutSavingClicked()
{
    if (m_delegate)
        m_delegate->setupViewButtonCloseWithoutSaveClicked();
    if (!m_view)
        return;
    // The view's own button may be what is being clicked: the view goes once that click is over.
    QWidget* const dropped = std::exchange(m_view, nullptr);
    dropped->hide(); // A held button is released by it.
    dropped->deleteLater();
}

void SetupViewController::buttonInfoClicked()
{
    if (const QUrl url = properties().infoUrl(); !url.isEmpty())
        m_workspace.openUrl(url);
}

void SetupViewController::buttonVideoLinkClicked()
{
    if (const QUrl url = properties().videoUrl(); !url.isEmpty())
        m_workspace.openUrl(url);
}

void SetupViewController::buttonMemoryClicked(MemoryCard& card)
{
    // What the field says is true from here on, and stays so after Cancel: the editor shows heights by it.
    if (m_entries.accept(*m_ui->textFieldTableHeight))
        properties().setTablePositionOffset(m_entries.tablePositionOffset());
    m_memories.showStoredHeights();
    m_memories.edit(card);
}

void SetupViewController::sliderMoved()
{
    setGoalIndicatorIndex(m_ui->slider->value());
    updateGoalLabel();
}

void SetupViewController::clickableLabelClicked(ClickableLabel& label)
{
    if (label.active())
        return;
    if (&label == m_ui->labelCalories)
        activityModeCalories();
    else
        activityModeTime();
    updateGoalLabel();
}

void SetupViewController::goalCircleIndicatorViewClicked(GoalCircleView& circle)
{
    deactiveteGoalIndicators();
    circle.setActive(true);
    const int32_t goal = integerValue(circle.value().value_or(QString()));
    setSliderIndex(saturated<int32_t>(m_activityGoalManager.indexFromGoal(goal, currentActivityMode())));
    updateGoalLabel();
}

void SetupViewController::controlTextDidEndEditing(const QLineEdit& field)
{
    m_entries.refillIfEmpty(field);
    updateGoalLabel();
}

void SetupViewController::positionUpdated(int32_t height)
{
    if (!m_view)
        return;
    // Also over what is being typed: an offset must fit the height at which the desk stands.
    m_entries.setDefaultTableHeight(height);
    m_memories.showLiveHeight();
}

void SetupViewController::observerDeviceStateDidChange()
{
    if (!m_view)
        return;
    m_memories.updateConnectionLabel();
    // The height of a desk that has left must not stay: saved against no desk it would shift the offset.
    if (!AdoptedDesk::device())
        m_entries.setDefaultTableHeight(AdoptedDesk::position());
}

void SetupViewController::showAbsenceLine()
{
    if (m_view)
        m_ui->labelAbsence->setHidden(!AdoptedDesk::hub() || AdoptedDesk::hub()->idleObserver().canTell());
}

void SetupViewController::showStoredGoal()
{
    for (GoalCircleView* circle : goalIndicators())
        circle->setVerticalOffset(kRoomForUnit);
    const int32_t mode = properties().activityMode();
    if (mode == kCalorieGoal)
        activityModeCalories();
    else
        activityModeTime();
    showActivityMode(mode); // An unknown mode leaves both tabs inactive and every goal at 0.
    const double goal = properties().activityGoal();
    setIndex(goal == 0
            ? kMiddleStep
            : saturated<int32_t>(m_activityGoalManager.indexFromGoal(saturated<int32_t>(goal), mode)));
}

void SetupViewController::showActivityMode(int32_t mode)
{
    m_ui->labelCalories->setActive(mode == kCalorieGoal);
    m_ui->labelTime->setActive(mode == kTimeGoal);
    int32_t step = 0;
    for (GoalCircleView* circle : goalIndicators()) {
        const auto goal = saturated<int32_t>(m_activityGoalManager.goalFromIndex(step++, mode));
        circle->setValue(QString::number(goal));
        circle->setTitle(mode == kCalorieGoal ? qtTrId("Calories", goal) : qtTrId("Mins", goal));
    }
    m_ui->labelModeTitle->setText(modeTitleFromMode(mode));
}

/// The time mode takes the heading under the "Energy" key: the string tables pair them so.
QString SetupViewController::modeTitleFromMode(int32_t mode)
{
    return mode == kTimeGoal ? qtTrId("SetupEnergyHeader") : qtTrId("SetupCaloriesHeader");
}

int32_t SetupViewController::currentActivityMode() const
{
    return m_ui->labelTime->active() ? kTimeGoal : kCalorieGoal;
}

double SetupViewController::goal() const
{
    return m_activityGoalManager.goalFromIndex(m_ui->slider->value(), currentActivityMode());
}

void SetupViewController::activityModeCalories()
{
    showActivityMode(kCalorieGoal);
    setTabLineForCalories();
}

void SetupViewController::activityModeTime()
{
    showActivityMode(kTimeGoal);
    setTabLineForTime();
}

void SetupViewController::setTabLineForCalories()
{
    m_ui->lineTabHorizontal1->hide();
    m_ui->lineTabHorizontal4->show();
}

void SetupViewController::setTabLineForTime()
{
    m_ui->lineTabHorizontal1->show();
    m_ui->lineTabHorizontal4->hide();
}

std::array<GoalCircleView*, 5> SetupViewController::goalIndicators() const
{
    return {m_ui->goalIndicator1, m_ui->goalIndicator2, m_ui->goalIndicator3, m_ui->goalIndicator4,
        m_ui->goalIndicator5};
}

void SetupViewController::deactiveteGoalIndicators()
{
    for (GoalCircleView* circle : goalIndicators())
        circle->setActive(false);
}

void SetupViewController::setIndex(int32_t step)
{
    setGoalIndicatorIndex(step);
    setSliderIndex(step);
}

void SetupViewController::setGoalIndicatorIndex(int32_t step)
{
    deactiveteGoalIndicators();
    const auto circles = goalIndicators();
    if (step >= 0 && step < int32_t(circles.size()))
        circles[size_t(step)]->setActive(true);
}

void SetupViewController::setSliderIndex(int32_t step)
{
    const QSignalBlocker blocker(m_ui->slider); // Only the user's moves choose a circle.
    m_ui->slider->setValue(step);
}

void SetupViewController::updateGoalLabel()
{
    // Screen readers would say the step's number alone.
    m_ui->slider->setAccessibleDescription(goalIndicators()[size_t(m_ui->slider->value())]->text());
    m_ui->labelGoal->setText(
        goalSentence({currentActivityMode(), goal(), m_entries.kilograms(), m_entries.numberOfStandUps()}));
}
