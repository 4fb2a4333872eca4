#include "screens/WizardWindow.h"

WizardWindow::WizardWindow()
    : PanelWindow(Qt::Window | Qt::FramelessWindowHint)
{
    setMovableByWindowBackground(true);
}
