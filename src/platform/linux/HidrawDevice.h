#pragma once

#include "platform/HidManager.h"
#include "platform/linux/HidrawMonitor.h"
#include "platform/linux/HidrawWorker.h"

#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <vector>

/// An adapter behind a hidraw node. Opening takes the kernel 60 ms, so it is begun ahead of the question and
/// openExclusively() answers what came of it.
class HidrawDevice final : public HidDevice, public std::enable_shared_from_this<HidrawDevice> {
public:
    using OpeningEnded = std::function<void(HidStatus)>;

    explicit HidrawDevice(HidrawAdapter adapter);

    [[nodiscard]] const QString& syspath() const { return m_adapter.syspath; }
    [[nodiscard]] const QString& node() const { return m_adapter.node; }

    /// Tries to open the node, also once more after a failure. The callback comes on the main run loop,
    /// unless the device is gone or detached by then.
    void beginOpening(OpeningEnded ended);
    /// The adapter has left: the node is closed, and everything fails with ENODEV from now on.
    void detach();

    /// The result of the last opening that has ended; EAGAIN before the first one has.
    [[nodiscard]] HidStatus openExclusively() override;
    [[nodiscard]] std::optional<QString> stringProperty(const QString& name) const override;

protected:
    HidStatus platformSetFeatureReport(std::span<const uint8_t> report) override;
    HidStatus platformGetFeatureReport(std::span<uint8_t> report) override;

private:
    void openingEnded(HidStatus status, const OpeningEnded& ended);

    HidrawAdapter m_adapter;
    std::unique_ptr<HidrawWorker> m_worker;
    HidStatus m_openStatus;
};
