#include "desk/IdleObserver.h"

#include "data/FixedPoint.h"
#include "platform/Log.h"

#include <array>

namespace {
using EventType = EventSource::EventType;

constexpr double kPollInterval = 10.0;
constexpr std::array kCombinedEventTypes {EventType::LeftMouseDown, EventType::LeftMouseUp,
    EventType::RightMouseDown, EventType::RightMouseUp, EventType::MouseMoved, EventType::LeftMouseDragged,
    EventType::RightMouseDragged, EventType::KeyDown, EventType::KeyUp, EventType::FlagsChanged,
    EventType::ScrollWheel, EventType::TabletPointer, EventType::TabletProximity, EventType::OtherMouseDown,
    EventType::OtherMouseUp};
}

IdleObserver::IdleObserver(EventSource& eventSource)
    : m_eventSource(eventSource)
{
    startIdleObserverTimer();
}

IdleObserver::IdleObserver(EventSource& eventSource, double timeIdle)
    : IdleObserver(eventSource)
{
    m_timeIdle = timeIdle;
}

void IdleObserver::startIdleObserverTimer()
{
    stopIdleObserverTimer();
    m_idleObserverTimer = m_timers.schedule(
        kPollInterval, RunLoop::Repeat::Yes, [this](Timer& timer) { onIdleObserverTimerTick(timer); });
}

double IdleObserver::idleTimeInSeconds()
{
    // A zero may stand for "not known": it gives way to whatever comes next, and what was gathered before it
    // is dropped with it. So starting at 0 is starting at the first answer.
    double idleTime = 0;
    for (const EventType eventType : kCombinedEventTypes) {
        const double answer = m_eventSource.secondsSinceLastEventType(eventType);
        if (idleTime == 0 || idleTime > answer)
            idleTime = answer;
    }
    // Asked like the others but not counted: such a drag began with its own mouse-down, which was.
    static_cast<void>(m_eventSource.secondsSinceLastEventType(EventType::OtherMouseDragged));
    return idleTime;
}

void IdleObserver::onIdleObserverTimerTick(const Timer&)
{
    // The answer may come when this object is gone or no longer observes; its timer is invalid then.
    m_eventSource.refresh([this, weakTimer = std::weak_ptr(m_idleObserverTimer)] {
        if (const TimerRef timer = weakTimer.lock(); timer && timer->isValid())
            look();
    });
}

void IdleObserver::look()
{
    const double idleTime = idleTimeInSeconds();
    Log::line(QStringLiteral("IdleTime: ") + fixed(idleTime, 6));
    if (const bool isIdle = idleTime >= m_timeIdle; isIdle != m_isIdle) {
        Log::line(isIdle ? QStringLiteral("IdleObserver - Idle") : QStringLiteral("IdleObserver - Active"));
        m_isIdle = isIdle;
        if (m_delegate)
            m_delegate->updatedIdleObserverIsIdle(isIdle);
    } else if (m_isIdle && m_stillIdle) {
        m_stillIdle();
    }
}
