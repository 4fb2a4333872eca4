#include "platform/linux/LinuxHidManager.h"

#include "platform/Log.h"
#include "platform/linux/HidrawDevice.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <utility>

namespace {
void logRefusal(const QString& node, HidStatus status)
{
    if (status == EACCES) {
        Log::line(QStringLiteral("No permission to use the desk adapter %1: put the rule file "
                                 "70-zelvo-standup.rules into /etc/udev/rules.d and run \"sudo udevadm "
                                 "trigger --subsystem-match=hidraw --action=change\".")
                      .arg(node));
    } else if (status == EBUSY) {
        Log::line(QStringLiteral("The desk adapter %1 is in use by another program.").arg(node));
    } else {
        Log::line(QStringLiteral("The desk adapter %1 cannot be opened: %2")
                      .arg(node, QString::fromLocal8Bit(strerror(status))));
    }
}

/// Calls a copy, because the manager and its callbacks may end in the call.
void announce(const HidManager::DeviceCallback callback, const HidDeviceRef& device)
{
    if (callback)
        callback(device);
}
}

LinuxHidManager::LinuxHidManager()
    : m_monitor([this](const HidrawAdapter& adapter) { arrived(adapter); },
        [this](const QString& syspath) { left(syspath); })
    , m_permissions([this](const QString& node) { permissionsChanged(node); })
{
}

LinuxHidManager::~LinuxHidManager()
{
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
        if (attached.announced)
            devices.push_back(attached.device);
    }
    return devices;
}

void LinuxHidManager::arrived(const HidrawAdapter& adapter)
{
    if (!matches(adapter) || find(adapter.syspath) != m_attached.end())
        return;
    m_attached.push_back({std::make_shared<HidrawDevice>(adapter), false, std::nullopt});
    beginOpening(m_attached.back().device);
}

void LinuxHidManager::left(const QString& syspath)
{
    const auto found = find(syspath);
    if (found == m_attached.end())
        return;
    const Attached attached = std::move(*found);
    m_attached.erase(found);
    m_permissions.unwatch(attached.device->node());
    attached.device->detach();
    if (attached.announced)
        announce(m_removed, attached.device);
}

void LinuxHidManager::permissionsChanged(const QString& node)
{
    for (const Attached& attached : m_attached) {
        if (attached.device->node() == node)
            beginOpening(attached.device);
    }
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
    if (status == EACCES && !found->isWatched) {
        found->isWatched = m_permissions.watch(device->node());
        // Once more under the watch, so that a change between the refusal and the watch is not missed.
        if (found->isWatched)
            return beginOpening(device);
    }
    // After the first announcement only success is news, and only once.
    if (found->announced && (status != 0 || found->announced == 0))
        return;
    found->announced = status;
    if (status == 0)
        m_permissions.unwatch(device->node());
    else
        logRefusal(device->node(), status);
    announce(m_matched, device);
}

bool LinuxHidManager::matches(const HidrawAdapter& adapter) const
{
    const auto names = m_matching.keys();
    return std::all_of(names.begin(), names.end(), [&](const QString& name) {
        const auto value = adapter.strings.constFind(name);
        return value != adapter.strings.cend() && *value == m_matching[name];
    });
}

LinuxHidManager::DeviceList::iterator LinuxHidManager::find(const QString& syspath)
{
    return std::find_if(m_attached.begin(), m_attached.end(),
        [&](const Attached& attached) { return attached.device->syspath() == syspath; });
}
