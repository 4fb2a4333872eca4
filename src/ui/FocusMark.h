#pragma once

#include <qnamespace.h>

class QPainter;
class QRectF;

/// Whether a control shows that it has the focus: only when the keyboard brought it there, because a ring
/// around everything that is clicked is noise.
class FocusMark {
public:
    [[nodiscard]] bool isVisible() const { return m_isVisible; }
    /// Call from focusInEvent() and focusOutEvent(), then update(). A window that comes back to the front
    /// keeps the mark as it was.
    void focusIn(Qt::FocusReason reason);
    void focusOut(Qt::FocusReason reason);

private:
    bool m_isVisible = false;
    bool m_returns = false;
};

/// The ring inside the rectangle: the brand colour with a light line within, to be seen on any background.
void paintFocusMark(QPainter& painter, const QRectF& rect, qreal radius);
