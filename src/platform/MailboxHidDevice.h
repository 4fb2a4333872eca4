#pragma once

#include "platform/HidMailbox.h"
#include "platform/RunLoop.h"

#include <functional>
#include <memory>

/// A HID device whose transfers go through a mailbox, which a backend works: it performs what begin() gives,
/// ends it, and hands the news on the main run loop to newsArrived(). Watches over transfers that last too
/// long, and probes an adapter that is lost.
class MailboxHidDevice : public HidDevice, public std::enable_shared_from_this<MailboxHidDevice> {
public:
    using NewsCallback = std::function<void(const HidDeviceRef&, const HidMailbox::News&)>;

    [[nodiscard]] bool isLost() const { return m_isLost; }

protected:
    explicit MailboxHidDevice(NewsCallback onNews)
        : m_onNews(std::move(onNews))
    {
    }

    /// Why no transfer is possible at all; 0 when they are.
    [[nodiscard]] virtual HidStatus accessFailure() const = 0;
    /// Hands the mailbox over for the length of the call and begins what then waits in it.
    virtual void post(const std::function<void(HidMailbox&)>& request) = 0;
    /// Waits until no such transfer is under way, kWaitSeconds at most.
    virtual void await(HidMailbox::Direction direction, uint8_t reportId) = 0;
    /// On the main run loop, never inside a call of the device's user.
    void newsArrived(const HidMailbox::News& news);
    /// Tells no news any more and ends the timers: the adapter has left, or nobody listens.
    void fallSilent();

private:
    HidStatus platformSetFeatureReport(std::span<const uint8_t> report) final;
    HidStatus platformGetFeatureReport(std::span<uint8_t> report) final;
    void watch();
    void giveUpOverdue();

    NewsCallback m_onNews;
    bool m_isLost = false;
    TimerRef m_watch;
    TimerRef m_probing;
    TimerScope m_timers;
};
