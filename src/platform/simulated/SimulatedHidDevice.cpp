#include "platform/simulated/SimulatedHidDevice.h"

#include <cerrno>
#include <utility>

SimulatedHidDevice::SimulatedHidDevice(
    std::shared_ptr<SimulatedAdapter> adapter, std::vector<uint8_t> restReport, NewsCallback onNews)
    : MailboxHidDevice(std::move(onNews))
    , m_adapter(std::move(adapter))
{
    m_mailbox.setRestReport(std::move(restReport));
    m_adapter->m_attached = this;
}

SimulatedHidDevice::~SimulatedHidDevice()
{
    detach();
}

HidStatus SimulatedHidDevice::openExclusively()
{
    if (m_adapter->m_attached != this)
        return ENODEV;
    m_isOpen = true;
    return 0;
}

std::optional<QString> SimulatedHidDevice::stringProperty(const QString& name) const
{
    if (name == QStringLiteral("Manufacturer"))
        return QStringLiteral("Zelvo Ardenta A/S");
    if (name == QStringLiteral("Product"))
        return QStringLiteral("Simulated desk");
    return std::nullopt;
}

void SimulatedHidDevice::detach()
{
    fallSilent();
    invalidate(m_transferTimer);
    if (m_adapter->m_attached == this)
        m_adapter->m_attached = nullptr;
}

HidStatus SimulatedHidDevice::accessFailure() const
{
    if (m_adapter->m_attached != this)
        return ENODEV;
    return m_isOpen ? 0 : EBADF;
}

void SimulatedHidDevice::post(const std::function<void(HidMailbox&)>& request)
{
    request(m_mailbox);
    work();
}

void SimulatedHidDevice::work()
{
    while (!m_isBusy) {
        const double now = RunLoop::main().monotonicNow();
        const HidMailbox::Transfer* next = m_mailbox.begin(now);
        if (!next)
            return;
        m_isBusy = true;
        m_begunAt = now;
        m_outstanding = {RunLoop::main().now(), 0, next->direction, next->bytes, 0};
        const double seconds = m_adapter->secondsOfTransfer();
        if (m_adapter->m_isStalled)
            return;
        if (seconds > kWaitSeconds) {
            m_transferTimer = m_timers.schedule(
                seconds, RunLoop::Repeat::No,
                [this](Timer&) {
                    endTransfer();
                    work();
                },
                {}, RunLoop::Precision::Precise);
            return;
        }
        endTransfer();
    }
}

void SimulatedHidDevice::stallEnded()
{
    if (!m_isBusy || (m_transferTimer && m_transferTimer->isValid()))
        return;
    endTransfer();
    work();
}

void SimulatedHidDevice::endTransfer()
{
    if (m_adapter->m_isStalled)
        return; // The stall began while it was on its way.
    HidTransfer& transfer = m_outstanding;
    transfer.status = m_adapter->perform(transfer.direction, transfer.bytes);
    transfer.duration = RunLoop::main().monotonicNow() - m_begunAt;
    m_isBusy = false;
    if (m_adapter->m_recorder)
        m_adapter->m_recorder(transfer);
    tellSoon(m_mailbox.end(transfer.status, transfer.bytes));
}

void SimulatedHidDevice::tellSoon(HidMailbox::News news)
{
    if (news.kind == HidMailbox::News::Kind::None)
        return;
    RunLoop::main().performSoon([weak = weak_from_this(), news = std::move(news)] {
        if (const auto self = std::static_pointer_cast<SimulatedHidDevice>(weak.lock()))
            self->newsArrived(news);
    });
}
