#pragma once

#include "platform/linux/XcbConnection.h"

#include <functional>
#include <memory>

/// Tells when an X11 system tray is there: somebody owns the selection _NET_SYSTEM_TRAY_S<screen>. A tray
/// that comes later announces itself to the root window, so nothing is polled.
class XTrayWatch {
public:
    using Callback = std::function<void()>;

    /// Connects to the X server that DISPLAY names. Calls back as soon as a tray appears that was not there
    /// at the start.
    explicit XTrayWatch(Callback appeared);

    [[nodiscard]] bool isTrayThere() const { return m_isTrayThere; }

private:
    void readEvents();
    void askForOwner();

    XcbConnectionRef m_connection;
    xcb_atom_t m_selection = XCB_ATOM_NONE;
    Callback m_appeared;
    std::unique_ptr<QSocketNotifier> m_notifier;
    bool m_isTrayThere = false;
};
