#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <variant>
#include <vector>

/// The byte shapes of USB/IP 1.1.1, by which one kernel lends a USB device to another, as the Linux kernel
/// documents them (Documentation/usb/usbip_protocol.rst). Numbers go high byte first; a status is a negative
/// Linux error number.
namespace usbip {
using Bytes = std::vector<uint8_t>;

struct Incomplete { }; ///< the rest has not arrived yet
struct Malformed {
    std::string why;
};

/// "Which devices are there?"
struct ListRequest { };
/// "Lend me this one." What follows on the connection are its transfers.
struct ImportRequest {
    std::string busId;
};
/// A transfer to carry out; control transfers have a setup packet.
struct Submit {
    uint32_t number;
    bool isIn;
    uint32_t endpoint;
    uint32_t length; ///< of the data, which an IN transfer asks for
    std::array<uint8_t, 8> setup;
    Bytes data; ///< what an OUT transfer carries
};
/// "Forget that transfer, if it is not over yet."
struct Unlink {
    uint32_t number;
    uint32_t victim;
};

using Operation = std::variant<Incomplete, Malformed, ListRequest, ImportRequest>;
using Transfer = std::variant<Incomplete, Malformed, Submit, Unlink>;

/// Take what a client says off the front of its bytes: before a device is lent to it, and from then on.
[[nodiscard]] Operation takeOperation(Bytes& input);
[[nodiscard]] Transfer takeTransfer(Bytes& input);

/// A device with one configuration of one interface, at full speed.
struct Device {
    static constexpr uint32_t kBus = 1;
    uint32_t number; ///< on the bus, from 1
    std::string busId;
    uint16_t vendor;
    uint16_t product;
    uint16_t release;
    uint8_t interfaceClass;
};

enum class ImportStatus : uint32_t { Lent = 0, Busy = 2, NoSuchDevice = 4 };

[[nodiscard]] Bytes listAnswer(std::span<const Device> devices);
[[nodiscard]] Bytes importAnswer(const Device& device);
[[nodiscard]] Bytes importRefusal(ImportStatus why);
/// An IN transfer brings data; an OUT transfer tells only how much it took.
[[nodiscard]] Bytes submitAnswer(const Submit& submit, int32_t status, std::span<const uint8_t> data);
[[nodiscard]] Bytes unlinkAnswer(const Unlink& unlink, int32_t status);
}
