#pragma once

#include "ui/FocusMark.h"

#include <QLabel>

class ClickableLabel;

class ClickableLabelDelegate {
public:
    virtual void clickableLabelClicked(ClickableLabel& label) = 0;

protected:
    ~ClickableLabelDelegate() = default;
};

/// A tab: one line of text that is active or not, underlined under the mouse, and reports clicks (mouse,
/// Space or Return). It does not change its own state; its delegate does. In Designer forms it is promoted
/// from QLabel.
class ClickableLabel final : public QLabel {
    Q_OBJECT

public:
    explicit ClickableLabel(QWidget* parent = nullptr);

    void setText(const QString& text);
    [[nodiscard]] bool active() const { return m_active; }
    /// Active: Bold22 in the hover colour; inactive: Roman22 in the text colour; both centred.
    void setActive(bool active);
    void toggleActive();
    void updateView();
    /// Tells the delegate, as a mouse-up does.
    void click();

    [[nodiscard]] ClickableLabelDelegate* delegateClick() const { return m_delegateClick; }
    void setDelegateClick(ClickableLabelDelegate* delegate) { m_delegateClick = delegate; }
    /// The first text the label was given: the interface file's.
    [[nodiscard]] const QString& originalAttribuedString() const { return m_originalAttribuedString; }

    /// Wide enough for both states, so that a change of tab moves nothing.
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void setUnderlined(bool underlined);

    ClickableLabelDelegate* m_delegateClick = nullptr;
    QString m_originalAttribuedString;
    FocusMark m_focusMark {*this};
    bool m_active = false;
};
