#pragma once

#include "platform/EventSource.h"

#include <memory>

/// Adds the time that the machine slept to the answers of another source.
///
/// Every source of idle time on Linux counts on a clock that stands still in suspend: to it, somebody who
/// comes back after a night typed a second ago. Sleep shows as growth of RunLoop::bootTimeNow() over
/// monotonicNow(). It is added to every answer until the source tells of input that came after the first
/// answer that followed the wake, so that this first answer is at least the time slept and the absence is
/// seen, even when the user is back already.
class SleepAwareEventSource final : public EventSource {
public:
    explicit SleepAwareEventSource(std::unique_ptr<EventSource> source);

    [[nodiscard]] double secondsSinceLastEventType(EventType eventType) override;

private:
    void noticeSleep();

    std::unique_ptr<EventSource> m_source;
    double m_sleepSoFar; ///< all sleep of the machine that has been noticed
    double m_addedSleep = 0; ///< sleep since the last input
    double m_firstAnswerAt = 0; ///< when the first answer after the wake was given, on the monotonic clock
};
