#pragma once

#include "screens/CircleView.h"
#include "ui/FocusMark.h"
#include "ui/KeyRepeat.h"
#include "ui/Picture.h"

class GoalCircleView;

class GoalCircleViewDelegate {
public:
    virtual void goalCircleIndicatorViewClicked(GoalCircleView& circle) = 0;

protected:
    ~GoalCircleViewDelegate() = default;
};

/// One goal to choose: a number with its unit in a circle that shows whether it is chosen or under the mouse.
/// It reports clicks (mouse, Space or Return) and does not choose itself; its delegate does. Screen readers
/// meet a radio button.
class GoalCircleView final : public CircleView {
    Q_OBJECT

public:
    explicit GoalCircleView(QWidget* parent = nullptr);

    /// The chosen goal.
    [[nodiscard]] bool active() const { return m_active; }
    void setActive(bool active);
    /// The mouse is inside.
    [[nodiscard]] bool hover() const { return underMouse(); }

    [[nodiscard]] GoalCircleViewDelegate* delegate() const { return m_delegate; }
    void setDelegate(GoalCircleViewDelegate* delegate) { m_delegate = delegate; }

    /// What a click does: ends any text editing in the window, so that typed values count, then tells the
    /// delegate.
    void click();

    [[nodiscard]] QSize sizeHint() const override { return m_image.size().toSize(); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;

private:
    bool m_active = false;
    GoalCircleViewDelegate* m_delegate = nullptr;
    FocusMark m_focusMark {*this};
    KeyRepeat m_keyRepeat;
    Picture m_image;
    Picture m_imageHover;
    Picture m_imageActive;
};
