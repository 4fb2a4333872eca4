#pragma once

#include "platform/linux/XcbConnection.h"

#include <cstdint>
#include <functional>
#include <memory>

/// Tells when the X server darkens the screens and when it lights them again: its screen saver, its power
/// saving (DPMS, which the server announces in the same way), or a program that asked for either. Nothing is
/// polled. Right on an X11 session only: under Wayland the X server's own timers know nothing of the screens.
class XScreenWatch {
public:
    using Callback = std::function<void(bool isDark)>;

    /// Connects to the X server that DISPLAY names.
    explicit XScreenWatch(Callback changed);

private:
    void readEvents();

    XcbConnectionRef m_connection;
    uint8_t m_eventType = 0;
    Callback m_changed;
    std::unique_ptr<QSocketNotifier> m_notifier;
};
