#include "screens/CircleIndicatorView.h"

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
constexpr double kLeastShown = 1; // Percent; less is called 0 beside the ring and would be a hairline.
}

CircleIndicatorView::CircleIndicatorView(QWidget* parent)
    : CircleView(QPalette::BrightText, parent)
    , m_image(QStringLiteral("SmallRadialProgressBorder"))
    , m_imageLarge(QStringLiteral("RadialProgressBorder"))
{
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

bool CircleIndicatorView::isLarge() const
{
    return std::min(width(), height()) > kLargestSmallSide;
}

void CircleIndicatorView::addConstraints()
{
    textFieldValue()->setFont(isLarge() ? FontAndTextHandler::Roman42() : FontAndTextHandler::Roman30());
    textFieldTitle()->setFont(isLarge() ? FontAndTextHandler::Light15() : FontAndTextHandler::Light10());
    layOutLabels(isLarge() ? kValueRiseLarge : kValueRise, m_marginBetweenValueAndTitle);
}

void CircleIndicatorView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    if (m_transparent) {
        paintPie(painter, rect(), 100, zelvoCardColor());
        if (m_percent >= kLeastShown)
            paintPie(painter, rect(), m_percent, zelvoHoverColor());
    }
    (isLarge() ? m_imageLarge : m_image).draw(painter, rect());
}

void CircleIndicatorView::announce()
{
    QAccessibleValueChangeEvent event(this, m_percent);
    QAccessible::updateAccessibility(&event);
}
