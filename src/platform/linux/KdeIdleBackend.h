#pragma once

#include "platform/linux/WaylandIdleBackend.h"

/// KDE's own protocol, which wlroots spoke before 0.16, and so Debian 12's sway.
class KdeIdleBackend final : public WaylandIdleBackend {
public:
    explicit KdeIdleBackend(double pauseSeconds = kPauseSeconds);

    [[nodiscard]] QString name() const override { return QStringLiteral("Wayland, org_kde_kwin_idle"); }

protected:
    wl_proxy* watch(wl_proxy* notifier, wl_seat* seat, uint32_t pauseMs) override;
};
