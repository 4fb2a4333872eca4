#include "desk/ZelvoHIDManager.h"

#include "desk/ZelvoHIDDevice.h"
#include "platform/Log.h"
#include "platform/NotificationCenter.h"

#include <algorithm>
#include <cerrno>
#include <utility>

namespace {
constexpr size_t kWrittenBytes = 8;
constexpr size_t kReadBytes = 64;
constexpr qsizetype kLongestLoggedModel = 80;

ZelvoDeviceNodeRef s_deviceList; // The head; the process has one list, whoever asks.

/// Product strings come from the cable: one line of them, and not a page, goes to the log.
QByteArray loggedModel(const ZelvoDeviceNode& node)
{
    return QString::fromStdString(node.model).simplified().left(kLongestLoggedModel).toUtf8();
}

void* address(const HidDeviceRef& reference)
{
    return reference.get();
}

HidDevice* transferTarget(const ZelvoHIDDevice& device)
{
    const ZelvoDeviceNodeRef& node = ZelvoHIDDevice::node();
    return device.isConnected() && node ? node->deviceRef.get() : nullptr;
}
}

ZelvoHIDManager::ZelvoHIDManager(HidManager& manager)
    : m_manager(manager)
{
    s_deviceList = nullptr;
    m_manager.setDeviceMatching({{QStringLiteral("Manufacturer"), QStringLiteral("Zelvo Ardenta A/S")}});
    m_manager.registerDeviceMatchingCallback(
        [this](const HidDeviceRef& device) { handleMatchingDevice(device, m_manager, 0); });
    m_manager.registerDeviceRemovalCallback(
        [this](const HidDeviceRef& device) { handleRemovedDevice(device, m_manager, 0); });
    m_manager.registerLateReportCallback([this](const HidDeviceRef& device, std::span<const uint8_t> report) {
        handleLateReport(device, report);
    });
    const ZelvoHIDDevice::Report stop = ZelvoHIDDevice::stopReport();
    m_manager.setRestReport({stop.begin(), stop.begin() + kWrittenBytes});
    if (m_manager.open() != 0)
        Log::line(QStringLiteral("IOHIDManagerOpen failed."));
}

ZelvoHIDManager::~ZelvoHIDManager()
{
    m_manager.registerDeviceMatchingCallback({});
    m_manager.registerDeviceRemovalCallback({});
    m_manager.registerLateReportCallback({});
    // Nothing static may keep an adapter open until the process ends.
    s_deviceList = nullptr;
    ZelvoHIDDevice::setNode(nullptr);
}

bool ZelvoHIDManager::isDeviceConneced() const
{
    return s_deviceList != nullptr;
}

std::shared_ptr<ZelvoHIDDevice> ZelvoHIDManager::connectedDevice() const
{
    return s_deviceList ? std::make_shared<ZelvoHIDDevice>(s_deviceList) : nullptr;
}

void ZelvoHIDManager::handleMatchingDevice(const HidDeviceRef& device, const HidManager& sender, int32_t)
{
    const HidStatus status = device->openExclusively();
    m_access[device] = status;
    if (status != 0) {
        Log::line(QStringLiteral("Open failed"));
        NotificationCenter::defaultCenter().post(kAccessDidChange);
        return;
    }
    start(device, sender);
}

void ZelvoHIDManager::start(const HidDeviceRef& reference, const HidManager& sender)
{
    const auto added = addDeviceReference(reference);
    const bool isInitialised = added->initHID();
    repeatPendingChecks();
    if (!isInitialised) {
        Log::line(QStringLiteral("Could not init device"));
        return;
    }
    Log::line(QString::asprintf("\nDevice added: %p\nModel: %s\nDevice count: %lld", address(reference),
        loggedModel(*added->ownNode()).constData(), static_cast<long long>(USBDeviceCount(sender))));
}

void ZelvoHIDManager::handleRemovedDevice(const HidDeviceRef& device, const HidManager& sender, int32_t)
{
    // Told apart before the list is asked: only the listed adapter can be found in it.
    const ZelvoDeviceNodeRef listed = deviceNodeByReference(device);
    if (const auto left = listed ? deviceByNode(listed) : deviceByReference(device)) {
        if (left->ownNode() != ZelvoHIDDevice::node()) {
            // Its hold moves another desk, which stays, and the stop reads that one's height.
            left->setDelegate(nullptr);
            endHeldMovements();
        }
        removeDevice(left);
    }
    killDeviceReference(device);
    giveNodeBack();
    Log::line(QString::asprintf("\nDevice removed: %p\nDevice count: %lld", address(device),
        static_cast<long long>(USBDeviceCount(sender))));
    m_access.erase(device);
    NotificationCenter::defaultCenter().post(kAccessDidChange);
    m_timers.schedule(0, RunLoop::Repeat::No, [this](Timer&) { bringInWaitingDevice(); });
}

void ZelvoHIDManager::handleLateReport(const HidDeviceRef& device, std::span<const uint8_t> report)
{
    if (!ZelvoHIDDevice::node() || ZelvoHIDDevice::node()->deviceRef != device)
        return;
    ZelvoHIDDevice::Report whole {};
    std::copy_n(report.begin(), std::min(report.size(), whole.size()), whole.begin());
    const Devices devices = m_devices; // All of them transfer through this node; each knows what it asked.
    for (const auto& asking : devices)
        asking->takeLateReport(whole);
}

/// The newest device still attached defines the node again; with none the adapter may be closed.
void ZelvoHIDManager::giveNodeBack()
{
    const ZelvoDeviceNodeRef driven = ZelvoHIDDevice::node();
    ZelvoHIDDevice::setNode(m_devices.empty() ? nullptr : m_devices.back()->ownNode());
    if (ZelvoHIDDevice::node() == driven)
        return;
    // A hold that went to the adapter that has left must not begin to move the other one.
    endHeldMovements();
    repeatPendingChecks();
}

void ZelvoHIDManager::bringInWaitingDevice()
{
    if (s_deviceList || m_devices.empty())
        return;
    // A new object, because the old one announced itself to nobody and will not do so again.
    const auto waiting = m_devices.front();
    removeDevice(waiting);
    start(waiting->ownNode()->deviceRef, m_manager);
}

void ZelvoHIDManager::endHeldMovements()
{
    const Devices devices = m_devices;
    for (const auto& device : devices) {
        if (device->moveTimer() && device->moveTimer()->isValid())
            device->stop();
    }
}

/// A late answer of an adapter that is not everybody's any more is heard by nobody: who waited for it would
/// wait until the desk is plugged in anew.
void ZelvoHIDManager::repeatPendingChecks()
{
    const Devices devices = m_devices;
    for (const auto& device : devices)
        device->repeatPendingCheck();
}

std::shared_ptr<ZelvoHIDDevice> ZelvoHIDManager::addDeviceReference(const HidDeviceRef& reference)
{
    auto node = std::make_shared<ZelvoDeviceNode>();
    node->model = reference->stringProperty(QStringLiteral("Product")).value_or(QString()).toStdString();
    node->deviceRef = reference;
    // A node made while another is listed is filled and never linked: the program drives one desk.
    if (!s_deviceList)
        s_deviceList = node;

    // The new device's node is everybody's: what is held must stop while the old adapter is still reached.
    endHeldMovements();
    auto device = std::make_shared<ZelvoHIDDevice>(node);
    device->setIsConnected(true);
    addDevice(device);
    return device;
}

void ZelvoHIDManager::addDevice(const std::shared_ptr<ZelvoHIDDevice>& device)
{
    if (m_delegate)
        m_delegate->deviceAdded(device);
    device->setIsConnected(true);
    m_devices.push_back(device);
}

void ZelvoHIDManager::removeDevice(const std::shared_ptr<ZelvoHIDDevice>& device)
{
    const auto leaving = device->shared_from_this(); // The argument may be the list's own element.
    if (m_delegate)
        m_delegate->deviceRemoved(leaving);
    leaving->setIsConnected(false);
    std::erase(m_devices, leaving);
    leaving->handleError(std::nullopt); // A shown error leaves with its adapter.
}

std::shared_ptr<ZelvoHIDDevice> ZelvoHIDManager::deviceByNode(const ZelvoDeviceNodeRef& node) const
{
    return node ? deviceByReference(node->deviceRef) : nullptr;
}

std::shared_ptr<ZelvoHIDDevice> ZelvoHIDManager::deviceByReference(const HidDeviceRef& reference) const
{
    const auto found = std::find_if(m_devices.begin(), m_devices.end(),
        [&](const auto& device) { return device->ownNode()->deviceRef == reference; });
    return found == m_devices.end() ? nullptr : *found;
}

ZelvoDeviceNodeRef ZelvoHIDManager::deviceNodeByReference(const HidDeviceRef& reference) const
{
    return s_deviceList && s_deviceList->deviceRef == reference ? s_deviceList : nullptr;
}

bool ZelvoHIDManager::killDeviceReference(const HidDeviceRef& reference)
{
    for (ZelvoDeviceNodeRef* link = &s_deviceList; *link; link = &(*link)->next) {
        if ((*link)->deviceRef == reference) {
            *link = std::exchange((*link)->next, nullptr);
            return true;
        }
    }
    return false;
}

std::optional<HidStatus> ZelvoHIDManager::accessStatus() const
{
    // One that is open counts more than any that is not.
    const auto best = std::min_element(m_access.begin(), m_access.end(),
        [](const auto& one, const auto& other) { return one.second < other.second; });
    return best == m_access.end() ? std::nullopt : std::optional(best->second);
}

int64_t ZelvoHIDManager::USBDeviceCount(const HidManager& manager)
{
    return int64_t(manager.copyDevices().size());
}

bool ZelvoHIDManager::writeBuffer(std::span<const uint8_t> buffer, const ZelvoHIDDevice& toDevice)
{
    HidDevice* target = transferTarget(toDevice);
    if (!target)
        return false;
    const HidStatus status = target->setFeatureReport(buffer.first(std::min(buffer.size(), kWrittenBytes)));
    if (status != 0)
        Log::line(QString::asprintf("IOHIDDeviceSetReport return value: %08x", unsigned(status)));
    return status == 0;
}

HidStatus ZelvoHIDManager::readReport(std::span<uint8_t> buffer, const ZelvoHIDDevice& toDevice)
{
    HidDevice* target = transferTarget(toDevice);
    if (!target)
        return ENODEV;
    const HidStatus status = target->getFeatureReport(buffer.first(std::min(buffer.size(), kReadBytes)));
    if (status != 0 && status != EINPROGRESS)
        Log::line(QString::asprintf("IOHIDDeviceGetReport return value: %08x", unsigned(status)));
    return status;
}
