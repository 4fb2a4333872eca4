#include "ui/PanelWindow.h"

#include "platform/RunLoop.h"
#include "ui/Accessibility.h"
#include "ui/Appearance.h"
#include "ui/DevicePixels.h"
#include "ui/Palette.h"
#include "ui/WindowPlacement.h"
#include "ui/WindowSystem.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QScreen>
#include <QWindow>

#include <utility>

namespace {
/// What a window manager puts around a window is not known before it is shown.
constexpr QSize kWidestFrame(16, 48);
constexpr double kUnaskedSeconds = 1.0;
}

PanelWindow::PanelWindow(Qt::WindowFlags flags)
    : QWidget(nullptr, flags)
{
    installControlAccessibility();
    Appearance::update();
    applyWindowPalette(*this);
    m_appearanceObservation = NotificationCenter::defaultCenter().addObserver(
        Appearance::kDidChange, [this](const PostedNotification&) { applyWindowPalette(*this); });
    // The desktop may leave a window where its unplugged screen was, or under a panel that has appeared. A
    // window that changes screens is left alone: it is the user's hand that does it.
    connect(qGuiApp, &QGuiApplication::screenRemoved, this, &PanelWindow::onScreensChanged);
    connect(qGuiApp, &QGuiApplication::screenAdded, this, &PanelWindow::watch);
    for (QScreen* screen : QGuiApplication::screens())
        watch(screen);
}

void PanelWindow::watch(QScreen* screen)
{
    connect(screen, &QScreen::availableGeometryChanged, this, &PanelWindow::onScreensChanged);
}

void PanelWindow::onScreensChanged()
{
    soon([this] { WindowPlacement::moveIntoSight(*this); });
}

void PanelWindow::comeToFront(const std::function<void(PanelWindow&)>& place)
{
    if (isVisible())
        WindowSystem::moveToCurrentWorkspace(*this);
    else
        place(*this);
    WindowSystem::restore(*this);
    show();
    raise();
    activateWindow();
}

void PanelWindow::fitInto(QSize available)
{
    if (m_formSize.isEmpty())
        m_formSize = size();
    const QSize wanted = m_formSize + QSize(m_extraWidth, m_extraHeight);
    if (windowFlags().testFlag(Qt::FramelessWindowHint))
        setFixedSize(wanted.boundedTo(available)); // Tiling desktops let windows of one size float.
    else
        resize(wanted.boundedTo(available - kWidestFrame));
}

void PanelWindow::setExtraHeight(int pixels)
{
    m_extraHeight = pixels;
    if (!isVisible())
        return;
    fitInto(screen()->availableSize());
    onScreensChanged(); // Its lower edge may be out of sight now.
}

void PanelWindow::setShowsWithoutKeyboard()
{
    m_showsWithoutKeyboard = true;
    setAttribute(Qt::WA_ShowWithoutActivating);
}

void PanelWindow::takeKeyboard()
{
    if (!isVisible())
        return;
    m_isCalled = true;
    WindowSystem::moveToCurrentWorkspace(*this);
    WindowSystem::restore(*this);
    raise();
    activateWindow();
}

void PanelWindow::onKeyboardUsed(std::function<void()> used, std::function<void()> left)
{
    m_keyboardUsed = std::move(used);
    m_keyboardLeft = std::move(left);
}

bool PanelWindow::event(QEvent* event)
{
    if (event->type() == QEvent::WindowActivate)
        keyboardCame();
    else if (event->type() == QEvent::WindowDeactivate && !isHidden() && m_keyboardLeft)
        m_keyboardLeft();
    return QWidget::event(event);
}

bool PanelWindow::eventFilter(QObject* receiver, QEvent* event)
{
    if (receiver != windowHandle())
        return QWidget::eventFilter(receiver, event);
    if (event->type() == QEvent::MouseButtonPress)
        m_isEntered = true;
    else if (event->type() == QEvent::KeyPress)
        noticeKey(static_cast<const QKeyEvent&>(*event).key());
    return QWidget::eventFilter(receiver, event);
}

void PanelWindow::keyboardCame()
{
    const bool isCalled = std::exchange(m_isCalled, false);
    const bool isFirst = std::exchange(m_isUnvisited, false);
    // Desktops that give each new window the keyboard, whatever it asks for, do it at once; under Wayland it
    // cannot ask. That is not the user's doing.
    const bool isAtOnce = RunLoop::main().monotonicNow() < m_shownAt + kUnaskedSeconds;
    const bool isUnasked = m_showsWithoutKeyboard && isFirst && (isAtOnce || !WindowSystem::isX11());
    if (isCalled) {
        focusNextPrevChild(true); // Not before, or it would get no mark.
        enter();
    } else if (!isUnasked) {
        m_isEntered = true; // By its user, or by a window manager whose window in front closed: a key tells.
    }
}

bool PanelWindow::focusNextPrevChild(bool next)
{
    const bool isUnfocused = !focusWidget() || focusWidget() == this;
    if (!isUnfocused || !m_firstControl)
        return QWidget::focusNextPrevChild(next);
    m_firstControl->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    return true;
}

void PanelWindow::noticeKey(int key)
{
    if (m_isEntered || key == Qt::Key_Tab || key == Qt::Key_Backtab)
        enter();
}

void PanelWindow::enter()
{
    m_isEntered = true;
    if (m_keyboardUsed)
        m_keyboardUsed();
}

void PanelWindow::closeEvent(QCloseEvent* event)
{
    if (!m_closeRequested) {
        QWidget::closeEvent(event);
        return;
    }
    event->ignore();
    m_closeRequested();
}

void PanelWindow::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    // A spontaneous one is the window manager minimising; the window is still open then.
    if (!event->spontaneous() && m_willClose)
        m_willClose();
}

void PanelWindow::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape && m_isEntered)
        requestClose();
    else
        QWidget::keyPressEvent(event);
}

void PanelWindow::mousePressEvent(QMouseEvent* event)
{
    m_pressedAt.reset();
    if (m_movable && event->button() == Qt::LeftButton)
        m_pressedAt = event->position().toPoint();
    else
        QWidget::mousePressEvent(event);
}

void PanelWindow::mouseMoveEvent(QMouseEvent* event)
{
    if (!m_pressedAt || !event->buttons().testFlag(Qt::LeftButton)) {
        QWidget::mouseMoveEvent(event);
        return;
    }
    const int distance = (event->position().toPoint() - *m_pressedAt).manhattanLength();
    if (distance < QApplication::startDragDistance() || !windowHandle())
        return;
    // Not at the press: a move that the window manager begins after a quick click is over would never end.
    m_pressedAt.reset();
    windowHandle()->startSystemMove();
}

void PanelWindow::paintEvent(QPaintEvent* event)
{
    QWidget::paintEvent(event);
    if (!windowFlags().testFlag(Qt::FramelessWindowHint))
        return;
    // A frameless window needs an edge of its own to stand out from what lies under it.
    QPainter painter(this);
    const auto [whole, line] = DevicePixels::enter(painter, rect());
    const QRegion edge = QRegion(whole).subtracted(whole.adjusted(line, line, -line, -line));
    for (const QRect& side : edge)
        painter.fillRect(side, zelvoMainLineColor());
}

void PanelWindow::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (event->spontaneous())
        return;
    if (m_opensUnfocused)
        setFocus(Qt::OtherFocusReason);
    windowHandle()->installEventFilter(this); // Controls keep their clicks and keys to themselves.
    m_isCalled = false; // A call before was refused; it was not for this time.
    m_isUnvisited = true;
    m_isEntered = !m_showsWithoutKeyboard;
    m_shownAt = RunLoop::main().monotonicNow();
}

void PanelWindow::requestClose()
{
    if (m_closeRequested)
        m_closeRequested();
    else
        close();
}

void PanelWindow::soon(std::function<void()> callback)
{
    RunLoop::main().performSoon([window = QPointer<PanelWindow>(this), callback = std::move(callback)] {
        if (window)
            callback();
    });
}
