#include "ui/StepSlider.h"

#include "ui/ButtonPainter.h"

#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace {
constexpr qreal kFocusRadius = 4;
}

StepSlider::StepSlider(QWidget* parent)
    : QSlider(Qt::Horizontal, parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setRange(int(m_cell.minValue), int(m_cell.maxValue));
    setSingleStep(1);
    setPageStep(1);
    setValue(2);
}

QRectF StepSlider::knobRect() const
{
    return m_cell.knobRect(size(), shownValue());
}

/// Step 0 is at the right end in right-to-left layouts.
int StepSlider::shownValue() const
{
    return layoutDirection() == Qt::RightToLeft ? maximum() + minimum() - value() : value();
}

QSize StepSlider::sizeHint() const
{
    const QSize minimum = minimumSizeHint();
    return {std::max(int(m_cell.backgroundImage.size().width()), minimum.width()), minimum.height()};
}

QSize StepSlider::minimumSizeHint() const
{
    return {int(m_cell.knobImage.size().width()) * m_cell.numberOfTickMarks,
        int(std::ceil(m_cell.minimumHeight()))};
}

void StepSlider::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    if (!isEnabled())
        painter.setOpacity(kDisabledOpacity);
    paintSlider(painter, rect(), m_cell, shownValue());
    if (m_focusMark.isVisible())
        paintFocusMark(painter, rect(), kFocusRadius);
}

void StepSlider::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return event->ignore();
    setSliderDown(true);
    moveTo(event->position().x());
}

void StepSlider::mouseMoveEvent(QMouseEvent* event)
{
    if (isSliderDown())
        moveTo(event->position().x());
}

void StepSlider::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        setSliderDown(false);
}

void StepSlider::wheelEvent(QWheelEvent* event)
{
    // Whoever scrolls the form past it chooses no step.
    if (hasFocus())
        QSlider::wheelEvent(event);
    else
        event->ignore();
}

void StepSlider::moveTo(double x)
{
    const bool isMirrored = layoutDirection() == Qt::RightToLeft;
    setSliderPosition(m_cell.stepAt(size(), isMirrored ? width() - x : x));
}
