#pragma once

#include "platform/RunLoop.h"

#include <cstdint>
#include <map>
#include <optional>

/// A run loop whose time moves only when told to: a working year passes in seconds. Times are kept in whole
/// microseconds, so that 0.2 s five times over is exactly one second.
///
/// Due callbacks run in the order of their time, ties in the order of scheduling; inside a callback now() is
/// the due time; callbacks may schedule, cancel and advance further.
class VirtualRunLoop final : public RunLoop {
public:
    /// @param startOfTime the wall clock at the start, in seconds since 1970-01-01 UTC.
    explicit VirtualRunLoop(double startOfTime = 1'700'000'000.0);
    ~VirtualRunLoop() override;

    [[nodiscard]] double now() const override;
    [[nodiscard]] double monotonicNow() const override;
    [[nodiscard]] double bootTimeNow() const override;
    /// Runs in the next advance(), before any timer. Unlike other loops' it is for the main thread only.
    void performSoon(std::function<void()> callable) override;

    /// Time passes; everything that is due on the way runs at its own moment.
    void advance(double seconds);
    /// Time passes while nothing could run (a stalled process); what came due runs late, in the next
    /// advance().
    void jump(double seconds);
    /// The machine sleeps: wall clock and boot clock go on, timers and the monotonic clock stand still.
    void sleepMachine(double seconds);
    /// The wall clock alone is set, by the user, the network or daylight saving on a machine in local time.
    void setWallClock(double now);

    [[nodiscard]] size_t pendingTimerCount() const { return m_timers.size(); }
    /// Seconds until the next timer is due, or nothing when none waits.
    [[nodiscard]] std::optional<double> secondsToNextTimer() const;

protected:
    TimerRef platformScheduleTimer(double seconds, Repeat repeats, TimerCallback callback, QVariant userInfo,
        Precision precision) override;

private:
    class VirtualTimer;
    using Due = std::pair<int64_t, uint64_t>; // Microseconds on the monotonic clock, order of scheduling.

    void runSoonCallables();
    void fireNext();

    std::map<Due, std::shared_ptr<VirtualTimer>> m_timers;
    std::vector<std::function<void()>> m_soon;
    int64_t m_monotonic = 0;
    int64_t m_slept = 0;
    int64_t m_wallOffset;
    uint64_t m_nextOrder = 0;
};
