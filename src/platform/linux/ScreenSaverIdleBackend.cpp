#include "platform/linux/ScreenSaverIdleBackend.h"

#include "platform/RunLoop.h"

ScreenSaverIdleBackend::ScreenSaverIdleBackend(const QDBusConnection& bus)
    : DBusIdleBackend(bus,
        {QStringLiteral("org.freedesktop.ScreenSaver"), QStringLiteral("/org/freedesktop/ScreenSaver"),
            QStringLiteral("org.freedesktop.ScreenSaver"), QStringLiteral("GetSessionIdleTime")})
{
}

std::optional<double> ScreenSaverIdleBackend::secondsFrom(double number)
{
    return m_unit.seconds(number, RunLoop::main().monotonicNow());
}
