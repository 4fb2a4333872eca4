#include "shell/NotificationView.h"

#include <QEnterEvent>
#include <QPainter>

#include <utility>

bool NotificationView::s_isMouseInside = false;

NotificationView::NotificationView(QWidget* parent)
    : QWidget(parent)
{
}

NotificationView::~NotificationView()
{
    s_isMouseInside = false;
}

void NotificationView::mouseEntered(QPointF position)
{
    if (s_isMouseInside || !QRectF(rect()).contains(position))
        return;
    s_isMouseInside = true;
    if (m_delegate)
        m_delegate->notificationViewMouseEntered();
}

void NotificationView::mouseExited(QPointF position)
{
    if (!s_isMouseInside || QRectF(rect()).contains(position))
        return;
    s_isMouseInside = false;
    if (m_delegate)
        m_delegate->notificationViewMouseExited();
}

void NotificationView::enterEvent(QEnterEvent* event)
{
    QWidget::enterEvent(event);
    mouseEntered(event->position());
}

void NotificationView::leaveEvent(QEvent* event)
{
    QWidget::leaveEvent(event);
    // The cursor is not asked where it is: under Wayland, and for X11 programs there too, it still stands
    // where it was last seen inside. Qt sends no leave event for a move onto a control of the view.
    constexpr QPointF kOutside(-1, -1);
    mouseExited(kOutside);
}

void NotificationView::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    // A window that disappears under the pointer gets no leave event; the next one starts unvisited. One that
    // was minimised there still waits for its answer.
    if (std::exchange(s_isMouseInside, false) && event->spontaneous() && m_delegate)
        m_delegate->notificationViewMouseExited();
}

void NotificationView::paintEvent(QPaintEvent* event)
{
    QWidget::paintEvent(event);
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Window));
}
