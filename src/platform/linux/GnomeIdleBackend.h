#pragma once

#include "platform/linux/DBusIdleBackend.h"

/// Idle time from GNOME's compositor, on Wayland and on X11. It counts milliseconds since the last input,
/// also while a film keeps the screen on. Its own waking up counts there as input and is left out here: after
/// a sleep the last input stays where it was until there is another one than what the first answer tells.
class GnomeIdleBackend final : public DBusIdleBackend {
public:
    explicit GnomeIdleBackend(const QDBusConnection& bus);

    [[nodiscard]] QString name() const override { return QStringLiteral("GNOME's idle monitor"); }

protected:
    [[nodiscard]] std::optional<double> secondsFrom(double number) override;

private:
    // Instants and lengths on the monotonic clock.
    double m_sleepSoFar;
    double m_lastInputAt;
    std::optional<double> m_wokeAt; ///< or input before the first answer since then
};
