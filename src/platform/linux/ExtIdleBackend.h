#pragma once

#include "platform/linux/WaylandIdleBackend.h"

/// The protocol that compositors agreed on: KWin from 5.27, wlroots from 0.16, and others.
class ExtIdleBackend final : public WaylandIdleBackend {
public:
    explicit ExtIdleBackend(double pauseSeconds = kPauseSeconds);

    [[nodiscard]] QString name() const override { return QStringLiteral("Wayland, ext_idle_notifier_v1"); }

protected:
    wl_proxy* watch(wl_proxy* notifier, wl_seat* seat, uint32_t pauseMs) override;
};
