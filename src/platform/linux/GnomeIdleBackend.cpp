#include "platform/linux/GnomeIdleBackend.h"

#include "platform/RunLoop.h"

namespace {
constexpr double kMillisecondsPerSecond = 1000.0;
/// A sleep is longer than two clocks read one after the other differ.
constexpr double kShortestSleepSeconds = 1.0;
/// The same input is told so exactly twice, over the bus.
constexpr double kSameInputSeconds = 0.5;
}

GnomeIdleBackend::GnomeIdleBackend(const QDBusConnection& bus)
    : DBusIdleBackend(bus,
        {QStringLiteral("org.gnome.Mutter.IdleMonitor"), QStringLiteral("/org/gnome/Mutter/IdleMonitor/Core"),
            QStringLiteral("org.gnome.Mutter.IdleMonitor"), QStringLiteral("GetIdletime")})
    , m_sleepSoFar(RunLoop::main().readClocks().sleep())
    , m_lastInputAt(RunLoop::main().monotonicNow())
{
}

std::optional<double> GnomeIdleBackend::secondsFrom(double number)
{
    const double now = RunLoop::main().monotonicNow();
    const double lastInputAt = now - number / kMillisecondsPerSecond;
    const double sleep = RunLoop::main().readClocks().sleep();
    if (sleep > m_sleepSoFar + kShortestSleepSeconds) {
        m_sleepSoFar = sleep;
        m_wokeAt = lastInputAt;
    }
    if (m_wokeAt && lastInputAt <= *m_wokeAt + kSameInputSeconds)
        return now - m_lastInputAt;
    m_lastInputAt = lastInputAt;
    return now - m_lastInputAt;
}
