#pragma once

#include "platform/Timer.h"

#include <vector>

/// What the clocks of a RunLoop said at one moment, in seconds.
struct ClockReading {
    double wall;
    double monotonic;
    double bootTime;

    /// All sleep of the machine until then; only the difference of two readings means something.
    [[nodiscard]] double sleep() const { return bootTime - monotonic; }
};

/// The main thread's run loop: the one source of time and of timers. Nothing else in the program asks a clock
/// or starts a timer, so that a test can put a working day into milliseconds. Intervals and times are
/// seconds.
class RunLoop {
public:
    /// Coarse timers may fire early or late by a twentieth of their interval, so that wake-ups coincide and
    /// an idle program sleeps.
    enum class Precision { Coarse, Precise };
    enum class Repeat { No, Yes };

    virtual ~RunLoop() = default;
    RunLoop(const RunLoop&) = delete;
    RunLoop& operator=(const RunLoop&) = delete;

    /// The wall clock: seconds since 1970-01-01 00:00 UTC. It jumps when the user or the network sets it.
    [[nodiscard]] virtual double now() const = 0;
    /// Seconds since an arbitrary start, standing still while the machine sleeps.
    [[nodiscard]] virtual double monotonicNow() const = 0;
    /// Like monotonicNow(), but counting the time asleep.
    [[nodiscard]] virtual double bootTimeNow() const = 0;
    /// All three clocks at one moment, to a tenth of a second.
    [[nodiscard]] ClockReading readClocks() const;

    /// Calls back after `seconds`, once or again and again. A negative or undefined interval counts as 0, and
    /// one of more than 24 days may end after those; a repeating timer's interval is at least 1 ms.
    TimerRef scheduleTimer(double seconds, Repeat repeats, TimerCallback callback, QVariant userInfo = {},
        Precision precision = Precision::Coarse);

    /// Runs a callable once, as soon as the main thread is back in the loop. May be called from any thread.
    virtual void performSoon(std::function<void()> callable) = 0;

    /// The loop of the main thread, which the ProcessServices brought.
    static RunLoop& main();

protected:
    RunLoop() = default;
    virtual TimerRef platformScheduleTimer(
        double seconds, Repeat repeats, TimerCallback callback, QVariant userInfo, Precision precision) = 0;
};

/// The timers of one object: all that are still valid end with it. An object that may drop a reference to a
/// running timer, or be destroyed while one runs, schedules through a scope that is its member.
class TimerScope {
public:
    TimerScope() = default;
    ~TimerScope();
    TimerScope(const TimerScope&) = delete;
    TimerScope& operator=(const TimerScope&) = delete;

    /// RunLoop::main().scheduleTimer() with the timer bound to this scope.
    TimerRef schedule(double seconds, RunLoop::Repeat repeats, TimerCallback callback, QVariant userInfo = {},
        RunLoop::Precision precision = RunLoop::Precision::Coarse);

private:
    std::vector<std::weak_ptr<Timer>> m_timers;
};
