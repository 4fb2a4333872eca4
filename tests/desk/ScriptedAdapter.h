#pragma once

#include "desk/ZelvoHIDDevice.h"
#include "platform/HidManager.h"

#include <vector>

/// An adapter that answers at once what it is told to.
struct ScriptedAdapter final : HidDevice {
    QString product = QStringLiteral("Desk adapter");
    ZelvoHIDDevice::Report status {}; ///< what a read gives; byte 0 is the reader's
    HidStatus openStatus = 0;
    HidStatus writeStatus = 0;
    HidStatus readStatus = 0;
    std::vector<std::vector<uint8_t>> written;

    [[nodiscard]] HidStatus openExclusively() override { return openStatus; }
    [[nodiscard]] std::optional<QString> stringProperty(const QString& name) const override
    {
        return name == QLatin1String("Product") ? std::optional(product) : std::nullopt;
    }

    HidStatus platformSetFeatureReport(std::span<const uint8_t> report) override
    {
        written.emplace_back(report.begin(), report.end());
        return writeStatus;
    }
    HidStatus platformGetFeatureReport(std::span<uint8_t> report) override
    {
        std::copy_n(status.begin() + 1, report.size() - 1, report.begin() + 1);
        return readStatus; // A failed read may leave anything.
    }
};
