#pragma once

#include <QWidget>

class NotificationViewDelegate {
public:
    virtual void notificationViewMouseEntered() = 0;
    virtual void notificationViewMouseExited() = 0;

protected:
    ~NotificationViewDelegate() = default;
};

/// The reminder's content view: reports each real visit of the pointer once. The pairs of events that the
/// controls inside produce are filtered by one flag, which all views share because there is one pointer.
class NotificationView final : public QWidget {
    Q_OBJECT

public:
    explicit NotificationView(QWidget* parent = nullptr);
    ~NotificationView() override;

    void setDelegate(NotificationViewDelegate* delegate) { m_delegate = delegate; }

    [[nodiscard]] static bool isMouseInside() { return s_isMouseInside; }

    /// @param position in this view's coordinates
    void mouseEntered(QPointF position);
    void mouseExited(QPointF position);

protected:
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    static bool s_isMouseInside;

    NotificationViewDelegate* m_delegate = nullptr;
};
