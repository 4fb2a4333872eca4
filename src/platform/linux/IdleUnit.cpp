#include "platform/linux/IdleUnit.h"

#include <utility>

namespace {
/// Whole seconds and the way over the bus make a difference of two readings so inexact.
constexpr double kTolerance = 1.5;
/// Input was just now, whatever such a reading counts.
constexpr double kSmallReading = 2;
/// Milliseconds may grow by ten in ten seconds when there was input in between, but hardly twice in a row.
constexpr int kStepsOfSeconds = 2;
constexpr double kMillisecondsPerSecond = 1000.0;
}

std::optional<double> IdleUnit::seconds(double reading, double at)
{
    const std::optional<Reading> last = std::exchange(m_last, Reading {reading, at});
    if (last)
        compare(reading - last->value, at - last->at);
    if (m_perSecond)
        return reading / *m_perSecond;
    return reading <= kSmallReading ? std::optional(reading) : std::nullopt;
}

void IdleUnit::compare(double grown, double passed)
{
    if (grown > passed + kTolerance) {
        m_perSecond = kMillisecondsPerSecond; // Seconds grow no faster than time.
    } else if (grown < passed - kTolerance || passed <= kTolerance) {
        m_stepsWithTime = 0;
    } else if (++m_stepsWithTime == kStepsOfSeconds && !m_perSecond) {
        m_perSecond = 1;
    }
}
