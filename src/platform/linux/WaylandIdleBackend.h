#pragma once

#include "platform/linux/IdleBackend.h"

#include <cstdint>
#include <memory>

struct wl_interface;
struct wl_proxy;
struct wl_seat;

/// Idle time from a Wayland compositor, which cannot be asked for it: it tells when the user has been idle
/// for a while, and when they are back. A program that keeps the screen on (a film, a call) keeps the user
/// active.
///
/// The connection is the program's own. It serves on XWayland too, where Qt has none, and a compositor that
/// goes away takes no window with it. It never waits, and is made anew at the next question when it broke.
class WaylandIdleBackend : public IdleBackend {
public:
    /// Longer than a pause between two words, so that there is little news; shorter than the ten seconds
    /// between two looks at the user, so that the second look after a wake knows whether there was input.
    static constexpr double kPauseSeconds = 5.0;

    ~WaylandIdleBackend() override;
    void ask(Answer answer) final;

protected:
    /// @param notifier whom the compositor must offer. @param pauseSeconds what it counts as idle.
    WaylandIdleBackend(const wl_interface& notifier, double pauseSeconds);

    /// Makes the bound notifier call idled() and resumed(), and returns the object that does.
    virtual wl_proxy* watch(wl_proxy* notifier, wl_seat* seat, uint32_t pauseMs) = 0;
    void idled();
    void resumed();

private:
    struct Connection;

    void connect();
    void read();
    void begin();
    void drop();
    [[nodiscard]] std::optional<double> lastInputAt();

    const wl_interface& m_notifierInterface;
    double m_pauseSeconds;
    std::unique_ptr<Connection> m_connection;
    Answer m_answer; ///< waits for the connection
    bool m_isIdle = false;
    // Instants on the monotonic clock.
    double m_watchedSince = 0;
    double m_lastInputAt;
};
