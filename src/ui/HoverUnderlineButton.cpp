#include "ui/HoverUnderlineButton.h"

HoverUnderlineButton::HoverUnderlineButton(QWidget* parent)
    : Button(parent)
{
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
