#include "platform/simulated/SimulatedHidManager.h"

#include "platform/simulated/SimulatedHidDevice.h"

#include <utility>

SimulatedHidManager::SimulatedHidManager()
{
    plug();
}

SimulatedHidManager::~SimulatedHidManager()
{
    for (auto& [number, slot] : m_slots) {
        if (slot.device)
            slot.device->detach();
    }
}

HidStatus SimulatedHidManager::open()
{
    m_open = true;
    for (auto& [number, slot] : m_slots) {
        slot.announced = nullptr;
        // A device of its own for the new user; the one before is closed.
        if (slot.device) {
            slot.device->detach();
            slot.device = makeDevice(slot);
        }
    }
    announceSoon();
    return 0;
}

std::vector<HidDeviceRef> SimulatedHidManager::copyDevices() const
{
    std::vector<HidDeviceRef> devices;
    for (const auto& [number, slot] : m_slots) {
        if (isPresent(slot))
            devices.push_back(slot.device);
    }
    return devices;
}

void SimulatedHidManager::plug(int number)
{
    Slot& slot = m_slots[number];
    if (slot.device)
        return;
    slot.adapter->desk().setPlugged(true);
    slot.device = makeDevice(slot);
    announceSoon();
}

void SimulatedHidManager::unplug(int number)
{
    Slot& slot = m_slots[number];
    if (!slot.device)
        return;
    slot.adapter->desk().setPlugged(false);
    slot.device->detach();
    slot.device = nullptr;
    announceSoon();
}

bool SimulatedHidManager::isPlugged(int number) const
{
    const auto found = m_slots.find(number);
    return found != m_slots.end() && found->second.device;
}

SimulatedAdapter& SimulatedHidManager::adapter(int number)
{
    return *m_slots[number].adapter;
}

std::shared_ptr<SimulatedHidDevice> SimulatedHidManager::makeDevice(Slot& slot)
{
    return std::make_shared<SimulatedHidDevice>(slot.adapter, m_restReport,
        [this](const HidDeviceRef& device, const HidMailbox::News& news) { newsArrived(device, news); });
}

bool SimulatedHidManager::isPresent(const Slot& slot) const
{
    return slot.device && !slot.device->isLost() && isMatching(*slot.device);
}

void SimulatedHidManager::newsArrived(const HidDeviceRef& device, const HidMailbox::News& news)
{
    if (news.kind != HidMailbox::News::Kind::LateAnswer)
        announce();
    else if (const ReportCallback callback = m_lateReport)
        callback(device, news.answer);
}

void SimulatedHidManager::announceSoon()
{
    if (!m_open)
        return;
    RunLoop::main().performSoon([this, life = std::weak_ptr(m_life)] {
        if (!life.expired())
            announce();
    });
}

void SimulatedHidManager::announce()
{
    for (auto& [number, slot] : m_slots) {
        if (!announce(slot))
            return;
    }
}

/// Announces the difference between what was announced and what is: an adapter that came and went within one
/// turn of the loop is not worth a word.
bool SimulatedHidManager::announce(Slot& slot)
{
    // A callback may destroy the manager, plug and unplug.
    const std::weak_ptr life = m_life;
    if (slot.announced && (slot.announced != slot.device || !isPresent(slot))) {
        const HidDeviceRef removed = std::exchange(slot.announced, nullptr);
        if (const DeviceCallback callback = m_removed)
            callback(removed);
    }
    if (life.expired())
        return false;
    if (slot.announced || !isPresent(slot))
        return true;
    const HidDeviceRef arrived = slot.announced = slot.device;
    if (const DeviceCallback callback = m_matched)
        callback(arrived);
    return !life.expired();
}
