#pragma once

#include "platform/HidManager.h"
#include "simulator/DeskModel.h"

#include <memory>

/// The built-in simulated desk as a HID backend: one adapter, plugged in from the start, whose other end is a
/// DeskModel that moves with the run loop's monotonic time. Time reaches the desk when something asks for it,
/// so an idle desk costs no timer.
///
/// A transfer that is not answered fails with ETIMEDOUT at once, because nothing in a simulation should wait.
/// Other failures: ENODEV unplugged, EBADF not opened, EPIPE refused by the adapter, EPROTO broken off.
class SimulatedHidManager final : public HidManager {
public:
    SimulatedHidManager();
    ~SimulatedHidManager() override;

    /// Announces the adapter if it is plugged in, at each call: whoever opens anew hears of it, too.
    [[nodiscard]] HidStatus open() override;
    [[nodiscard]] std::vector<HidDeviceRef> copyDevices() const override;

    /// Plugs the adapter in or pulls it out; announced on the run loop. Each plugging in is a new device.
    void plug();
    void unplug();
    [[nodiscard]] bool isPlugged() const { return m_device != nullptr; }

    /// The desk itself as it stands now, for faults and error codes. Ask anew after time has passed: what is
    /// reached through an older reference may be behind it.
    [[nodiscard]] DeskModel& desk();

private:
    class Device;
    struct State;

    void announceSoon();
    void announce();

    std::shared_ptr<State> m_state; // Shared with the devices, which may outlive the manager.
    HidDeviceRef m_device; // Empty while unplugged.
    HidDeviceRef m_announced;
    bool m_open = false;
    std::shared_ptr<void> m_life =
        std::make_shared<char>(); // Tells a pending announcement that it has a manager.
};
