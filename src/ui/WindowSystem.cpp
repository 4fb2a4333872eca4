#include "ui/WindowSystem.h"

#include <QGuiApplication>

bool WindowSystem::isWayland()
{
    return QGuiApplication::platformName().startsWith(QLatin1String("wayland"));
}
