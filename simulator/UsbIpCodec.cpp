#include "simulator/UsbIpCodec.h"

#include <algorithm>
#include <utility>

namespace usbip {
namespace {
constexpr uint32_t kVersion = 0x0111;
constexpr uint32_t kListRequest = 0x8005;
constexpr uint32_t kListAnswer = 0x0005;
constexpr uint32_t kImportRequest = 0x8003;
constexpr uint32_t kImportAnswer = 0x0003;
constexpr size_t kOperationLength = 8;
constexpr size_t kBusIdLength = 32;
constexpr size_t kPathLength = 256;
constexpr uint32_t kFullSpeed = 2;

constexpr uint32_t kSubmit = 1;
constexpr uint32_t kUnlink = 2;
constexpr uint32_t kSubmitAnswer = 3;
constexpr uint32_t kUnlinkAnswer = 4;
constexpr size_t kTransferLength = 48;
constexpr size_t kSetupAt = 40;
constexpr uint32_t kNotIsochronous = 0xFFFFFFFF; // Some kernels send 0 instead.
/// More than any request of a desk carries.
constexpr uint32_t kMostData = 4096;

uint32_t numberAt(const Bytes& bytes, size_t at, size_t size = 4)
{
    uint32_t number = 0;
    for (size_t i = 0; i < size; ++i)
        number = number << 8 | bytes[at + i];
    return number;
}

class Writer {
public:
    Writer& number(uint32_t value, size_t size = 4)
    {
        for (size_t shift = size * 8; shift > 0; shift -= 8)
            m_bytes.push_back(uint8_t(value >> (shift - 8)));
        return *this;
    }
    Writer& text(const std::string& text, size_t length)
    {
        m_bytes.insert(m_bytes.end(), text.begin(), text.end());
        return zeros(length - text.size());
    }
    Writer& zeros(size_t count)
    {
        m_bytes.resize(m_bytes.size() + count);
        return *this;
    }
    Writer& device(const Device& device)
    {
        text("/sys/devices/simulated/" + device.busId, kPathLength).text(device.busId, kBusIdLength);
        number(Device::kBus).number(device.number).number(kFullSpeed);
        number(device.vendor, 2).number(device.product, 2).number(device.release, 2);
        zeros(3); // Class, subclass and protocol: the interface tells.
        return number(1, 1).number(1, 1).number(1, 1); // The configuration, of one, and its one interface.
    }
    Bytes take() { return std::move(m_bytes); }

private:
    Bytes m_bytes;
};

Writer operation(uint32_t code, ImportStatus status)
{
    Writer writer;
    writer.number(kVersion, 2).number(code, 2).number(uint32_t(status));
    return writer;
}

Writer answer(uint32_t command, uint32_t number, int32_t status)
{
    Writer writer;
    writer.number(command).number(number).zeros(12).number(uint32_t(status));
    return writer;
}

Bytes takeFront(Bytes& input, size_t length)
{
    const auto end = input.begin() + ptrdiff_t(length);
    Bytes front(input.begin(), end);
    input.erase(input.begin(), end);
    return front;
}

Transfer takeSubmit(Bytes& input)
{
    const bool isIn = numberAt(input, 12) != 0;
    const uint32_t length = numberAt(input, 24);
    const uint32_t packets = numberAt(input, 32);
    if (packets != 0 && packets != kNotIsochronous)
        return Malformed {"an isochronous transfer"};
    if (!isIn && length > kMostData)
        return Malformed {"a transfer of " + std::to_string(length) + " bytes"};
    const size_t carried = isIn ? 0 : length;
    if (input.size() < kTransferLength + carried)
        return Incomplete {};
    const Bytes header = takeFront(input, kTransferLength);
    Submit submit {numberAt(header, 4), isIn, numberAt(header, 16), length, {}, takeFront(input, carried)};
    std::copy(header.begin() + kSetupAt, header.end(), submit.setup.begin());
    return submit;
}
}

Operation takeOperation(Bytes& input)
{
    if (input.size() < kOperationLength)
        return Incomplete {};
    if (numberAt(input, 0, 2) != kVersion)
        return Malformed {"another version of USB/IP"};
    switch (numberAt(input, 2, 2)) {
    case kListRequest:
        takeFront(input, kOperationLength);
        return ListRequest {};
    case kImportRequest: {
        if (input.size() < kOperationLength + kBusIdLength)
            return Incomplete {};
        const Bytes request = takeFront(input, kOperationLength + kBusIdLength);
        const auto begin = request.begin() + kOperationLength;
        return ImportRequest {std::string(begin, std::find(begin, request.end(), 0))};
    }
    default:
        return Malformed {"an unknown request"};
    }
}

Transfer takeTransfer(Bytes& input)
{
    if (input.size() < kTransferLength)
        return Incomplete {};
    switch (numberAt(input, 0)) {
    case kSubmit:
        return takeSubmit(input);
    case kUnlink: {
        const Bytes header = takeFront(input, kTransferLength);
        return Unlink {numberAt(header, 4), numberAt(header, 20)};
    }
    default:
        return Malformed {"an unknown command"};
    }
}

Bytes listAnswer(std::span<const Device> devices)
{
    Writer writer = operation(kListAnswer, ImportStatus::Lent);
    writer.number(uint32_t(devices.size()));
    for (const Device& device : devices)
        writer.device(device).number(device.interfaceClass, 1).zeros(3);
    return writer.take();
}

Bytes importAnswer(const Device& device)
{
    return operation(kImportAnswer, ImportStatus::Lent).device(device).take();
}

Bytes importRefusal(ImportStatus why)
{
    return operation(kImportAnswer, why).take();
}

Bytes submitAnswer(const Submit& submit, int32_t status, std::span<const uint8_t> data)
{
    const size_t actual = submit.isIn ? data.size() : submit.data.size();
    Writer writer = answer(kSubmitAnswer, submit.number, status);
    writer.number(status == 0 ? uint32_t(actual) : 0).zeros(kTransferLength - 28);
    Bytes bytes = writer.take();
    bytes.insert(bytes.end(), data.begin(), data.end());
    return bytes;
}

Bytes unlinkAnswer(const Unlink& unlink, int32_t status)
{
    return answer(kUnlinkAnswer, unlink.number, status).zeros(kTransferLength - 24).take();
}
}
