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
    // A rule ends where one across it, in its last logical pixel, has its line: so corners close at every
    // scale.
    auto [rule, line] =
        DevicePixels::enter(painter, QRectF(QPointF(0, 0), QPointF(width() - 1, height() - 1)));
    rule.setSize(rule.size() + QSize(line, line));
    painter.fillRect(rule, zelvoMainLineColor());
}
