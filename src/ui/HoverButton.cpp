#include "ui/HoverButton.h"

#include "ui/Palette.h"

#include <QEvent>

namespace {
const QString kHoverForm = QStringLiteral("_hoover");
}

HoverButton::HoverButton(QWidget* parent)
    : Button(parent)
{
    Button::setTextColor(zelvoTextColor());
}

void HoverButton::mouseEntered()
{
    if (!isEnabled() || m_isHovered)
        return;
    m_isHovered = true;
    m_textColorTmp = titleColor();
    Button::setTextColor(zelvoHoverColor());
}

void HoverButton::mouseExited()
{
    m_isHovered = false;
    if (m_textColorTmp.isValid())
        Button::setTextColor(m_textColorTmp);
}

void HoverButton::setTextColor(const QColor& color)
{
    if (m_isHovered)
        m_textColorTmp = color;
    Button::setTextColor(color);
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

void HoverButton::setAlternateBackgroundColor(const QColor& color)
{
    m_alternateBackgroundColor = color;
    update();
}

ButtonState HoverButton::state() const
{
    ButtonState state = Button::state();
    if (m_isHovered && !m_alternateImage.isNull())
        state.image = m_alternateImage;
    if (m_isHovered && m_alternateBackgroundColor.isValid())
        state.backgroundColor = m_alternateBackgroundColor;
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
