#include "platform/SleepAwareEventSource.h"

#include "platform/RunLoop.h"

#include <utility>

namespace {
/// The two clocks are read one after the other, so they differ by a little without any sleep.
constexpr double kShortestSleepSeconds = 1.0;
/// Questions asked so close together belong to one look at the user and get the same answer.
constexpr double kOneLookSeconds = 1.0;

double totalSleep()
{
    return RunLoop::main().bootTimeNow() - RunLoop::main().monotonicNow();
}
}

SleepAwareEventSource::SleepAwareEventSource(std::unique_ptr<EventSource> source)
    : m_source(std::move(source))
    , m_sleepSoFar(totalSleep())
{
}

double SleepAwareEventSource::secondsSinceLastEventType(EventType eventType)
{
    noticeSleep();
    const double seconds = m_source->secondsSinceLastEventType(eventType);
    const double lastInputAt = RunLoop::main().monotonicNow() - seconds;
    if (lastInputAt > m_firstAnswerAt + kOneLookSeconds)
        m_addedSleep = 0;
    return seconds + m_addedSleep;
}

void SleepAwareEventSource::noticeSleep()
{
    const double sleep = totalSleep();
    if (sleep - m_sleepSoFar < kShortestSleepSeconds)
        return;
    m_addedSleep += sleep - m_sleepSoFar;
    m_sleepSoFar = sleep;
    m_firstAnswerAt = RunLoop::main().monotonicNow();
}
