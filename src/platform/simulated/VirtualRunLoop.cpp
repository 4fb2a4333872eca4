#include "platform/simulated/VirtualRunLoop.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {
constexpr double kMicrosecondsPerSecond = 1e6;
constexpr double kEndOfTimeSeconds = 4e12; // What an int64_t of microseconds holds, with room for sums.

int64_t microseconds(double seconds)
{
    return std::llround(std::min(seconds, kEndOfTimeSeconds) * kMicrosecondsPerSecond);
}
}

class VirtualRunLoop::VirtualTimer final : public Timer {
public:
    VirtualTimer(
        VirtualRunLoop& loop, double seconds, Repeat repeats, TimerCallback callback, QVariant userInfo)
        : Timer(std::move(userInfo))
        , m_loop(loop)
        , m_callback(std::move(callback))
        , m_interval(microseconds(seconds))
        , m_repeats(repeats == Repeat::Yes)
    {
    }

    [[nodiscard]] bool repeats() const { return m_repeats; }
    [[nodiscard]] int64_t interval() const { return m_interval; }
    void setDue(Due due) { m_due = due; }
    [[nodiscard]] Due due() const { return m_due; }
    void fire() { m_callback(*this); }

protected:
    void stop() override
    {
        const auto found = m_loop.m_timers.find(m_due);
        if (found == m_loop.m_timers.end() || found->second.get() != this)
            return;
        const TimerRef keepAlive = found->second;
        m_loop.m_timers.erase(found);
    }

private:
    VirtualRunLoop& m_loop;
    TimerCallback m_callback;
    int64_t m_interval; // In microseconds.
    Due m_due;
    bool m_repeats;
};

VirtualRunLoop::VirtualRunLoop(double startOfTime)
    : m_wallOffset(microseconds(startOfTime))
{
}

VirtualRunLoop::~VirtualRunLoop()
{
    while (!m_timers.empty())
        m_timers.begin()->second->invalidate();
}

double VirtualRunLoop::now() const
{
    return double(m_wallOffset + m_monotonic + m_slept) / kMicrosecondsPerSecond;
}

double VirtualRunLoop::monotonicNow() const
{
    return double(m_monotonic) / kMicrosecondsPerSecond;
}

double VirtualRunLoop::bootTimeNow() const
{
    return double(m_monotonic + m_slept) / kMicrosecondsPerSecond;
}

void VirtualRunLoop::performSoon(std::function<void()> callable)
{
    m_soon.push_back(std::move(callable));
}

void VirtualRunLoop::advance(double seconds)
{
    const int64_t end = m_monotonic + microseconds(seconds);
    runSoonCallables();
    while (!m_timers.empty() && m_timers.begin()->first.first <= end) {
        m_monotonic = std::max(m_monotonic, m_timers.begin()->first.first);
        fireNext();
        runSoonCallables();
    }
    m_monotonic = std::max(m_monotonic, end);
}

void VirtualRunLoop::jump(double seconds)
{
    m_monotonic += microseconds(seconds);
}

void VirtualRunLoop::sleepMachine(double seconds)
{
    m_slept += microseconds(seconds);
}

void VirtualRunLoop::setWallClock(double now)
{
    m_wallOffset = microseconds(now) - m_monotonic - m_slept;
}

std::optional<double> VirtualRunLoop::secondsToNextTimer() const
{
    if (m_timers.empty())
        return std::nullopt;
    return double(m_timers.begin()->first.first - m_monotonic) / kMicrosecondsPerSecond;
}

TimerRef VirtualRunLoop::platformScheduleTimer(
    double seconds, Repeat repeats, TimerCallback callback, QVariant userInfo, Precision)
{
    auto timer =
        std::make_shared<VirtualTimer>(*this, seconds, repeats, std::move(callback), std::move(userInfo));
    timer->setDue({m_monotonic + timer->interval(), m_nextOrder++});
    m_timers.emplace(timer->due(), timer);
    return timer;
}

void VirtualRunLoop::runSoonCallables()
{
    while (!m_soon.empty()) {
        for (const auto& callable : std::exchange(m_soon, {}))
            callable();
    }
}

void VirtualRunLoop::fireNext()
{
    const std::shared_ptr<VirtualTimer> timer = m_timers.begin()->second;
    if (!timer->repeats()) {
        timer->invalidate();
    } else {
        auto place = m_timers.extract(m_timers.begin());
        // After a stall the missed ticks are not made up for: the next one keeps the rhythm.
        const int64_t missed = (m_monotonic - timer->due().first) / timer->interval();
        timer->setDue({timer->due().first + (missed + 1) * timer->interval(), m_nextOrder++});
        place.key() = timer->due();
        m_timers.insert(std::move(place));
    }
    timer->fire();
}
