#pragma once

#include <QMap>
#include <QString>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <vector>

/// Result of a HID operation: 0, or the positive errno of what went wrong.
using HidStatus = int;

/// One attached USB HID adapter. Used on the main thread only; a backend hides its threads.
class HidDevice {
public:
    /// A transfer or an opening takes at most this long; past it the operation has failed with ETIMEDOUT.
    static constexpr double kDeadlineSeconds = 0.25;

    virtual ~HidDevice() = default;
    HidDevice(const HidDevice&) = delete;
    HidDevice& operator=(const HidDevice&) = delete;

    /// Opens the adapter for this program alone. EBUSY: another program holds it; EACCES: no permission.
    [[nodiscard]] virtual HidStatus openExclusively() = 0;

    /// A string of the adapter ("Manufacturer", "Product"), or nothing when it has none.
    [[nodiscard]] virtual std::optional<QString> stringProperty(const QString& name) const = 0;

    /// Sends a feature report; byte 0 is the report ID and goes out with the rest. EINVAL below two bytes.
    [[nodiscard]] HidStatus setFeatureReport(std::span<const uint8_t> report);

    /// Reads a feature report into the buffer, whose byte 0 names the report ID. A shorter answer leaves the
    /// rest of the buffer as it was. EINVAL below two bytes.
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

    virtual ~HidManager() = default;
    HidManager(const HidManager&) = delete;
    HidManager& operator=(const HidManager&) = delete;

    /// Only adapters whose properties have exactly these values are announced.
    void setDeviceMatching(Matching matching) { m_matching = std::move(matching); }
    void registerDeviceMatchingCallback(DeviceCallback callback) { m_matched = std::move(callback); }
    void registerDeviceRemovalCallback(DeviceCallback callback) { m_removed = std::move(callback); }

    /// Starts announcing. Adapters already plugged in are announced too, after this call has returned.
    /// An adapter that could not be opened for lack of permission is announced again when its permissions
    /// change.
    [[nodiscard]] virtual HidStatus open() = 0;

    /// The matching adapters that are attached now.
    [[nodiscard]] virtual std::vector<HidDeviceRef> copyDevices() const = 0;

protected:
    HidManager() = default;

    Matching m_matching;
    DeviceCallback m_matched;
    DeviceCallback m_removed;
};
