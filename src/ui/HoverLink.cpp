#include "ui/HoverLink.h"

HoverLink::HoverLink(QWidget* parent)
    : Button(parent)
{
    setFlat(true);
    setUnderLineText(); // Colour alone tells not everyone that it is a link.
    setTextRole(QPalette::Link);
    setCursor(Qt::PointingHandCursor);
}

ButtonState HoverLink::state() const
{
    ButtonState state = Button::state();
    state.shadesWhenPressed = false;
    return state;
}

void HoverLink::enterEvent(QEnterEvent* event)
{
    Button::enterEvent(event);
    setTextRole(QPalette::LinkVisited);
}

void HoverLink::leaveEvent(QEvent* event)
{
    Button::leaveEvent(event);
    setTextRole(QPalette::Link);
}
