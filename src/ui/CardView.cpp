#include "ui/CardView.h"

#include "ui/Palette.h"

#include <QPainter>

namespace {
constexpr double kRadius = 6;
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
    painter.setBrush(zelvoHoverColor());
    painter.drawRoundedRect(rect(), kRadius, kRadius);
}
