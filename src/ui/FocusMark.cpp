#include "ui/FocusMark.h"

#include "ui/Palette.h"

#include <QFocusEvent>
#include <QPainter>
#include <QWidget>

namespace {
constexpr qreal kRingWidth = 2;
constexpr qreal kInnerLineWidth = 1;
constexpr int kInnerLineOpacity = 220; // Of 255.

bool isComingBack(Qt::FocusReason reason)
{
    return reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason;
}

void paintLine(QPainter& painter, const QRectF& rect, qreal inset, qreal radius, const QPen& pen)
{
    painter.setPen(pen);
    painter.drawRoundedRect(rect.adjusted(inset, inset, -inset, -inset), radius, radius);
}
}

FocusMark::FocusMark(QWidget& control)
    : m_control(control)
{
    control.installEventFilter(this);
}

bool FocusMark::eventFilter(QObject*, QEvent* event)
{
    if (event->type() == QEvent::FocusIn)
        focusIn(static_cast<QFocusEvent*>(event)->reason());
    else if (event->type() == QEvent::FocusOut)
        focusOut(static_cast<QFocusEvent*>(event)->reason());
    else if (event->type() == QEvent::MouseButtonPress)
        focusIn(Qt::MouseFocusReason); // Also in a control that had the focus before.
    return false;
}

void FocusMark::focusIn(Qt::FocusReason reason)
{
    const bool byKeyboard =
        reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason || reason == Qt::ShortcutFocusReason;
    m_isVisible = isComingBack(reason) ? m_returns : byKeyboard;
    m_control.update();
}

void FocusMark::focusOut(Qt::FocusReason reason)
{
    m_returns = m_isVisible && isComingBack(reason);
    m_isVisible = false;
    m_control.update();
}

void paintFocusMark(QPainter& painter, const QRectF& rect, qreal radius)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    paintLine(painter, rect, kRingWidth / 2, radius - kRingWidth / 2, QPen(zelvoHoverColor(), kRingWidth));
    QColor inner = zelvoCardColor();
    inner.setAlpha(kInnerLineOpacity);
    paintLine(
        painter, rect, kRingWidth + kInnerLineWidth / 2, radius - kRingWidth, QPen(inner, kInnerLineWidth));
    painter.restore();
}
