#pragma once

#include "platform/simulated/SimulatedDesktop.h"
#include "shell/AppDelegate.h"

#include <QCoreApplication>

/// The application on a simulated desktop, assembled as the composition root does it on a real one.
inline AppDelegate::Dependencies simulatedApplication(
    SimulatedDesktop& desktop, std::function<void()> quit = [] {})
{
    return {desktop.hid, desktop.events, desktop.workspace, desktop.loginItems, desktop.dialogs,
        desktop.folder.path(), QCoreApplication::applicationFilePath(), std::move(quit), &desktop.hid};
}
