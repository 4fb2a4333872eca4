#pragma once

#include "platform/linux/DBusIdleBackend.h"
#include "platform/linux/IdleUnit.h"

/// Idle time from the desktop's screen saver service. Its description says seconds, KDE's answers
/// milliseconds, so the unit is found out first.
class ScreenSaverIdleBackend final : public DBusIdleBackend {
public:
    explicit ScreenSaverIdleBackend(const QDBusConnection& bus);

    [[nodiscard]] QString name() const override { return QStringLiteral("the screen saver service"); }

protected:
    [[nodiscard]] std::optional<double> secondsFrom(double number) override;
    void ownerChanged() override { m_unit = {}; }

private:
    IdleUnit m_unit;
};
