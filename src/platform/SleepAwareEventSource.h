#pragma once

#include "platform/EventSource.h"

#include <memory>
#include <optional>
#include <utility>

/// Makes of each sleep of the machine one absence of the user, however short it was.
///
/// Every source of idle time on Linux counts on a clock that stands still in suspend: to it, somebody who
/// comes back after a night typed a second ago. A sleep is known by the desktop's word (didWake) or by growth
/// of RunLoop::bootTimeNow() over monotonicNow(). The first look at the user after it answers endless idle
/// time, also when the user is back already, and so do all others until the source tells of input that came
/// after the wake.
class SleepAwareEventSource final : public EventSource {
public:
    explicit SleepAwareEventSource(std::shared_ptr<EventSource> source);

    [[nodiscard]] double secondsSinceLastEventType(EventType eventType) override;
    void refresh(std::function<void()> ready) override { m_source->refresh(std::move(ready)); }
    [[nodiscard]] bool canTell() const override { return m_source->canTell(); }
    [[nodiscard]] QString name() const override { return m_source->name(); }
    void didWake() override;

private:
    bool noticeSleep(); ///< whether there was one
    [[nodiscard]] bool isFirstLook();

    std::shared_ptr<EventSource> m_source;
    double m_sleepSoFar; ///< all sleep of the machine that has been noticed
    /// An absence that has not ended yet; times are on the monotonic clock.
    struct Absence {
        double wokeAt;
        std::optional<double> firstLookAt; ///< its latest question
        bool isTold = false; ///< by the desktop's word
    };
    std::optional<Absence> m_absence;
};
