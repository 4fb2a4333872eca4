#pragma once

#include "platform/simulated/SimulatedDesktop.h"
#include "shell/AppDelegate.h"

#include <QCoreApplication>

/// The application on a simulated desktop, assembled as the composition root does it on a real one.
/// @param hid the desktop's own desk, or another that a test works by hand
inline AppDelegate::Dependencies simulatedApplication(
    SimulatedDesktop& desktop, HidManager& hid, std::function<void()> quit = [] {})
{
    return {hid, desktop.events, desktop.workspace, desktop.loginItems, desktop.dialogs,
        desktop.folder.path(), QCoreApplication::applicationFilePath(), std::move(quit),
        dynamic_cast<SimulatedHidManager*>(&hid)};
}
