#include "platform/linux/LinuxHidManager.h"

#include "platform/Log.h"
#include "platform/linux/HidrawDevice.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <utility>

namespace {
constexpr double kOpeningRetrySeconds = 30.0;
constexpr double kAccessChangeSettles = 0.2;
constexpr double kPatienceAtExitSeconds = 0.5;

void logRefusal(const QString& node, HidStatus status)
{
    if (status == EACCES) {
        Log::line(QStringLiteral("No permission to use the desk adapter %1. To allow it, run: %2")
                      .arg(node, AccessRule::commands().join(QStringLiteral(" && "))));
    } else if (status == EBUSY) {
        Log::line(QStringLiteral("The desk adapter %1 is in use by another program.").arg(node));
    } else {
        Log::line(QStringLiteral("The desk adapter %1 cannot be opened: %2")
                      .arg(node, QString::fromLocal8Bit(strerror(status))));
    }
}

/// Calls a copy, because the manager and its callbacks may end in the call.
// NOLINTNEXTLINE(performance-unnecessary-value-param)
void announce(const HidManager::DeviceCallback callback, const HidDeviceRef& device)
{
    if (callback)
        callback(device);
}

/// Another program, or whatever else is in the way, may be gone after a while; a node that is gone is not
/// coming back.
bool maySucceedLater(HidStatus status)
{
    return status != ENODEV && status != ENOENT;
}
}

LinuxHidManager::LinuxHidManager()
    : m_monitor([this](const HidrawAdapter& adapter) { arrived(adapter); },
        [this](const QString& syspath) { left(syspath); })
    , m_access([this](const QString& node) { accessChanged(node); })
{
}

LinuxHidManager::~LinuxHidManager()
{
    // A stop that waits behind a slow transfer would otherwise end with the process.
    const double end = RunLoop::main().monotonicNow() + kPatienceAtExitSeconds;
    for (const Attached& attached : m_attached)
        attached.device->awaitRest(std::max(0.0, end - RunLoop::main().monotonicNow()));
    // Somebody else may hold a device for longer. Detached, it calls back no more.
    for (const Attached& attached : m_attached)
        attached.device->detach();
}

HidStatus LinuxHidManager::open()
{
    return m_monitor.start();
}

std::vector<HidDeviceRef> LinuxHidManager::copyDevices() const
{
    std::vector<HidDeviceRef> devices;
    for (const Attached& attached : m_attached) {
        if (attached.announced && !attached.device->isLost())
            devices.push_back(attached.device);
    }
    return devices;
}

void LinuxHidManager::arrived(const HidrawAdapter& adapter)
{
    const auto device = std::make_shared<HidrawDevice>(adapter, m_restReport,
        [this](const HidDeviceRef& sender, const HidMailbox::News& news) { newsArrived(sender, news); });
    if (!isMatching(*device) || find(adapter.syspath) != m_attached.end())
        return;
    beginOpening(device);
    m_attached.push_back({device, {}, {}, {}});
}

void LinuxHidManager::left(const QString& syspath)
{
    const auto found = find(syspath);
    if (found == m_attached.end())
        return;
    const Attached attached = std::move(*found);
    m_attached.erase(found);
    invalidate(attached.retry);
    m_access.unwatch(attached.device->node());
    attached.device->detach();
    if (attached.announced)
        announce(m_removed, attached.device);
}

void LinuxHidManager::accessChanged(const QString& node)
{
    // The kernel tells of a closing just before it gives the lock back.
    for (Attached& attached : m_attached) {
        if (attached.device->node() == node)
            retryAfter(kAccessChangeSettles, attached);
    }
}

void LinuxHidManager::retryAfter(double seconds, Attached& attached)
{
    invalidate(attached.retry);
    attached.retry = m_timers.schedule(
        seconds, RunLoop::Repeat::No, [this, device = attached.device](Timer&) { beginOpening(device); });
}

void LinuxHidManager::beginOpening(const std::shared_ptr<HidrawDevice>& device)
{
    device->beginOpening(
        [this, syspath = device->syspath()](HidStatus status) { openingEnded(syspath, status); });
}

void LinuxHidManager::openingEnded(const QString& syspath, HidStatus status)
{
    const auto found = find(syspath);
    if (found == m_attached.end())
        return;
    const std::shared_ptr<HidrawDevice> device = found->device;
    if ((status == EACCES || status == EBUSY) && !found->isWatched) {
        found->isWatched = m_access.watch(device->node());
        // Once more under the watch, so that a change between the refusal and the watch is not missed.
        if (found->isWatched)
            return beginOpening(device);
    }
    if (status != 0 && maySucceedLater(status))
        retryAfter(kOpeningRetrySeconds, *found);
    // After the first announcement only another result is news, and nothing after success.
    if (found->announced == status || found->announced == 0)
        return;
    found->announced = status;
    if (status == 0)
        m_access.unwatch(device->node());
    else
        logRefusal(device->node(), status);
    announce(m_matched, device);
}

void LinuxHidManager::newsArrived(const HidDeviceRef& device, const HidMailbox::News& news)
{
    const auto found = std::find_if(m_attached.begin(), m_attached.end(),
        [&](const Attached& attached) { return attached.device == device; });
    if (found == m_attached.end())
        return;
    switch (news.kind) {
    case HidMailbox::News::Kind::LateAnswer:
        if (const ReportCallback callback = m_lateReport)
            callback(device, news.answer);
        break;
    case HidMailbox::News::Kind::Lost:
        Log::line(QStringLiteral("The desk adapter %1 does not answer.").arg(found->device->node()));
        found->announced = std::nullopt; // Its leaving is told once, here or when udev says so.
        announce(m_removed, device);
        break;
    case HidMailbox::News::Kind::Found:
        Log::line(QStringLiteral("The desk adapter %1 answers again.").arg(found->device->node()));
        found->announced = 0;
        announce(m_matched, device);
        break;
    case HidMailbox::News::Kind::None:
        break;
    }
}

LinuxHidManager::DeviceList::iterator LinuxHidManager::find(const QString& syspath)
{
    return std::find_if(m_attached.begin(), m_attached.end(),
        [&](const Attached& attached) { return attached.device->syspath() == syspath; });
}
