#pragma once

#include "desk/ZelvoDeviceNode.h"
#include "platform/HidManager.h"
#include "platform/RunLoop.h"

#include <QString>

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <vector>

class ZelvoHIDDevice;

class ZelvoHIDManagerDelegate {
public:
    virtual void deviceAdded(const std::shared_ptr<ZelvoHIDDevice>& device) = 0;
    virtual void deviceRemoved(const std::shared_ptr<ZelvoHIDDevice>& device) = 0;

protected:
    ~ZelvoHIDManagerDelegate() = default;
};

/// Finds the desk's USB adapter, lists the first one attached and tells its delegate of arrivals and
/// removals. It owns the transport; what the reports mean is ZelvoHIDDevice's.
///
/// The program drives one desk. A further adapter gets a device object and is announced, but is not listed;
/// when the listed one leaves, the one that has waited longest is brought in as if it had just been plugged
/// in. When another adapter becomes the one that all devices transfer through, a held movement ends.
class ZelvoHIDManager {
public:
    using Devices = std::vector<std::shared_ptr<ZelvoHIDDevice>>;

    /// Posted without object when an adapter cannot be opened and when one has left.
    static inline const QString kAccessDidChange = QStringLiteral("org.zelvo.StandUp.accessdidchange");

    /// Starts matching; adapters already attached are announced once the run loop runs.
    explicit ZelvoHIDManager(HidManager& manager);
    ~ZelvoHIDManager();
    ZelvoHIDManager(const ZelvoHIDManager&) = delete;
    ZelvoHIDManager& operator=(const ZelvoHIDManager&) = delete;

    [[nodiscard]] bool isDeviceConneced() const;
    /// A new device object over the listed adapter; null when none is listed.
    [[nodiscard]] std::shared_ptr<ZelvoHIDDevice> connectedDevice() const;

    void handleMatchingDevice(const HidDeviceRef& device, const HidManager& sender, int32_t result);
    void handleRemovedDevice(const HidDeviceRef& device, const HidManager& sender, int32_t result);

    std::shared_ptr<ZelvoHIDDevice> addDeviceReference(const HidDeviceRef& reference);
    void addDevice(const std::shared_ptr<ZelvoHIDDevice>& device);
    void removeDevice(const std::shared_ptr<ZelvoHIDDevice>& device);
    /// The first device made over that node; null when there is none.
    [[nodiscard]] std::shared_ptr<ZelvoHIDDevice> deviceByNode(const ZelvoDeviceNodeRef& node) const;
    /// The listed node, when the reference is its adapter's; null for any other. Only the head is looked at.
    [[nodiscard]] ZelvoDeviceNodeRef deviceNodeByReference(const HidDeviceRef& reference) const;
    /// Takes the adapter's node off the list. False when none was listed.
    bool killDeviceReference(const HidDeviceRef& reference);
    /// How opening the attached adapter ended: 0, EACCES without permission, EBUSY while another program
    /// holds it, or another errno. Empty when none is attached.
    [[nodiscard]] std::optional<HidStatus> accessStatus() const;
    [[nodiscard]] QStringList commandsGivingAccess() const { return m_manager.commandsGivingAccess(); }
    [[nodiscard]] static int64_t USBDeviceCount(const HidManager& manager);

    /// Sends the first 8 bytes of the buffer as a feature report (byte 0 = report ID). False, and no transfer
    /// at all, for a device that is not connected.
    static bool writeBuffer(std::span<const uint8_t> buffer, const ZelvoHIDDevice& toDevice);
    /// Reads up to 64 bytes into the buffer, whose byte 0 names the report.
    static bool readBuffer(std::span<uint8_t> buffer, const ZelvoHIDDevice& toDevice)
    {
        return readReport(buffer, toDevice) == 0;
    }
    /// The same, telling a failure (an errno) from a first answer that is still under way (EINPROGRESS).
    [[nodiscard]] static HidStatus readReport(std::span<uint8_t> buffer, const ZelvoHIDDevice& toDevice);

    [[nodiscard]] ZelvoHIDManagerDelegate* delegate() const { return m_delegate; }
    void setDelegate(ZelvoHIDManagerDelegate* delegate) { m_delegate = delegate; }
    [[nodiscard]] const Devices& devices() const { return m_devices; }

private:
    void start(const HidDeviceRef& reference, const HidManager& sender);
    [[nodiscard]] std::shared_ptr<ZelvoHIDDevice> deviceByReference(const HidDeviceRef& reference) const;
    void handleLateReport(const HidDeviceRef& device, std::span<const uint8_t> report);
    void endHeldMovements();
    void repeatPendingChecks();
    void giveNodeBack();
    void bringInWaitingDevice();

    HidManager& m_manager;
    ZelvoHIDManagerDelegate* m_delegate = nullptr;
    Devices m_devices;
    std::map<HidDeviceRef, HidStatus> m_access; ///< all that are attached, and how opening them ended
    TimerScope m_timers;
};
