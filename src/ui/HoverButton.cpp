#include "ui/HoverButton.h"

#include <QEvent>

namespace {
const QString kHoverForm = QStringLiteral("_hoover");
}

HoverButton::HoverButton(QWidget* parent)
    : Button(parent)
{
}

void HoverButton::mouseEntered()
{
    if (!isEnabled() || m_isHovered)
        return;
    m_isHovered = true;
    m_textColorTmp = textRole();
    Button::setTextRole(QPalette::Link);
}

void HoverButton::mouseExited()
{
    m_isHovered = false;
    if (m_textColorTmp != QPalette::NoRole)
        Button::setTextRole(m_textColorTmp);
}

void HoverButton::setTextRole(QPalette::ColorRole role)
{
    if (m_isHovered)
        m_textColorTmp = role;
    Button::setTextRole(role);
}

void HoverButton::setAlternateImage(const Picture& image)
{
    m_alternateImage = image;
    update();
}

void HoverButton::setImageNamed(const QString& name)
{
    setImage(Picture(name));
    setAlternateImage(Picture(name + kHoverForm));
}

void HoverButton::setAlternateBackgroundRole(QPalette::ColorRole role)
{
    m_alternateBackgroundRole = role;
    update();
}

ButtonState HoverButton::state() const
{
    ButtonState state = Button::state();
    if (m_isHovered && !m_alternateImage.isNull())
        state.image = m_alternateImage;
    if (m_isHovered && m_alternateBackgroundRole != QPalette::NoRole)
        state.backgroundColor = palette().color(m_alternateBackgroundRole);
    return state;
}

void HoverButton::enterEvent(QEnterEvent* event)
{
    Button::enterEvent(event);
    mouseEntered();
}

void HoverButton::leaveEvent(QEvent* event)
{
    Button::leaveEvent(event);
    mouseExited();
}

void HoverButton::changeEvent(QEvent* event)
{
    Button::changeEvent(event);
    if (event->type() == QEvent::EnabledChange && !isEnabled())
        mouseExited();
}
