#include "desk/AwakeSpan.h"

#include "platform/RunLoop.h"

#include <cmath>

namespace {
/// Clocks are read one after the other, and the network's time service puts small errors right in one step.
constexpr double kToleranceSeconds = 2.0;

double totalSleep()
{
    return RunLoop::main().bootTimeNow() - RunLoop::main().monotonicNow();
}
}

AwakeSpan::AwakeSpan()
    : m_startDate(Date::now())
    , m_startedAt(RunLoop::main().monotonicNow())
    , m_sleepBefore(totalSleep())
{
}

double AwakeSpan::seconds() const
{
    return RunLoop::main().monotonicNow() - m_startedAt;
}

bool AwakeSpan::hasSlept() const
{
    return totalSleep() - m_sleepBefore > kToleranceSeconds;
}

bool AwakeSpan::isBroken() const
{
    const double onTheWall = Date::now().timeIntervalSinceDate(m_startDate);
    return std::abs(onTheWall - seconds()) > kToleranceSeconds;
}

Date AwakeSpan::end(Date unbroken) const
{
    const Date date = isBroken() ? m_startDate.dateByAddingSeconds(seconds()) : unbroken;
    return date.isEarlierThanDate(m_startDate) ? m_startDate : date;
}
