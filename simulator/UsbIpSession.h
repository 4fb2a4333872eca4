#pragma once

#include "simulator/UsbAdapter.h"
#include "simulator/UsbIpCodec.h"

#include <deque>
#include <functional>
#include <optional>
#include <set>
#include <string>

/// One client of the simulated adapters, from its first byte to its last; it knows bytes and no sockets.
/// Adapter n of those that are plugged in is the device with bus ID "1-n".
class UsbIpSession {
public:
    using Bytes = usbip::Bytes;
    /// The desks behind the adapters, and whose adapter a client has.
    struct Desks {
        std::deque<DeskModel>& all;
        std::set<const DeskModel*> lent;
    };
    /// A feature report that went over the wire, or failed to.
    struct Report {
        size_t adapter;
        bool isRead;
        TransferResult result;
        Bytes bytes; ///< what was written or read; of a read that failed, the report ID
    };
    using Witness = std::function<void(const Report& report)>;

    UsbIpSession(Desks& desks, Witness witness);
    /// An adapter whose host is gone has lost its power.
    ~UsbIpSession();
    UsbIpSession(const UsbIpSession&) = delete;
    UsbIpSession& operator=(const UsbIpSession&) = delete;

    /// Answers what has arrived. Nothing when it made no sense: complaint() tells, and the client is to go.
    [[nodiscard]] std::optional<Bytes> take(std::span<const uint8_t> bytes);
    [[nodiscard]] const std::string& complaint() const { return m_complaint; }
    /// Whether the adapter that the client has was pulled out.
    [[nodiscard]] bool isUnplugged() const { return m_desk && !m_desk->isPlugged(); }

private:
    bool takeNext(Bytes& output);
    Bytes answer(const usbip::ListRequest& request) const;
    Bytes answer(const usbip::ImportRequest& request);
    Bytes answer(const usbip::Submit& submit);
    Bytes answer(const usbip::Unlink& unlink);

    Desks& m_desks;
    Witness m_witness;
    DeskModel* m_desk = nullptr; // Once it has one.
    size_t m_adapter = 0;
    std::set<uint32_t> m_pending; // Transfers that the adapter leaves without an answer.
    Bytes m_input;
    std::string m_complaint;
};
