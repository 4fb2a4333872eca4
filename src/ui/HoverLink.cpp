#include "ui/HoverLink.h"

#include "ui/Palette.h"

HoverLink::HoverLink(QWidget* parent)
    : Button(parent)
{
    setFlat(true);
    setUnderLineText();
    setTextColor(zelvoHoverColor());
    setCursor(Qt::PointingHandCursor);
}

ButtonState HoverLink::state() const
{
    ButtonState state = Button::state();
    state.isLink = true;
    return state;
}

void HoverLink::enterEvent(QEnterEvent* event)
{
    Button::enterEvent(event);
    setTextColor(zelvoLinkHover());
}

void HoverLink::leaveEvent(QEvent* event)
{
    Button::leaveEvent(event);
    setTextColor(zelvoHoverColor());
}
