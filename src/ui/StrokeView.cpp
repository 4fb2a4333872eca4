#include "ui/StrokeView.h"

#include "ui/Palette.h"

#include <QPaintEvent>
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

void StrokeView::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    painter.fillRect(event->rect(), zelvoMainLineColor());
}
