#include "ui/BackgroundTextField.h"

#include "ui/Palette.h"
#include "ui/TextUtilities.h"

#include <QFocusEvent>
#include <QGuiApplication>
#include <QPainter>
#include <QStyleHints>

namespace {
constexpr QMargins kPictureMargins {6, 6, 6, 6};
constexpr qreal kFocusRadius = 4;
constexpr int kCaretWidth = 1;
}

int BackgroundTextFieldCell::pixelMetric(
    PixelMetric metric, const QStyleOption* option, const QWidget* widget) const
{
    return metric == PM_TextCursorWidth ? 0 : QProxyStyle::pixelMetric(metric, option, widget);
}

void BackgroundTextFieldCell::setUpFieldEditor(QLineEdit& editor, const QColor& textColor)
{
    QPalette colors = editor.palette();
    colors.setColor(QPalette::Text, textColor);
    colors.setColor(QPalette::HighlightedText, textColor);
    colors.setColor(QPalette::Highlight, Qt::transparent);
    colors.setColor(QPalette::Base, Qt::transparent);
    editor.setPalette(colors);
}

BackgroundTextField::BackgroundTextField(QWidget* parent)
    : QLineEdit(parent)
    , m_insertionPointColor(zelvoStrongTextColor())
{
    auto* cell = new BackgroundTextFieldCell;
    cell->setParent(this);
    setStyle(cell);
    setFrame(false);
    setVerticalCentering(*this, true);
    connect(this, &QLineEdit::cursorPositionChanged, this, &BackgroundTextField::restartCaret);
    connect(this, &QLineEdit::textChanged, this, &BackgroundTextField::restartCaret);
}

void BackgroundTextField::setBackgroundImage(const Picture& image)
{
    m_backgroundImage = image;
}

void BackgroundTextField::setInsertionPointColor(const QColor& color)
{
    m_insertionPointColor = color;
}

QColor BackgroundTextField::textColor() const
{
    return palette().color(QPalette::Text);
}

void BackgroundTextField::setTextColor(const QColor& color)
{
    BackgroundTextFieldCell::setUpFieldEditor(*this, color);
}

void BackgroundTextField::paintEvent(QPaintEvent* event)
{
    {
        QPainter painter(this);
        m_backgroundImage.drawStretched(painter, rect(), kPictureMargins);
    }
    QLineEdit::paintEvent(event);
    QPainter painter(this);
    if (m_isCaretShown)
        painter.fillRect(caretRect(), m_insertionPointColor);
    if (m_focusMark.isVisible())
        paintFocusMark(painter, rect(), kFocusRadius);
}

void BackgroundTextField::focusInEvent(QFocusEvent* event)
{
    QLineEdit::focusInEvent(event);
    restartCaret();
}

void BackgroundTextField::focusOutEvent(QFocusEvent* event)
{
    QLineEdit::focusOutEvent(event);
    stopCaret();
}

void BackgroundTextField::restartCaret()
{
    stopCaret();
    if (!hasFocus() || isReadOnly())
        return;
    m_isCaretShown = true;
    const int flashTime = QGuiApplication::styleHints()->cursorFlashTime(); // Milliseconds for on and off.
    if (flashTime <= 0)
        return;
    m_blinkTimer = m_timers.schedule(
        flashTime / 2000.0, RunLoop::Repeat::Yes,
        [this](Timer&) {
            m_isCaretShown = !m_isCaretShown;
            update(caretRect());
        },
        {}, RunLoop::Precision::Precise);
}

void BackgroundTextField::stopCaret()
{
    invalidate(m_blinkTimer);
    m_isCaretShown = false;
    update();
}

QRect BackgroundTextField::caretRect() const
{
    // Qt's rectangle has four pixels to spare on each side.
    const QRect spacious = cursorRect();
    return {spacious.center().x() + 1, spacious.top(), kCaretWidth, spacious.height()};
}
