#include "platform/MailboxHidDevice.h"

#include <algorithm>

namespace {
using Direction = HidMailbox::Direction;
using News = HidMailbox::News;

constexpr double kProbeInterval = 1.0;

double now()
{
    return RunLoop::main().monotonicNow();
}
}

HidStatus MailboxHidDevice::platformSetFeatureReport(std::span<const uint8_t> report)
{
    if (const HidStatus failure = accessFailure(); failure != 0)
        return failure;
    post([&](HidMailbox& mailbox) { mailbox.write(report, now()); });
    await(Direction::Write, report[0]);
    watch();
    return 0;
}

HidStatus MailboxHidDevice::platformGetFeatureReport(std::span<uint8_t> report)
{
    HidStatus status = accessFailure();
    if (status != 0)
        return status;
    post([&](HidMailbox& mailbox) { mailbox.read(report, now()); });
    await(Direction::Read, report[0]);
    watch();
    post([&](HidMailbox& mailbox) { status = mailbox.takeAnswer(report, now()); });
    return status;
}

void MailboxHidDevice::watch()
{
    if (m_watch && m_watch->isValid())
        return;
    std::optional<double> due;
    post([&](HidMailbox& mailbox) { due = mailbox.overdueAt(); });
    if (due) // Never at once: a rounded moment could come too early for ever.
        m_watch = m_timers.schedule(
            std::max(kWaitSeconds, *due - now()), RunLoop::Repeat::No, [this](Timer&) { giveUpOverdue(); },
            {}, RunLoop::Precision::Precise);
}

void MailboxHidDevice::giveUpOverdue()
{
    News news;
    post([&](HidMailbox& mailbox) { news = mailbox.giveUpOverdue(now()); });
    if (news.kind == News::Kind::None)
        watch();
    else
        newsArrived(news);
}

void MailboxHidDevice::newsArrived(const News& news)
{
    // A late answer may have been on its way here when the adapter was given up.
    if (!m_onNews || (news.kind == News::Kind::LateAnswer && m_isLost))
        return;
    m_isLost = news.kind == News::Kind::Lost;
    invalidate(m_probing);
    if (m_isLost)
        m_probing = m_timers.schedule(kProbeInterval, RunLoop::Repeat::Yes,
            [this](Timer&) { post([](HidMailbox& mailbox) { mailbox.probe(now()); }); });
    // The listener may let go of the device, and of itself.
    const auto self = shared_from_this();
    const NewsCallback onNews = m_onNews;
    onNews(self, news);
}

void MailboxHidDevice::fallSilent()
{
    m_onNews = {};
    invalidate(m_watch);
    invalidate(m_probing);
}
