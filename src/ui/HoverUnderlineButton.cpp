#include "ui/HoverUnderlineButton.h"

#include <QPainter>

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
    state.isLink = true;
    return state;
}

void HoverUnderlineButton::paintEvent(QPaintEvent* event)
{
    Button::paintEvent(event);
    if (isChecked())
        QPainter(this).fillRect(0, height() - kMarkHeight, width(), kMarkHeight, textColor());
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
