#pragma once

#include "platform/RunLoop.h"
#include "platform/simulated/HidTransfer.h"
#include "simulator/DeskModel.h"

#include <functional>

class SimulatedHidDevice;

/// One desk with its adapter and the way to it. Time reaches the desk when something asks for it, so that an
/// idle desk costs no timer.
class SimulatedAdapter {
public:
    /// A silent adapter's transfer fails after this time, as the kernel has it.
    static constexpr double kSilenceSeconds = 5.05;

    /// The desk as it stands now. Ask anew after time has passed.
    [[nodiscard]] DeskModel& desk();

    /// How long each transfer takes that begins from now on, in seconds.
    void setLatency(double seconds) { m_latency = seconds; }
    /// The next transfers fail with that errno, and the adapter hears nothing of them.
    void failNext(int count, HidStatus status);
    /// While stalled, the outstanding transfer does not end; it is carried out when the stall ends.
    void setStalled(bool stalled);
    /// Hears of each transfer when it ends.
    void onTransfer(std::function<void(const HidTransfer&)> recorder) { m_recorder = std::move(recorder); }

private:
    friend class SimulatedHidDevice;

    [[nodiscard]] double secondsOfTransfer();
    [[nodiscard]] HidStatus perform(HidMailbox::Direction direction, std::vector<uint8_t>& bytes);

    DeskModel m_desk;
    double m_deskTime = RunLoop::main().monotonicNow();
    double m_latency = 0;
    int m_failures = 0;
    HidStatus m_failure = 0;
    bool m_isStalled = false;
    std::function<void(const HidTransfer&)> m_recorder;
    SimulatedHidDevice* m_attached = nullptr; // What sits on the cable now.
};
