#include "ui/PictureView.h"

#include <QPainter>

PictureView::PictureView(QWidget* parent)
    : QWidget(parent)
{
}

void PictureView::setPictureNamed(const QString& name)
{
    m_picture = Picture(name);
    update();
}

void PictureView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    m_picture.draw(painter, rect());
}
