#pragma once

#include "platform/HidManager.h"
#include "platform/simulated/SimulatedAdapter.h"

#include <map>
#include <memory>

class SimulatedHidDevice;

/// The built-in simulated desk as a HID backend: one adapter, plugged in from the start, whose other end is a
/// DeskModel that moves with the run loop's monotonic time. Further adapters, each with a desk of its own,
/// are numbered from 1 and appear when they are plugged in.
///
/// Transfers take no time until they are told to. Failures: ENODEV unplugged, EBADF not opened; what goes
/// wrong on the wire is dealt with as by every backend.
class SimulatedHidManager : public HidManager {
public:
    SimulatedHidManager();
    ~SimulatedHidManager() override;

    [[nodiscard]] HidStatus open() override;
    [[nodiscard]] std::vector<HidDeviceRef> copyDevices() const override;
    /// Those of a desktop with the program's package.
    [[nodiscard]] QStringList commandsGivingAccess() const override
    {
        return {QStringLiteral("sudo udevadm control --reload"),
            QStringLiteral("sudo udevadm trigger -s hidraw -c change")};
    }

    /// Plugs an adapter in or pulls it out; announced on the run loop. Each plugging in is a new device.
    void plug(int number = 0);
    void unplug(int number = 0);
    [[nodiscard]] bool isPlugged(int number = 0) const;

    /// The way to an adapter, for latency, failures, stalls and a log of the wire.
    [[nodiscard]] SimulatedAdapter& adapter(int number = 0);
    /// The desk itself as it stands now, for faults and error codes. Ask anew after time has passed: what is
    /// reached through an older reference may be behind it.
    [[nodiscard]] DeskModel& desk(int number = 0) { return adapter(number).desk(); }

private:
    struct Slot {
        std::shared_ptr<SimulatedAdapter> adapter = std::make_shared<SimulatedAdapter>();
        std::shared_ptr<SimulatedHidDevice> device; // Empty while unplugged.
        std::shared_ptr<SimulatedHidDevice> announced;
    };

    [[nodiscard]] std::shared_ptr<SimulatedHidDevice> makeDevice(Slot& slot);
    [[nodiscard]] bool isPresent(const Slot& slot) const;
    void newsArrived(const HidDeviceRef& device, const HidMailbox::News& news);
    void announceSoon();
    void announce();
    /// False when the manager ended in the callback.
    [[nodiscard]] bool announce(Slot& slot);

    std::map<int, Slot> m_slots;
    bool m_open = false;
    std::shared_ptr<void> m_life =
        std::make_shared<char>(); // Tells a pending announcement that it has a manager.
};
