#pragma once

#include "platform/MailboxHidDevice.h"
#include "platform/linux/HidrawMonitor.h"
#include "platform/linux/HidrawWorker.h"

#include <functional>
#include <memory>
#include <optional>
#include <vector>

/// An adapter behind a hidraw node. Opening takes the kernel 60 ms, so it is begun ahead of the question and
/// openExclusively() answers what came of it.
class HidrawDevice final : public MailboxHidDevice {
public:
    using OpeningEnded = std::function<void(HidStatus)>;

    HidrawDevice(HidrawAdapter adapter, std::vector<uint8_t> restReport, NewsCallback onNews);

    [[nodiscard]] const QString& syspath() const { return m_adapter.syspath; }
    [[nodiscard]] const QString& node() const { return m_adapter.node; }

    /// Tries to open the node, also once more after a failure. The callback comes on the main run loop,
    /// unless the device is gone or detached by then.
    void beginOpening(OpeningEnded ended);
    /// Waits until a report of rest that is under way has gone out, but no longer than that.
    void awaitRest(double seconds);
    /// The adapter has left: the node is closed, and everything fails with ENODEV from now on.
    void detach();

    /// The result of the last opening that has ended; EAGAIN before the first one has.
    [[nodiscard]] HidStatus openExclusively() override { return m_openStatus; }
    [[nodiscard]] std::optional<QString> stringProperty(const QString& name) const override;

private:
    [[nodiscard]] HidStatus accessFailure() const override { return m_openStatus; }
    void post(const std::function<void(HidMailbox&)>& request) override;
    void await(HidMailbox::Direction direction, uint8_t reportId) override;
    void openingEnded(HidStatus status, const OpeningEnded& ended);

    HidrawAdapter m_adapter;
    std::vector<uint8_t> m_restReport;
    std::unique_ptr<HidrawWorker> m_worker; // From the first opening until the adapter leaves.
    HidStatus m_openStatus;
    bool m_isDetached = false;
};
