#include "screens/SetupView.h"

#include <QMouseEvent>

SetupView::SetupView(QWidget* parent)
    : QWidget(parent)
{
}

void SetupView::mousePressEvent(QMouseEvent* event)
{
    if (QWidget* focused = window()->focusWidget())
        focused->clearFocus();
    event->ignore();
}
