#pragma once

#include "platform/RunLoop.h"
#include "ui/FocusMark.h"
#include "ui/Picture.h"

#include <QColor>
#include <QLineEdit>

/// An entry field over a picture that stretches with it: no frame and no background of its own, text in the
/// middle, selected text without a highlight behind it, a caret in a colour of its own.
class BackgroundTextField final : public QLineEdit {
    Q_OBJECT

public:
    explicit BackgroundTextField(QWidget* parent = nullptr);

    [[nodiscard]] const Picture& backgroundImage() const { return m_backgroundImage; }
    void setBackgroundImage(const Picture& image);
    /// The caret's colour; black at first.
    [[nodiscard]] QColor insertionPointColor() const { return m_insertionPointColor; }
    void setInsertionPointColor(const QColor& color);
    [[nodiscard]] QColor textColor() const;
    void setTextColor(const QColor& color);

protected:
    void paintEvent(QPaintEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void restartCaret();
    void stopCaret();
    [[nodiscard]] QRect caretRect() const;

    Picture m_backgroundImage;
    QColor m_insertionPointColor;
    FocusMark m_focusMark;
    TimerScope m_timers;
    TimerRef m_blinkTimer;
    bool m_isCaretShown = false;
};
