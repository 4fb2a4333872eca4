#include "desk/AwakeSpan.h"

#include <cmath>

namespace {
/// Clocks are read one after the other, and the network's time service puts small errors right in one step.
constexpr double kToleranceSeconds = 2.0;
}

double AwakeSpan::seconds() const
{
    return RunLoop::main().monotonicNow() - m_start.monotonic;
}

bool AwakeSpan::hasSlept() const
{
    return RunLoop::main().readClocks().sleep() - m_start.sleep() > kToleranceSeconds;
}

bool AwakeSpan::isBroken() const
{
    const ClockReading now = RunLoop::main().readClocks();
    return std::abs((now.wall - m_start.wall) - (now.monotonic - m_start.monotonic)) > kToleranceSeconds;
}

Date AwakeSpan::end(Date unbroken) const
{
    const Date start(m_start.wall);
    const Date date = isBroken() ? start.dateByAddingSeconds(seconds()) : unbroken;
    return date.isEarlierThanDate(start) ? start : date;
}
