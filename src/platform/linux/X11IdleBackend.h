#pragma once

#include "platform/linux/IdleBackend.h"
#include "platform/linux/XcbConnection.h"

#include <memory>

/// Idle time from the X server's screen saver extension, for any kind of input together. Right on an X11
/// session only: under Wayland the X server sees the input to X windows and nothing else.
///
/// Connecting waits for the server, as every X program's start does; its answers are read when they have
/// come. A server that is gone is not looked for again: the program's windows are gone with it.
class X11IdleBackend final : public IdleBackend {
public:
    /// Connects to the server that DISPLAY names.
    X11IdleBackend();
    ~X11IdleBackend() override;

    [[nodiscard]] QString name() const override { return QStringLiteral("X11 screen saver extension"); }
    void ask(Answer answer) override;

private:
    void read();
    void readReply();
    void drop();

    XcbConnectionRef m_connection; ///< null where there is no server, no extension, or no longer any
    std::unique_ptr<QSocketNotifier> m_notifier;
    xcb_window_t m_root = XCB_WINDOW_NONE;
    unsigned m_question = 0; ///< its sequence number
    Answer m_answer; ///< whom the reply that is still out is for
};
