#include "shell/NotificationWindowController.h"

#include "data/AppProperties.h"
#include "data/Helper.h"
#include "desk/Posture.h"
#include "platform/Workspace.h"
#include "shell/ErrorLine.h"
#include "shell/Notification.h"
#include "ui/FormStyle.h"
#include "ui/PanelWindow.h"
#include "ui/WindowFade.h"
#include "ui/WindowPlacement.h"
#include "ui_NotificationWindow.h"

#include <utility>

namespace {
// Not a tool window: desktops leave those out of Alt+Tab.
constexpr Qt::WindowFlags kFloating = Qt::Dialog | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint;
}

NotificationWindowController::NotificationWindowController(Workspace& workspace)
    : m_workspace(workspace)
    , m_window(std::make_unique<PanelWindow>(kFloating))
    , m_ui(std::make_unique<Ui::NotificationWindow>())
    , m_fade(std::make_unique<WindowFade>(*m_window))
{
    m_ui->setupUi(m_window.get());
    applyFormStyle(*m_window);
    awakeFromNib();
}

NotificationWindowController::~NotificationWindowController() = default;

void NotificationWindowController::awakeFromNib()
{
    m_ui->notificationView->setDelegate(this);
    m_heights = AdoptedDesk::observePosition([this](int32_t height) { setTabelHeight(height); });
    for (MouseEventButton* button : {m_ui->buttonMemory, m_ui->buttonUp, m_ui->buttonDown})
        button->setDelegate(this);
    m_errorLine = std::make_unique<ErrorLine>(
        *m_ui->labelErrorText, *m_ui->errorArea, ErrorLine::WithoutUrl::EmptyLink);
    m_window->setOpensUnfocused();
    m_window->setShowsWithoutKeyboard();
    m_window->setFirstControl(m_ui->buttonSnooze); // A stray Tab and Space do not begin with moving the desk.
    m_window->onKeyboardUsed([this] { stopDismissTimer(); }, [this] { keyboardLeft(); });
    m_window->setMovableByWindowBackground(true);
    m_window->onCloseRequested([this] { buttonSnoozeClicked(); }); // Escape is "not now".
    m_window->setWindowOpacity(1.0);
    setupGUI();
    connectButtons();
    updateControls();
}

void NotificationWindowController::setupGUI()
{
    // The blank before the number is on its left wherever the caption is.
    QLabel& height = *m_ui->labelTabelHeight;
    if (height.layoutDirection() == Qt::RightToLeft)
        height.setContentsMargins(0, 0, height.fontMetrics().horizontalAdvance(u' '), 0);
}

void NotificationWindowController::connectButtons()
{
    m_ui->buttonSnooze->onClicked([this] { buttonSnoozeClicked(); });
    m_ui->buttonCancel->onClicked([this] { buttonCancelClicked(); });
    m_ui->labelErrorText->setOpener([this](const QUrl& url) { m_workspace.openUrl(url); });
}

void NotificationWindowController::setNotification(std::shared_ptr<Notification> notification)
{
    if (notification == m_notification)
        return;
    stopDismissTimer();
    m_actionDone = false;
    m_notification = std::move(notification);
    updateControls();
    if (!NotificationView::isMouseInside()) // A renewed one may lie under a pointer that rests on it.
        startDismissTimer();
}

void NotificationWindowController::updateControls()
{
    // In one: a screen reader speaks title and description when the title appears.
    m_ui->labelTitle->setAccessibleDescription(m_notification ? m_notification->message() : QString());
    m_ui->labelTitle->setText(m_notification ? m_notification->title() : QString());
    m_ui->labelMessage->setText(m_notification ? m_notification->message() : QString());
    m_ui->calRadialTitle->clear();
    m_ui->calRadialSubTitle->clear();
    if (m_notification) {
        const bool isSit = m_notification->position() == kSitting;
        m_ui->buttonMemory->setText(isSit ? qtTrId("Memory1") : qtTrId("Memory2"));
        m_ui->buttonMemory->setImageNamed(isSit ? QStringLiteral("NotificationButtonSitMemory")
                                                : QStringLiteral("NotificationButtonStandMemory"));
        m_ui->calRadialTitle->setText(m_notification->indicatorValue().value_or(QString()));
        m_ui->calRadialSubTitle->setText(m_notification->indicatorTitle().value_or(QString()));
    }
    setTabelHeight(AdoptedDesk::position());
}

void NotificationWindowController::setTabelHeight(int32_t position)
{
    m_ui->labelTabelHeight->setText(QStringLiteral(" %1 %2").arg(
        Helper::formattedTableHeight(double(AdoptedDesk::heightMillimetres(position))),
        Helper::TableHeightUnit()));
}

void NotificationWindowController::fadeIn()
{
    if (!m_window->isVisible())
        WindowPlacement::moveIntoCorner(*m_window);
    m_fade->fadeIn();
}

void NotificationWindowController::buttonSnoozeClicked()
{
    snooze();
}

void NotificationWindowController::snooze()
{
    stopDismissTimer();
    if (AdoptedDesk::isActive() && AdoptedDesk::hub()->scheduleManager())
        AdoptedDesk::hub()->scheduleManager()->snoozeForPosition(AdoptedDesk::device()->positionState());
    m_fade->fadeOut();
}

void NotificationWindowController::buttonCancelClicked()
{
    cancelPeriod();
    m_fade->fadeOut();
}

void NotificationWindowController::cancelPeriod()
{
    // The dismiss timer is left alone: the pointer that pressed the button has stopped it already, and where
    // it still runs its own rule applies.
    if (AdoptedDesk::isActive() && AdoptedDesk::hub()->scheduleManager())
        AdoptedDesk::hub()->scheduleManager()->cancelPeriodForPosition(
            AdoptedDesk::device()->positionState());
}

void NotificationWindowController::dismiss()
{
    stopDismissTimer();
    m_fade->fadeOut();
}

void NotificationWindowController::startDismissTimer()
{
    stopDismissTimer();
    AppProperties& properties = AppProperties::instance();
    const double seconds =
        m_actionDone ? properties.timeNotificationDismissOnAction() : properties.timeNotificationDismiss();
    m_dismissTimer =
        m_timers.schedule(seconds, RunLoop::Repeat::No, [this](Timer&) { onDismissTimerTick(); });
}

void NotificationWindowController::stopDismissTimer()
{
    invalidate(m_dismissTimer);
    m_dismissTimer.reset();
}

void NotificationWindowController::onDismissTimerTick()
{
    if (isButtonHeld()) // A key can hold one while the pointer is elsewhere; closing would stop the desk.
        startDismissTimer();
    else if (m_actionDone)
        dismiss();
    else
        snooze(); // An ignored reminder comes again.
}

bool NotificationWindowController::takeKeyboard()
{
    if (m_window->isActiveWindow())
        return false;
    m_window->takeKeyboard();
    return true;
}

bool NotificationWindowController::isWindowVisible() const
{
    return m_window->isVisible();
}

bool NotificationWindowController::isOpen() const
{
    return isWindowVisible() && !m_fade->isFadingOut();
}

QWidget& NotificationWindowController::window() const
{
    return *m_window;
}

void NotificationWindowController::notificationViewMouseEntered()
{
    stopDismissTimer();
}

void NotificationWindowController::notificationViewMouseExited()
{
    if (!m_fade->isFadingOut()) // The reminder has been answered; there is nothing left to wait for.
        startDismissTimer();
}

/// A keyboard in the window keeps it open as a pointer does.
void NotificationWindowController::keyboardLeft()
{
    if (isOpen() && !m_dismissTimer && !m_ui->notificationView->isMouseInside())
        startDismissTimer();
}

void NotificationWindowController::mouseEventButtonMouseDown(MouseEventButton& button)
{
    ZelvoHIDDevice* const desk = m_deskHold.begin();
    if (!desk)
        return;
    if (&button == m_ui->buttonMemory)
        moveToMemory(*desk);
    else if (&button == m_ui->buttonDown)
        desk->moveDown();
    else if (&button == m_ui->buttonUp)
        desk->moveUp();
}

void NotificationWindowController::mouseEventButtonMouseUp(MouseEventButton&)
{
    m_deskHold.end();
    m_actionDone = true; // The wait begins when the pointer leaves; until then the user may go on moving.
}

void NotificationWindowController::moveToMemory(ZelvoHIDDevice& desk)
{
    AppProperties& properties = AppProperties::instance();
    const bool isSit = m_notification && m_notification->position() == kSitting;
    if (isSit && properties.hasDevicePosition1())
        desk.moveToPosition(properties.devicePosition1());
    else if (properties.hasDevicePosition2()) // A sit reminder without a sit memory offers the other one.
        desk.moveToPosition(properties.devicePosition2());
}

bool NotificationWindowController::isButtonHeld() const
{
    return m_ui->buttonMemory->isHeld() || m_ui->buttonUp->isHeld() || m_ui->buttonDown->isHeld();
}
