#pragma once

#include "platform/RunLoop.h"
#include "ui/FocusMark.h"
#include "ui/Picture.h"

#include <QColor>
#include <QLineEdit>
#include <QProxyStyle>

/// How a field draws its text: what is selected has no highlight behind it, and Qt's caret is not drawn,
/// since it inverts what lies under it and so has no colour to set.
class BackgroundTextFieldCell final : public QProxyStyle {
public:
    static void setUpFieldEditor(QLineEdit& editor, const QColor& textColor);

    [[nodiscard]] int pixelMetric(
        PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
};

/// An entry field over a picture that stretches with it: no frame and no background of its own, text in the
/// middle, selected text without a highlight behind it, a caret in a colour of its own.
class BackgroundTextField final : public QLineEdit {
    Q_OBJECT

public:
    explicit BackgroundTextField(QWidget* parent = nullptr);

    [[nodiscard]] const Picture& backgroundImage() const { return m_backgroundImage; }
    void setBackgroundImage(const Picture& image);
    /// The caret's colour; that of strong text at first.
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
    FocusMark m_focusMark {*this};
    TimerScope m_timers;
    TimerRef m_blinkTimer;
    bool m_isCaretShown = false;
};
