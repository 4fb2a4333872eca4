#include "platform/Timer.h"

#include <utility>

Timer::Timer(QVariant userInfo)
    : m_userInfo(std::move(userInfo))
{
}

void Timer::invalidate()
{
    if (!m_valid)
        return;
    m_valid = false;
    stop();
}

void invalidate(const TimerRef& timer)
{
    if (timer)
        timer->invalidate();
}
