#include "platform/RunLoop.h"

#include "platform/ProcessServices.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {
constexpr double kShortestRepeatSeconds = 0.001;
constexpr double kSameMomentSeconds = 0.1;
}

ClockReading RunLoop::readClocks() const
{
    // A program held up between two of the clocks would see a sleep, or a clock set, that never was.
    for (;;) {
        const ClockReading reading {now(), monotonicNow(), bootTimeNow()};
        if (now() - reading.wall < kSameMomentSeconds)
            return reading;
    }
}

TimerRef RunLoop::scheduleTimer(
    double seconds, Repeat repeats, TimerCallback callback, QVariant userInfo, Precision precision)
{
    const double shortest = repeats == Repeat::Yes ? kShortestRepeatSeconds : 0.0;
    const double interval = std::isnan(seconds) ? shortest : std::max(seconds, shortest);
    return platformScheduleTimer(interval, repeats, std::move(callback), std::move(userInfo), precision);
}

RunLoop& RunLoop::main()
{
    return *ProcessServices::installed().backends().runLoop;
}

TimerScope::~TimerScope()
{
    for (const auto& timer : m_timers)
        invalidate(timer.lock());
}

TimerRef TimerScope::schedule(double seconds, RunLoop::Repeat repeats, TimerCallback callback,
    QVariant userInfo, RunLoop::Precision precision)
{
    std::erase_if(m_timers, [](const std::weak_ptr<Timer>& weak) {
        const TimerRef timer = weak.lock();
        return !timer || !timer->isValid();
    });
    TimerRef timer =
        RunLoop::main().scheduleTimer(seconds, repeats, std::move(callback), std::move(userInfo), precision);
    m_timers.push_back(timer);
    return timer;
}
