#pragma once

#include <QObject>

class QPainter;
class QRectF;
class QWidget;

/// Whether a control shows that it has the focus: only when the keyboard brought it there, because a ring
/// around everything that is clicked is noise. A window that comes back to the front has the mark again.
class FocusMark final : public QObject {
public:
    /// Watches the control's focus, and has it painted anew at each change.
    explicit FocusMark(QWidget& control);

    [[nodiscard]] bool isVisible() const { return m_isVisible; }

    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    void focusIn(Qt::FocusReason reason);
    void focusOut(Qt::FocusReason reason);

    QWidget& m_control;
    bool m_isVisible = false;
    bool m_returns = false;
};

/// The ring inside the rectangle: the brand colour with a light line within, to be seen on any background.
void paintFocusMark(QPainter& painter, const QRectF& rect, qreal radius);
