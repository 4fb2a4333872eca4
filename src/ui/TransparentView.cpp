#include "ui/TransparentView.h"

#include <QPainter>

TransparentView::TransparentView(QWidget* parent)
    : QWidget(parent)
{
    setAutoFillBackground(false);
}

void TransparentView::paintEvent(QPaintEvent*)
{
    QPainter(this).fillRect(rect(), Qt::transparent);
}
