#include "ui/HoverUnderlineButton.h"

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
