#pragma once

#include "platform/RunLoop.h"
#include "ui/HoverButton.h"

class MouseEventButton;

class MouseEventButtonDelegate {
public:
    virtual void mouseEventButtonMouseDown(MouseEventButton& button) = 0;
    virtual void mouseEventButtonMouseUp(MouseEventButton& button) = 0;

protected:
    ~MouseEventButtonDelegate() = default;
};

/// The press-and-hold button that moves the desk: it reports press and release, and never a click.
///
/// Each mouse-down is followed by exactly one mouse-up. It is held by the left mouse button, or by Space,
/// Return or Enter without auto-repeat; a key counts as released 20 ms after it went up, because X11 reports
/// a key that is kept down as going up and down. Whatever ends the hold without a release being seen counts
/// as release: the loss of window, grab, focus, enabled state or visibility, another key, a dialog in front,
/// a new delegate, the end of the button. A desk must never go on moving because an event was lost.
///
/// A user who lets go too soon is told to hold it.
///
/// It offers screen readers no press action: an action that has no end must not start a desk.
class MouseEventButton final : public HoverButton {
    Q_OBJECT

public:
    explicit MouseEventButton(QWidget* parent = nullptr);
    ~MouseEventButton() override;

    [[nodiscard]] bool isHeld() const { return m_holder != Holder::None; }

    /// Outlives the button or is taken out with setDelegate(nullptr), which ends a hold first. It may delete
    /// the button in either call.
    [[nodiscard]] MouseEventButtonDelegate* delegate() const { return m_delegate; }
    void setDelegate(MouseEventButtonDelegate* delegate);

    /// Sees what happens elsewhere in the program, only while the button is held.
    bool eventFilter(QObject* receiver, QEvent* event) override;

protected:
    [[nodiscard]] ButtonState state() const override;
    bool event(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;

private:
    enum class Holder { None, Mouse, Key };

    void hold(Holder holder);
    void release();
    /// The same, by the user's own hand.
    void letGo();
    void releaseKey(quint64 time);

    MouseEventButtonDelegate* m_delegate = nullptr;
    Holder m_holder = Holder::None;
    int m_key = 0;
    double m_heldSince = 0;
    quint64 m_keyReleasedAt = 0; ///< ms
    TimerScope m_timers;
    TimerRef m_keyReleaseTimer;
};
