#include "screens/CircleIndicatorView.h"

#include "screens/CircleAccessibility.h"
#include "screens/CircleLabels.h"
#include "screens/ProgressPie.h"
#include "ui/FontAndTextHandler.h"
#include "ui/Palette.h"

#include <QAccessible>
#include <QLabel>
#include <QPainter>

#include <algorithm>

namespace {
constexpr int kLargestSmallSide = 105;
constexpr double kValueRise = 5;
constexpr double kValueRiseLarge = 7;
}

CircleIndicatorView::CircleIndicatorView(QWidget* parent)
    : QWidget(parent)
    , m_image(QStringLiteral("SmallRadialProgressBorder"))
    , m_imageLarge(QStringLiteral("RadialProgressBorder"))
    , m_imageTrans(m_image)
    , m_imageTransLarge(m_imageLarge)
{
    installCircleAccessibility();
    createControls();
}

void CircleIndicatorView::createControls()
{
    m_textFieldTitle = createCircleLabel(*this, Qt::black);
    m_textFieldValue = createCircleLabel(*this, Qt::black);
    addConstraints();
}

void CircleIndicatorView::setValue(const std::optional<QString>& value)
{
    if (m_value == value)
        return;
    m_value = value;
    addConstraints();
    announce();
}

void CircleIndicatorView::setTitle(const std::optional<QString>& title)
{
    if (m_title == title)
        return;
    m_title = title;
    addConstraints();
    announce();
}

void CircleIndicatorView::setPercent(double percent)
{
    if (m_percent == percent)
        return;
    m_percent = percent;
    update();
    announce();
}

void CircleIndicatorView::setTransparent(bool transparent)
{
    m_transparent = transparent;
    update();
}

void CircleIndicatorView::setMarginBetweenValueAndTitle(int margin)
{
    m_marginBetweenValueAndTitle = margin;
    addConstraints();
}

void CircleIndicatorView::setVerticalOffset(double offset)
{
    m_verticalOffset = offset;
    addConstraints();
}

bool CircleIndicatorView::isLarge() const
{
    return std::min(width(), height()) > kLargestSmallSide;
}

QSize CircleIndicatorView::sizeHint() const
{
    return m_image.isNull() ? QSize(kLargestSmallSide, kLargestSmallSide) : m_image.size().toSize();
}

void CircleIndicatorView::addConstraints()
{
    m_textFieldValue->setFont(isLarge() ? FontAndTextHandler::Roman42() : FontAndTextHandler::Roman30());
    m_textFieldTitle->setFont(isLarge() ? FontAndTextHandler::Light15() : FontAndTextHandler::Light10());
    if (m_value)
        setCircleLabelText(*m_textFieldValue, *m_value);
    if (m_title)
        setCircleLabelText(*m_textFieldTitle, *m_title);
    const double rise = (isLarge() ? kValueRiseLarge : kValueRise) + m_verticalOffset;
    layOutCircleLabels(*m_textFieldValue, *m_textFieldTitle, -rise, m_marginBetweenValueAndTitle);
}

void CircleIndicatorView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    if (!m_transparent) {
        drawImage(painter);
        return;
    }
    drawTransBack(painter);
    drawTransFront(painter);
    drawTransImage(painter);
}

void CircleIndicatorView::drawImage(QPainter& painter) const
{
    (isLarge() ? m_imageLarge : m_image).draw(painter, rect());
}

void CircleIndicatorView::drawTransBack(QPainter& painter) const
{
    paintPie(painter, rect(), 100, Qt::white);
}

void CircleIndicatorView::drawTransFront(QPainter& painter) const
{
    paintPie(painter, rect(), m_percent, zelvoHoverColor());
}

void CircleIndicatorView::drawTransImage(QPainter& painter) const
{
    (isLarge() ? m_imageTransLarge : m_imageTrans).draw(painter, rect());
}

void CircleIndicatorView::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    addConstraints();
}

void CircleIndicatorView::announce()
{
    if (!QAccessible::isActive())
        return;
    QAccessibleValueChangeEvent event(this, m_percent);
    QAccessible::updateAccessibility(&event);
}
