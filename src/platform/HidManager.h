#pragma once

#include <QMap>
#include <QString>
#include <QStringList>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <vector>

/// Result of a HID operation: 0, or the positive errno of what went wrong.
using HidStatus = int;

/// One attached USB HID adapter. Used on the main thread only; a backend hides its threads.
///
/// Late is not failed: a transfer is waited for a moment and then left to itself. A report written goes out
/// as soon as it can, unless a newer one of its ID takes its place; a read gives the last answer meanwhile.
class HidDevice {
public:
    /// No call takes longer than this.
    static constexpr double kWaitSeconds = 0.01;

    virtual ~HidDevice() = default;
    HidDevice(const HidDevice&) = delete;
    HidDevice& operator=(const HidDevice&) = delete;

    /// Opens the adapter for this program alone. EBUSY: another program holds it; EACCES: no permission.
    [[nodiscard]] virtual HidStatus openExclusively() = 0;

    /// A string of the adapter ("Manufacturer", "Product"), or nothing when it has none.
    [[nodiscard]] virtual std::optional<QString> stringProperty(const QString& name) const = 0;

    /// Sends a feature report; byte 0 is the report ID and goes out with the rest. 0 also while it is under
    /// way or tried once more. EINVAL below two bytes.
    [[nodiscard]] HidStatus setFeatureReport(std::span<const uint8_t> report);

    /// Reads a feature report into the buffer, whose byte 0 names the report ID. A shorter answer leaves the
    /// rest of the buffer as it was. EINPROGRESS when the answer is under way and none came before it; a late
    /// answer is reported to the manager's user. EINVAL below two bytes.
    [[nodiscard]] HidStatus getFeatureReport(std::span<uint8_t> report);

protected:
    HidDevice() = default;
    virtual HidStatus platformSetFeatureReport(std::span<const uint8_t> report) = 0;
    virtual HidStatus platformGetFeatureReport(std::span<uint8_t> report) = 0;
};

using HidDeviceRef = std::shared_ptr<HidDevice>;

/// The system's USB HID adapters: those that match are announced as they come and go, on the main run loop.
class HidManager {
public:
    using Matching = QMap<QString, QString>;
    using DeviceCallback = std::function<void(const HidDeviceRef&)>;
    using ReportCallback = std::function<void(const HidDeviceRef&, std::span<const uint8_t> report)>;

    virtual ~HidManager() = default;
    HidManager(const HidManager&) = delete;
    HidManager& operator=(const HidManager&) = delete;

    /// Only adapters whose properties have exactly these values are announced.
    void setDeviceMatching(Matching matching) { m_matching = std::move(matching); }
    void registerDeviceMatchingCallback(DeviceCallback callback) { m_matched = std::move(callback); }
    void registerDeviceRemovalCallback(DeviceCallback callback) { m_removed = std::move(callback); }
    /// Hears of the answers that came after their reader had gone on without them.
    void registerLateReportCallback(ReportCallback callback) { m_lateReport = std::move(callback); }
    /// The report that stops whatever the adapter moves; others with its ID move something. Before open().
    void setRestReport(std::vector<uint8_t> report) { m_restReport = std::move(report); }

    /// Starts announcing. Adapters already plugged in are announced too, after this call has returned. An
    /// adapter that could not be opened is announced again once it can be, or cannot for another reason. One
    /// that stopped answering is removed, and announced again when it answers, after the report of rest has
    /// gone out to it.
    [[nodiscard]] virtual HidStatus open() = 0;

    /// The matching adapters that are attached now.
    [[nodiscard]] virtual std::vector<HidDeviceRef> copyDevices() const = 0;

    /// What the user can type into a terminal where an adapter may not be opened (EACCES).
    [[nodiscard]] virtual QStringList commandsGivingAccess() const { return {}; }

protected:
    HidManager() = default;
    [[nodiscard]] bool isMatching(const HidDevice& device) const;

    Matching m_matching;
    DeviceCallback m_matched;
    DeviceCallback m_removed;
    ReportCallback m_lateReport;
    std::vector<uint8_t> m_restReport;
};
