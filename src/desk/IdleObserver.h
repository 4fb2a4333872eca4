#pragma once

#include "platform/EventSource.h"
#include "platform/RunLoop.h"

#include <functional>
#include <utility>

class IdleObserverDelegate {
public:
    virtual void updatedIdleObserverIsIdle(bool isIdle) = 0;

protected:
    ~IdleObserverDelegate() = default;
};

/// Notices within 10 s when the user has left the computer and when they are back.
class IdleObserver {
public:
    explicit IdleObserver(EventSource& eventSource);
    IdleObserver(EventSource& eventSource, double timeIdle);

    void startIdleObserverTimer();
    void stopIdleObserverTimer() { invalidate(m_idleObserverTimer); }
    /// Seconds since the most recent input event.
    [[nodiscard]] double idleTimeInSeconds();
    void onIdleObserverTimerTick(const Timer& timer);

    [[nodiscard]] IdleObserverDelegate* delegate() const { return m_delegate; }
    void setDelegate(IdleObserverDelegate* delegate) { m_delegate = delegate; }
    /// Called by each poll that finds idle a user who was idle before; the delegate hears transitions only.
    void onStillIdle(std::function<void()> callback) { m_stillIdle = std::move(callback); }
    [[nodiscard]] double timeIdle() const { return m_timeIdle; } ///< seconds without input that count as idle
    void setTimeIdle(double timeIdle) { m_timeIdle = timeIdle; }
    [[nodiscard]] bool isIdle() const { return m_isIdle; }
    /// Where the idle time comes from; empty where that has no name.
    [[nodiscard]] QString sourceName() const { return m_eventSource.name(); }
    [[nodiscard]] const TimerRef& idleObserverTimer() const { return m_idleObserverTimer; }

    /// Whether this desktop tells of input at all; if not, the user counts as active.
    [[nodiscard]] bool canTell() const { return m_eventSource.canTell(); }

private:
    void look();

    EventSource& m_eventSource;
    IdleObserverDelegate* m_delegate = nullptr;
    std::function<void()> m_stillIdle;
    double m_timeIdle = 0;
    bool m_isIdle = false;
    TimerRef m_idleObserverTimer;
    TimerScope m_timers;
};
