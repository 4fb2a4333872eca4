#pragma once

#include "platform/HidManager.h"

#include <memory>

class DeskModel;

/// The built-in simulated desk as a HID backend: one adapter, plugged in from the start, whose other end is a DeskModel
/// that moves with the run loop's time.
class SimulatedHidManager final : public HidManager {
public:
    SimulatedHidManager();
    ~SimulatedHidManager() override;

    [[nodiscard]] HidStatus open() override;
    [[nodiscard]] std::vector<HidDeviceRef> copyDevices() const override;

    /// Plugs the adapter in or pulls it out; announced on the run loop.
    void plug();
    void unplug();
    [[nodiscard]] bool isPlugged() const;

    /// The desk itself, for faults and error codes (the developer's test window, the tour).
    [[nodiscard]] DeskModel& desk();

private:
    struct State;
    std::shared_ptr<State> m_state;
};
