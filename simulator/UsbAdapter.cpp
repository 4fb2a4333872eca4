#include "simulator/UsbAdapter.h"

#include <algorithm>
#include <string_view>

namespace {
using Bytes = UsbAdapter::Bytes;

// Type of request (direction, kind, recipient) in the high byte, request in the low one.
constexpr uint16_t kGetDeviceStatus = 0x8000;
constexpr uint16_t kGetDescriptor = 0x8006;
constexpr uint16_t kGetConfiguration = 0x8008;
constexpr uint16_t kGetInterfaceDescriptor = 0x8106;
constexpr uint16_t kSetConfiguration = 0x0009;
constexpr uint16_t kSetInterface = 0x010B;
constexpr uint16_t kClearEndpointFeature = 0x0201;
constexpr uint16_t kGetReport = 0xA101;
constexpr uint16_t kSetReport = 0x2109;
constexpr uint16_t kSetIdle = 0x210A;

constexpr uint8_t kDeviceDescriptor = 1;
constexpr uint8_t kConfigurationDescriptor = 2;
constexpr uint8_t kStringDescriptor = 3;
constexpr uint8_t kHidDescriptor = 0x21;
constexpr uint8_t kReportDescriptor = 0x22;
constexpr uint8_t kFeatureReport = 3;

constexpr uint8_t kConfiguration = 1;
constexpr std::string_view kStrings[] = {"Zelvo Ardenta A/S", "Simulated desk (USB/IP)"};

constexpr uint8_t low(uint16_t number)
{
    return uint8_t(number & 0xFF);
}

constexpr uint8_t high(uint16_t number)
{
    return uint8_t(number >> 8);
}

// clang-format off
/// Feature reports 3, 4 and 5 of bytes without a meaning of their own, 7, 63 and 7 of them after the report
/// ID.
constexpr auto kReports = std::to_array<uint8_t>({
    0x06, 0x00, 0xFF, 0x09, 0x01, // The maker's own usage page, usage 1.
    0xA1, 0x01, // A collection,
    0x15, 0, 0x26, 0xFF, 0x00, 0x75, 8, // of numbers from 0 to 255, 8 bits each.
    0x85, 3, 0x95, 7, 0x09, 3, 0xB1, 0x02, // Report ID, how many numbers, usage, feature.
    0x85, 4, 0x95, 63, 0x09, 4, 0xB1, 0x02,
    0x85, 5, 0x95, 7, 0x09, 5, 0xB1, 0x02,
    0xC0,
});

constexpr auto kDevice = std::to_array<uint8_t>({
    18, kDeviceDescriptor, 0x00, 0x02, // USB 2.0.
    0, 0, 0, 64, // The interface tells the class; 64 bytes a packet.
    low(UsbAdapter::kVendor), high(UsbAdapter::kVendor),
    low(UsbAdapter::kProduct), high(UsbAdapter::kProduct),
    low(UsbAdapter::kRelease), high(UsbAdapter::kRelease),
    1, 2, 0, 1, // Maker, product, no serial number; one configuration.
});
// clang-format on

constexpr auto kHid = std::to_array<uint8_t>(
    {9, kHidDescriptor, 0x11, 0x01, 0, 1, kReportDescriptor, uint8_t(kReports.size()), 0});

constexpr auto kInterface =
    std::to_array<uint8_t>({9, 4, 0, 0, 1, UsbAdapter::kInterfaceClass, 0, 0, 0}); // Number 0, one endpoint.

constexpr auto kEndpoint =
    std::to_array<uint8_t>({7, 5, 0x81, 3, 8, 0, 10}); // In, interrupt, 8 bytes each 10 ms at most.

Bytes configuration()
{
    constexpr uint8_t kHeader = 9;
    constexpr uint8_t kBusPowered = 0x80;
    constexpr uint8_t kMilliamperes = 100;
    const auto total = uint8_t(kHeader + kInterface.size() + kHid.size() + kEndpoint.size());
    Bytes bytes {
        kHeader, kConfigurationDescriptor, total, 0, 1, kConfiguration, 0, kBusPowered, kMilliamperes / 2};
    bytes.insert(bytes.end(), kInterface.begin(), kInterface.end());
    bytes.insert(bytes.end(), kHid.begin(), kHid.end());
    bytes.insert(bytes.end(), kEndpoint.begin(), kEndpoint.end());
    return bytes;
}

/// String 0 lists the languages, which is American English here as everywhere. Characters have two bytes.
Bytes string(uint8_t index)
{
    if (index == 0)
        return {4, kStringDescriptor, 0x09, 0x04};
    if (index > std::size(kStrings))
        return {};
    const std::string_view text = kStrings[index - 1];
    Bytes bytes {uint8_t(2 + 2 * text.size()), kStringDescriptor};
    for (const char letter : text)
        bytes.insert(bytes.end(), {uint8_t(letter), 0});
    return bytes;
}

/// Empty where there is none.
Bytes descriptor(uint16_t value)
{
    switch (high(value)) {
    case kDeviceDescriptor:
        return {kDevice.begin(), kDevice.end()};
    case kConfigurationDescriptor:
        return configuration();
    case kStringDescriptor:
        return string(low(value));
    case kHidDescriptor:
        return {kHid.begin(), kHid.end()};
    case kReportDescriptor:
        return {kReports.begin(), kReports.end()};
    default:
        return {};
    }
}

UsbAdapter::Answer upTo(size_t length, Bytes data)
{
    if (data.empty())
        return {};
    data.resize(std::min(data.size(), length));
    return {TransferResult::Ok, std::move(data)};
}
}

UsbAdapter::Answer UsbAdapter::control(std::span<const uint8_t, 8> setup, std::span<const uint8_t> data)
{
    const auto wordAt = [&](size_t at) { return uint16_t(setup[at] | setup[at + 1] << 8); };
    const uint16_t value = wordAt(2);
    const uint16_t length = wordAt(6);
    switch (setup[0] << 8 | setup[1]) {
    case kGetDeviceStatus:
        return upTo(length, {0, 0});
    case kGetConfiguration:
        return upTo(length, {kConfiguration});
    case kGetDescriptor:
    case kGetInterfaceDescriptor:
        return upTo(length, descriptor(value));
    case kSetConfiguration:
    case kSetInterface:
    case kClearEndpointFeature:
    case kSetIdle:
        return {TransferResult::Ok, {}};
    case kGetReport:
        return getReport(value, length);
    case kSetReport:
        return setReport(value, data);
    default:
        return {};
    }
}

UsbAdapter::Answer UsbAdapter::getReport(uint16_t report, size_t length) const
{
    Bytes answer(std::min(length, DeskModel::kStatusReportLength));
    if (high(report) != kFeatureReport || answer.empty())
        return {};
    answer[0] = low(report);
    const TransferResult result = m_desk.getFeatureReport(answer);
    answer.resize(std::min(answer.size(), m_desk.faults().answerLength.value_or(answer.size())));
    return {result, std::move(answer), true};
}

UsbAdapter::Answer UsbAdapter::setReport(uint16_t report, std::span<const uint8_t> data)
{
    if (high(report) != kFeatureReport || data.empty() || data[0] != low(report))
        return {};
    return {m_desk.setFeatureReport(data), {}, true};
}
