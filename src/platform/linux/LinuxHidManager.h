#pragma once

#include "platform/HidMailbox.h"
#include "platform/RunLoop.h"
#include "platform/linux/AccessRule.h"
#include "platform/linux/AccessWatcher.h"
#include "platform/linux/HidrawMonitor.h"

#include <memory>
#include <optional>
#include <vector>

class HidrawDevice;

/// The USB HID adapters of a Linux machine: udev tells which are there, hidraw talks to them. An adapter is
/// opened before it is announced, so that nobody on the main thread waits for it.
class LinuxHidManager final : public HidManager {
public:
    LinuxHidManager();
    /// Waits half a second at most, for a stop that is still under way: an adapter that does not answer is
    /// left to its own thread.
    ~LinuxHidManager() override;

    [[nodiscard]] HidStatus open() override;
    /// Those announced; an adapter that is still being opened is not among them.
    [[nodiscard]] std::vector<HidDeviceRef> copyDevices() const override;
    [[nodiscard]] QStringList commandsGivingAccess() const override { return AccessRule::commands(); }

private:
    struct Attached {
        std::shared_ptr<HidrawDevice> device;
        bool isWatched = false;
        std::optional<HidStatus> announced; ///< with what result of opening; empty while it does not answer
        TimerRef retry;
    };
    using DeviceList = std::vector<Attached>;

    void arrived(const HidrawAdapter& adapter);
    void left(const QString& syspath);
    void accessChanged(const QString& node);
    void retryAfter(double seconds, Attached& attached);
    void beginOpening(const std::shared_ptr<HidrawDevice>& device);
    void openingEnded(const QString& syspath, HidStatus status);
    void newsArrived(const HidDeviceRef& device, const HidMailbox::News& news);

    [[nodiscard]] DeviceList::iterator find(const QString& syspath);

    HidrawMonitor m_monitor;
    AccessWatcher m_access;
    DeviceList m_attached;
    TimerScope m_timers;
};
