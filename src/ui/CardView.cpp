#include "ui/CardView.h"

#include <QPainter>

namespace {
constexpr double kRadius = 4;
}

CardView::CardView(QWidget* parent)
    : QWidget(parent)
{
}

void CardView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette().color(backgroundRole()));
    painter.drawRoundedRect(rect(), kRadius, kRadius);
}
