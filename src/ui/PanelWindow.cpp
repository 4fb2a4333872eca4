#include "ui/PanelWindow.h"

#include "ui/Palette.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWindow>

PanelWindow::PanelWindow(Qt::WindowFlags flags)
    : QWidget(nullptr, flags)
{
    applyWindowPalette(*this);
}

void PanelWindow::closeEvent(QCloseEvent* event)
{
    if (m_closeRequested && event->spontaneous()) {
        event->ignore();
        m_closeRequested();
        return;
    }
    QWidget::closeEvent(event);
}

void PanelWindow::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    // A spontaneous one is the window manager minimising; the window is still open then.
    if (!event->spontaneous() && m_willClose)
        m_willClose();
}

void PanelWindow::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        requestClose();
    else
        QWidget::keyPressEvent(event);
}

void PanelWindow::mousePressEvent(QMouseEvent* event)
{
    if (m_movable && event->button() == Qt::LeftButton && windowHandle())
        windowHandle()->startSystemMove();
    else
        QWidget::mousePressEvent(event);
}

void PanelWindow::paintEvent(QPaintEvent* event)
{
    QWidget::paintEvent(event);
    if (!windowFlags().testFlag(Qt::FramelessWindowHint))
        return;
    // A frameless window needs an edge of its own to stand out from what lies under it.
    QPainter painter(this);
    painter.setPen(zelvoMainLineColor());
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

void PanelWindow::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    if (m_resized)
        m_resized();
}

void PanelWindow::requestClose()
{
    if (m_closeRequested)
        m_closeRequested();
    else
        close();
}
