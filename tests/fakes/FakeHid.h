#pragma once

#include "platform/HidManager.h"

#include <algorithm>
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

    void setCommunicating(bool communicating) { status[2] = communicating; }
    /// Raw 0.1 mm.
    void setHeight(uint16_t height)
    {
        status[4] = uint8_t(height & 0xFF);
        status[5] = uint8_t(height >> 8);
    }

    [[nodiscard]] HidStatus openExclusively() override { return openStatus; }
    [[nodiscard]] std::optional<QString> stringProperty(const QString& name) const override
    {
        return strings.contains(name) ? std::optional(strings[name]) : std::nullopt;
    }

protected:
    HidStatus platformSetFeatureReport(std::span<const uint8_t> report) override
    {
        if (writeStatus == 0)
            written.emplace_back(report.begin(), report.end());
        return writeStatus;
    }
    HidStatus platformGetFeatureReport(std::span<uint8_t> report) override
    {
        ++reads;
        auto answer = status;
        if (readStatus != 0)
            answer.fill(0xA5); // A failed read may leave anything.
        std::copy_n(answer.begin() + 1, std::min(report.size(), answer.size()) - 1, report.begin() + 1);
        return readStatus;
    }
};

/// A HID manager with buttons for plugging adapters in and out.
class FakeHidManager final : public HidManager {
public:
    HidStatus openStatus = 0;

    [[nodiscard]] HidStatus open() override
    {
        m_isOpen = openStatus == 0;
        return openStatus;
    }
    [[nodiscard]] std::vector<HidDeviceRef> copyDevices() const override { return m_attached; }
    [[nodiscard]] const Matching& matching() const { return m_matching; }

    void plug(const HidDeviceRef& device)
    {
        if (!m_isOpen || !isMatching(*device))
            return;
        m_attached.push_back(device);
        if (m_matched)
            m_matched(device);
    }
    void unplug(const HidDeviceRef& device)
    {
        if (std::erase(m_attached, device) > 0 && m_removed)
            m_removed(device);
    }

private:
    bool m_isOpen = false;
    std::vector<HidDeviceRef> m_attached;
};
