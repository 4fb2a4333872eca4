#pragma once

#include "data/Date.h"
#include "platform/RunLoop.h"

/// A stretch of time that began when this was made. The awake (monotonic) clock says how long it is, the wall
/// clock only where it lies: a wall clock that is set (by the user, by the network, on a machine without a
/// clock battery) moves no end of it by more than two seconds, and time asleep is no part of it.
class AwakeSpan {
public:
    [[nodiscard]] double seconds() const; ///< awake, since the start
    [[nodiscard]] bool hasSlept() const; ///< the machine slept since the start
    /// The wall clock went another way than the awake one, in a sleep or because it was set: what is called
    /// now is not where the stretch ends.
    [[nodiscard]] bool isBroken() const;
    /// Where a stretch that is over by now ends: at the date, or for a broken one at its start plus the awake
    /// time; never before its start.
    [[nodiscard]] Date end(Date unbroken = Date::now()) const;

private:
    ClockReading m_start = RunLoop::main().readClocks();
};
