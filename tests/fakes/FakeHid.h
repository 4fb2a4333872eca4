#pragma once

#include "platform/HidManager.h"

#include <array>
#include <cerrno>
#include <cstdint>
#include <vector>

/// An adapter in memory: answers status reads from `status` and records every report written.
class FakeHidDevice final : public HidDevice {
public:
    using Report = std::vector<uint8_t>;

    QMap<QString, QString> strings {{QStringLiteral("Manufacturer"), QStringLiteral("Zelvo Ardenta A/S")},
        {QStringLiteral("Product"), QStringLiteral("Desk adapter")}};
    std::array<uint8_t, 64> status {}; ///< what a read of report 4 gives; byte 0 is set by the read
    HidStatus openStatus = 0;
    HidStatus writeStatus = 0;
    HidStatus readStatus = 0;
    std::vector<Report> written;
    int reads = 0;

    /// Sets the status word's bit 0.
    void setCommunicating(bool communicating);
    /// Sets the height bytes, raw 0.1 mm.
    void setHeight(uint16_t height);

    [[nodiscard]] HidStatus openExclusively() override { return openStatus; }
    [[nodiscard]] std::optional<QString> stringProperty(const QString& name) const override;

protected:
    HidStatus platformSetFeatureReport(std::span<const uint8_t> report) override;
    HidStatus platformGetFeatureReport(std::span<uint8_t> report) override;
};

/// A HID manager with buttons for plugging adapters in and out.
class FakeHidManager final : public HidManager {
public:
    HidStatus openStatus = 0;

    [[nodiscard]] HidStatus open() override;
    [[nodiscard]] std::vector<HidDeviceRef> copyDevices() const override { return m_attached; }

    [[nodiscard]] const Matching& matching() const { return m_matching; }
    void plug(const HidDeviceRef& device);
    void unplug(const HidDeviceRef& device);

private:
    bool m_open = false;
    std::vector<HidDeviceRef> m_attached;
};
