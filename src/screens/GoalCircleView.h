#pragma once

#include "ui/FocusMark.h"
#include "ui/KeyRepeat.h"
#include "ui/Picture.h"

#include <QWidget>

#include <optional>

class GoalCircleView;
class QLabel;

class GoalCircleViewDelegate {
public:
    virtual void goalCircleIndicatorViewClicked(GoalCircleView& circle) = 0;

protected:
    ~GoalCircleViewDelegate() = default;
};

/// One goal to choose: a number with its unit in a circle that shows whether it is chosen or under the mouse.
/// It reports clicks (mouse, Space or Return) and does not choose itself; its delegate does. Screen readers
/// meet a radio button.
class GoalCircleView final : public QWidget {
    Q_OBJECT

public:
    explicit GoalCircleView(QWidget* parent = nullptr);

    /// The number shown, in upper case. Nothing leaves the label as it was.
    [[nodiscard]] const std::optional<QString>& value() const { return m_value; }
    void setValue(const std::optional<QString>& value);
    /// The unit under it, in upper case; as with the value.
    [[nodiscard]] const std::optional<QString>& title() const { return m_title; }
    void setTitle(const std::optional<QString>& title);
    /// The chosen goal.
    [[nodiscard]] bool active() const { return m_active; }
    void setActive(bool active);
    /// The mouse is inside.
    [[nodiscard]] bool hover() const { return m_hover; }
    /// How much higher the value stands. Set at most once, before the view is shown.
    [[nodiscard]] double verticalOffset() const { return m_verticalOffset; }
    void setVerticalOffset(double offset);

    [[nodiscard]] GoalCircleViewDelegate* delegate() const { return m_delegate; }
    void setDelegate(GoalCircleViewDelegate* delegate) { m_delegate = delegate; }

    [[nodiscard]] QLabel* textFieldValue() const { return m_textFieldValue; }
    [[nodiscard]] QLabel* textFieldTitle() const { return m_textFieldTitle; }

    /// What a click does: ends any text editing in the window, so that typed values count, then tells the
    /// delegate.
    void click();

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;

private:
    void createControls();
    void addConstraints();
    void setHover(bool hover);

    std::optional<QString> m_value;
    std::optional<QString> m_title;
    double m_verticalOffset = 0;
    bool m_active = false;
    bool m_hover = false;
    GoalCircleViewDelegate* m_delegate = nullptr;
    FocusMark m_focusMark {*this};
    KeyRepeat m_keyRepeat;
    Picture m_image;
    Picture m_imageHover;
    Picture m_imageActive;
    QLabel* m_textFieldTitle = nullptr;
    QLabel* m_textFieldValue = nullptr;
};
