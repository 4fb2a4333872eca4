#pragma once

#include "platform/linux/IdleBackend.h"
#include "platform/linux/XcbConnection.h"

#include <QByteArray>

/// Idle time from the X server's screen saver extension, for any kind of input together. Right on an X11
/// session only: under Wayland the X server sees the input to X windows and nothing else.
///
/// A question is one round trip on a local socket; questions within a fifth of a second share one answer,
/// because the idle observer asks for sixteen kinds of input in a row.
class X11EventSource final : public IdleBackend {
public:
    /// @param displayName as in DISPLAY; empty: the one that DISPLAY names.
    explicit X11EventSource(const QByteArray& displayName = {});

    [[nodiscard]] QString name() const override { return QStringLiteral("X11 screen saver extension"); }
    [[nodiscard]] bool isAvailable() const override { return m_connection != nullptr; }
    [[nodiscard]] double secondsSinceLastEventType(EventType eventType) override;

private:
    void askServer();

    XcbConnectionRef m_connection; ///< null where there is no server, no extension, or no longer any
    xcb_window_t m_root = XCB_WINDOW_NONE;
    double m_idleSeconds = 0;
    double m_askedAt = -1; ///< on the monotonic clock
};
