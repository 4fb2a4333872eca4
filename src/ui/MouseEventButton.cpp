#include "ui/MouseEventButton.h"

#include "ui/HoldHint.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>

namespace {
// Longer than the moment between the two halves of a repetition, shorter than anyone can tell.
constexpr double kKeyReleaseDelay = 0.02;

bool isHoldKey(int key)
{
    return key == Qt::Key_Space || key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Select;
}

/// Events to the button itself after which no release may come any more.
bool takesTheHoldAway(const QEvent& event, const QWidget& button)
{
    switch (event.type()) {
    case QEvent::FocusOut:
    case QEvent::Hide:
    case QEvent::ParentAboutToChange:
    case QEvent::TouchCancel:
    case QEvent::UngrabKeyboard:
    case QEvent::UngrabMouse:
        return true;
    case QEvent::EnabledChange:
        return !button.isEnabled();
    default:
        return false;
    }
}

/// The same for events to the window around the button.
bool takesTheWindowAway(QEvent::Type type)
{
    return type == QEvent::WindowBlocked || type == QEvent::WindowDeactivate
        || type == QEvent::WindowStateChange || type == QEvent::Close || type == QEvent::Hide;
}

/// The same for events to the whole program.
bool takesTheProgramAway(const QEvent& event)
{
    if (event.type() == QEvent::ApplicationStateChange)
        return static_cast<const QApplicationStateChangeEvent&>(event).applicationState()
            != Qt::ApplicationActive;
    return event.type() == QEvent::Quit;
}

/// A menu takes mouse and keyboard for itself.
bool opensPopup(QObject* receiver, const QEvent& event)
{
    const auto* widget = event.type() == QEvent::Show ? qobject_cast<QWidget*>(receiver) : nullptr;
    return widget && widget->windowType() == Qt::Popup;
}

/// A mouse event anywhere in the program that shows the left button up.
bool showsLeftButtonUp(const QEvent& event)
{
    switch (event.type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseMove:
    case QEvent::Enter:
        return !static_cast<const QSinglePointEvent&>(event).buttons().testFlag(Qt::LeftButton);
    default:
        return false;
    }
}
}

MouseEventButton::MouseEventButton(QWidget* parent)
    : HoverButton(parent)
{
}

MouseEventButton::~MouseEventButton()
{
    release();
}

void MouseEventButton::setDelegate(MouseEventButtonDelegate* delegate)
{
    if (delegate != m_delegate)
        release();
    m_delegate = delegate;
}

ButtonState MouseEventButton::state() const
{
    ButtonState state = HoverButton::state();
    state.isPressed = isHeld();
    return state;
}

void MouseEventButton::hold(Holder holder)
{
    if (isHeld())
        return;
    m_holder = holder;
    HoldHint::hideIn(*window());
    setDown(true);
    setMouseTracking(true); // A move without the button tells of a release that was lost.
    qApp->installEventFilter(this);
    // The delegate may delete the button: nothing comes after this.
    if (m_delegate)
        m_delegate->mouseEventButtonMouseDown(*this);
}

void MouseEventButton::release()
{
    if (!isHeld())
        return;
    m_holder = Holder::None;
    invalidate(m_keyReleaseTimer);
    setDown(false);
    setMouseTracking(false);
    qApp->removeEventFilter(this);
    // The delegate may delete the button: nothing comes after this.
    if (m_delegate)
        m_delegate->mouseEventButtonMouseUp(*this);
}

void MouseEventButton::letGo()
{
    const bool wasShort = RunLoop::main().monotonicNow() - m_heldSince < HoldHint::kShortestHold;
    const QPointer<MouseEventButton> self(this);
    release();
    if (self && wasShort)
        HoldHint::showAt(*this);
}

bool MouseEventButton::eventFilter(QObject* receiver, QEvent* event)
{
    if (receiver == this)
        return false; // event() sees it.
    const bool windowIsGone = receiver == window() && takesTheWindowAway(event->type());
    const bool mouseIsUp = m_holder == Holder::Mouse && showsLeftButtonUp(*event);
    if (windowIsGone || takesTheProgramAway(*event) || opensPopup(receiver, *event))
        release();
    else if (mouseIsUp)
        letGo();
    return false;
}

bool MouseEventButton::event(QEvent* event)
{
    // The letter of a title after "&" would click, and this button has no click.
    if (event->type() == QEvent::Shortcut)
        return true;
    if (isHeld() && takesTheHoldAway(*event, *this)) {
        const QPointer<MouseEventButton> self(this);
        release();
        if (!self)
            return true;
    }
    return HoverButton::event(event);
}

void MouseEventButton::mousePressEvent(QMouseEvent* event)
{
    event->accept();
    if (event->button() != Qt::LeftButton)
        return;
    m_heldSince = RunLoop::main().monotonicNow();
    hold(Holder::Mouse);
}

void MouseEventButton::mouseMoveEvent(QMouseEvent* event)
{
    event->accept();
    if (m_holder == Holder::Mouse && showsLeftButtonUp(*event))
        release();
}

void MouseEventButton::mouseReleaseEvent(QMouseEvent* event)
{
    event->accept();
    if (m_holder == Holder::Mouse && showsLeftButtonUp(*event))
        letGo();
}

void MouseEventButton::keyPressEvent(QKeyEvent* event)
{
    constexpr auto kCommands = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    const bool isHold = isHoldKey(event->key()) && !(event->modifiers() & kCommands);
    if (m_holder == Holder::Key && event->key() != m_key) {
        // A second key may open something that swallows the first one's release (Alt+Tab does).
        event->ignore();
        release();
    } else if (m_holder == Holder::Key) {
        invalidate(m_keyReleaseTimer); // The key is still down: this is the other half of a repetition.
    } else if (!isHold) {
        event->ignore();
    } else if (!isHeld() && !event->isAutoRepeat()) {
        // On a busy machine the other half of a repetition comes too late for the desk, but it is one.
        if (event->timestamp() == 0 || event->timestamp() != m_keyReleasedAt)
            m_heldSince = RunLoop::main().monotonicNow();
        m_key = event->key();
        hold(Holder::Key);
    }
}

void MouseEventButton::keyReleaseEvent(QKeyEvent* event)
{
    if (m_holder == Holder::Key && event->key() == m_key && !event->isAutoRepeat())
        releaseKey(event->timestamp());
}

void MouseEventButton::releaseKey(quint64 time)
{
    m_keyReleasedAt = time;
    if (time == 0) {
        letGo(); // Not from a keyboard, so not half of a repetition.
        return;
    }
    invalidate(m_keyReleaseTimer);
    m_keyReleaseTimer = m_timers.schedule(
        kKeyReleaseDelay, RunLoop::Repeat::No, [this](Timer&) { letGo(); }, {}, RunLoop::Precision::Precise);
}
