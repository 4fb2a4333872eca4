#pragma once

#include "platform/MailboxHidDevice.h"
#include "platform/simulated/SimulatedAdapter.h"

#include <functional>
#include <memory>
#include <optional>

/// An adapter's end on the computer, from one plugging in to the next: works its mailbox in the run loop's
/// time.
class SimulatedHidDevice final : public MailboxHidDevice {
public:
    SimulatedHidDevice(
        std::shared_ptr<SimulatedAdapter> adapter, std::vector<uint8_t> restReport, NewsCallback onNews);
    ~SimulatedHidDevice() override;

    [[nodiscard]] HidStatus openExclusively() override;
    [[nodiscard]] std::optional<QString> stringProperty(const QString& name) const override;

    /// The cable is pulled: the device is closed, and tells nothing any more.
    void detach();
    /// The outstanding transfer, if there is one, ends now.
    void stallEnded();

private:
    [[nodiscard]] HidStatus accessFailure() const override;
    void post(const std::function<void(HidMailbox&)>& request) override;
    void await(HidMailbox::Direction, uint8_t) override { }
    void work();
    void endTransfer();
    void tellSoon(HidMailbox::News news);

    std::shared_ptr<SimulatedAdapter> m_adapter;
    HidMailbox m_mailbox;
    HidTransfer m_outstanding {};
    double m_begunAt = 0;
    bool m_isOpen = false;
    bool m_isBusy = false;
    TimerRef m_transferTimer;
    TimerScope m_timers;
};
