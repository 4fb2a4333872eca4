#include "platform/simulated/SimulatedAdapter.h"

#include "platform/simulated/SimulatedHidDevice.h"

#include <cerrno>
#include <utility>

namespace {
HidStatus statusOf(TransferResult result)
{
    switch (result) {
    case TransferResult::Ok:
        return 0;
    case TransferResult::Refused:
        return EPIPE;
    case TransferResult::Failed:
        return EPROTO;
    case TransferResult::NoAnswer:
        return ETIMEDOUT;
    case TransferResult::Unplugged:
        return ENODEV;
    }
    return EIO;
}
}

DeskModel& SimulatedAdapter::desk()
{
    const double now = RunLoop::main().monotonicNow();
    m_desk.advance(now - std::exchange(m_deskTime, now));
    return m_desk;
}

void SimulatedAdapter::failNext(int count, HidStatus status)
{
    m_failures = count;
    m_failure = status;
}

void SimulatedAdapter::setStalled(bool stalled)
{
    m_isStalled = stalled;
    if (!stalled && m_attached)
        m_attached->stallEnded();
}

double SimulatedAdapter::secondsOfTransfer()
{
    return m_desk.faults().noAnswer ? kSilenceSeconds : m_latency;
}

HidStatus SimulatedAdapter::perform(HidMailbox::Direction direction, std::vector<uint8_t>& bytes)
{
    if (m_failures > 0) {
        --m_failures;
        return m_failure;
    }
    return statusOf(direction == HidMailbox::Direction::Write ? desk().setFeatureReport(bytes)
                                                              : desk().getFeatureReport(bytes));
}
