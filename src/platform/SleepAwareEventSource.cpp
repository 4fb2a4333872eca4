#include "platform/SleepAwareEventSource.h"

#include "platform/RunLoop.h"

#include <limits>
#include <utility>

namespace {
/// The clocks are read one after the other, so they differ by a little without any sleep.
constexpr double kShortestSleepSeconds = 1.0;
/// Questions that follow one another so closely belong to one look at the user and get the same answer. Looks
/// are ten seconds apart, and a machine that has just woken may be slow to answer each question.
constexpr double kOneLookSeconds = 3.0;
/// Desktops themselves put the idle time back when they hear of the wake, to light the screens.
constexpr double kWakingSeconds = 1.5;
}

SleepAwareEventSource::SleepAwareEventSource(std::shared_ptr<EventSource> source)
    : m_source(std::move(source))
    , m_sleepSoFar(RunLoop::main().readClocks().sleep())
{
}

double SleepAwareEventSource::secondsSinceLastEventType(EventType eventType)
{
    noticeSleep();
    const double seconds = m_source->secondsSinceLastEventType(eventType);
    if (!m_absence)
        return seconds;
    const double lastInputAt = RunLoop::main().monotonicNow() - seconds;
    if (isFirstLook() || lastInputAt <= m_absence->wokeAt)
        return std::numeric_limits<double>::infinity();
    m_absence.reset();
    return seconds;
}

void SleepAwareEventSource::didWake()
{
    // The word may come after the clocks were looked at; input between the two is input after the wake. A
    // further word is one of a further wake, though the clocks saw no sleep: a suspend that failed.
    if (noticeSleep() || !m_absence || m_absence->isTold)
        m_absence = Absence {RunLoop::main().monotonicNow() + kWakingSeconds, std::nullopt, true};
    m_absence->isTold = true;
}

bool SleepAwareEventSource::noticeSleep()
{
    const double sleep = RunLoop::main().readClocks().sleep();
    if (sleep - m_sleepSoFar < kShortestSleepSeconds)
        return false;
    m_sleepSoFar = sleep;
    m_absence = Absence {RunLoop::main().monotonicNow(), std::nullopt};
    return true;
}

bool SleepAwareEventSource::isFirstLook()
{
    const double now = RunLoop::main().monotonicNow();
    const bool isFirst = !m_absence->firstLookAt || now <= *m_absence->firstLookAt + kOneLookSeconds;
    if (isFirst)
        m_absence->firstLookAt = now;
    return isFirst;
}
