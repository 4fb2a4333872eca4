#include "ui/PictureView.h"

#include <QPainter>

PictureView::PictureView(QWidget* parent)
    : QWidget(parent)
{
}

void PictureView::setPicture(const Picture& picture)
{
    m_picture = picture;
    update();
}

void PictureView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    if (!m_picture.isNull())
        m_picture.draw(painter, rect());
}
