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
    if (!m_alternateImage.isNull()) {
        m_imageTmp = image();
        Button::setImage(m_alternateImage);
    }
    m_textColorTmp = titleColor();
    Button::setTextColor(zelvoHoverColor());
}

void HoverButton::mouseExited()
{
    m_isHovered = false;
    if (!m_alternateImage.isNull() && !m_imageTmp.isNull())
        Button::setImage(m_imageTmp);
    m_imageTmp = {};
    if (m_textColorTmp.isValid())
        Button::setTextColor(m_textColorTmp);
}

void HoverButton::setImage(const Picture& image)
{
    if (m_imageTmp.isNull())
        Button::setImage(image);
    else
        m_imageTmp = image;
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
    if (!m_imageTmp.isNull() && !image.isNull())
        Button::setImage(image);
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
