#include "ui/HoverUnderlineButton.h"

#include <QPainter>

#include <algorithm>

namespace {
constexpr int kMarkHeight = 3;
}

HoverUnderlineButton::HoverUnderlineButton(QWidget* parent)
    : Button(parent)
{
    setFlat(true);
}

ButtonState HoverUnderlineButton::state() const
{
    ButtonState state = Button::state();
    state.shadesWhenPressed = false;
    return state;
}

void HoverUnderlineButton::paintEvent(QPaintEvent* event)
{
    Button::paintEvent(event);
    if (!isChecked())
        return;
    const int title = std::min(width(), fontMetrics().horizontalAdvance(text()));
    QPainter(this).fillRect((width() - title) / 2, height() - kMarkHeight, title, kMarkHeight, textColor());
}

void HoverUnderlineButton::enterEvent(QEnterEvent* event)
{
    Button::enterEvent(event);
    setUnderLineText();
}

void HoverUnderlineButton::leaveEvent(QEvent* event)
{
    Button::leaveEvent(event);
    removeUnderLineText();
}
