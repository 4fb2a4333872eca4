#pragma once

#include "ui/PanelWindow.h"

/// The window of the setup screen: without a frame, moved by its background, and ready for the keyboard.
class WizardWindow final : public PanelWindow {
    Q_OBJECT

public:
    WizardWindow();
};
