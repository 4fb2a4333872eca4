#include "ui/StrokeView.h"

#include "ui/DevicePixels.h"
#include "ui/Palette.h"

#include <QPainter>

StrokeView::StrokeView(QWidget* parent)
    : QWidget(parent)
{
    setHorizontal(true);
}

void StrokeView::setHorizontal(bool horizontal)
{
    m_horizontal = horizontal;
    if (horizontal)
        setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    else
        setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
    updateGeometry();
    update();
}

QSize StrokeView::sizeHint() const
{
    return {1, 1};
}

QSize StrokeView::minimumSizeHint() const
{
    return {1, 1};
}

void StrokeView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    auto [rule, line] = DevicePixels::enter(painter, rect());
    if (m_horizontal)
        rule.setHeight(line);
    else
        rule.setWidth(line);
    painter.fillRect(rule, zelvoMainLineColor());
}
