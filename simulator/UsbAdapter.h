#pragma once

#include "simulator/DeskModel.h"

#include <cstdint>
#include <span>
#include <vector>

/// A desk's adapter as its USB host sees it: descriptors, names, and the control requests that carry the
/// feature reports. It has one interface, of class HID, with an interrupt endpoint that never has anything to
/// tell.
class UsbAdapter {
public:
    static constexpr uint16_t kVendor = 0x1209; ///< numbers that are free for tests: nothing goes by them
    static constexpr uint16_t kProduct = 0x0001;
    static constexpr uint16_t kRelease = 0x0100;
    static constexpr uint8_t kInterfaceClass = 3; ///< HID

    using Bytes = std::vector<uint8_t>;
    struct Answer {
        TransferResult result = TransferResult::Refused;
        Bytes data; ///< of a request for data that ended well
        bool isReport = false; ///< the request carried a feature report
    };

    explicit UsbAdapter(DeskModel& desk)
        : m_desk(desk)
    {
    }

    /// Carries out one control request: its setup packet, and the data that came with it.
    [[nodiscard]] Answer control(std::span<const uint8_t, 8> setup, std::span<const uint8_t> data);

private:
    [[nodiscard]] Answer getReport(uint16_t report, size_t length) const;
    [[nodiscard]] Answer setReport(uint16_t report, std::span<const uint8_t> data);

    DeskModel& m_desk;
};
