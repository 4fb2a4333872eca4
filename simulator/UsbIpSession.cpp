#include "simulator/UsbIpSession.h"

#include <algorithm>
#include <cerrno>
#include <type_traits>
#include <utility>

namespace {
constexpr uint32_t kControlEndpoint = 0;
constexpr uint32_t kInterruptEndpoint = 1;
/// A kernel has a handful of transfers under way.
constexpr size_t kMostPending = 64;

usbip::Device deviceOf(size_t adapter)
{
    return {uint32_t(adapter), "1-" + std::to_string(adapter), UsbAdapter::kVendor, UsbAdapter::kProduct,
        UsbAdapter::kRelease, UsbAdapter::kInterfaceClass};
}

/// The error numbers with which a Linux kernel tells how a transfer ended.
int32_t statusOf(TransferResult result)
{
    switch (result) {
    case TransferResult::Ok:
        return 0;
    case TransferResult::Refused:
        return -EPIPE;
    case TransferResult::Failed:
        return -EPROTO;
    case TransferResult::NoAnswer:
        return -ETIMEDOUT;
    case TransferResult::Unplugged:
        break;
    }
    return -ENODEV;
}
}

UsbIpSession::UsbIpSession(Desks& desks, Witness witness)
    : m_desks(desks)
    , m_witness(std::move(witness))
{
}

UsbIpSession::~UsbIpSession()
{
    if (!m_desk)
        return;
    m_desks.lent.erase(m_desk);
    const bool wasPlugged = m_desk->isPlugged();
    m_desk->setPlugged(false);
    m_desk->setPlugged(wasPlugged);
}

std::optional<UsbIpSession::Bytes> UsbIpSession::take(std::span<const uint8_t> bytes)
{
    m_input.insert(m_input.end(), bytes.begin(), bytes.end());
    Bytes output;
    while (takeNext(output)) { }
    if (m_pending.size() > kMostPending)
        m_complaint = "too many transfers at once";
    return m_complaint.empty() ? std::optional(output) : std::nullopt;
}

bool UsbIpSession::takeNext(Bytes& output)
{
    const auto meet = [&](const auto& request) {
        using Request = std::decay_t<decltype(request)>;
        if constexpr (std::is_same_v<Request, usbip::Malformed>) {
            m_complaint = request.why;
        } else if constexpr (!std::is_same_v<Request, usbip::Incomplete>) {
            const Bytes said = answer(request);
            output.insert(output.end(), said.begin(), said.end());
            return true;
        }
        return false;
    };
    return m_desk ? std::visit(meet, usbip::takeTransfer(m_input))
                  : std::visit(meet, usbip::takeOperation(m_input));
}

UsbIpSession::Bytes UsbIpSession::answer(const usbip::ListRequest& /*request*/) const
{
    std::vector<usbip::Device> devices;
    for (size_t adapter = 1; adapter <= m_desks.all.size(); ++adapter) {
        if (m_desks.all[adapter - 1].isPlugged())
            devices.push_back(deviceOf(adapter));
    }
    return usbip::listAnswer(devices);
}

UsbIpSession::Bytes UsbIpSession::answer(const usbip::ImportRequest& request)
{
    for (size_t adapter = 1; adapter <= m_desks.all.size(); ++adapter) {
        DeskModel& desk = m_desks.all[adapter - 1];
        const usbip::Device device = deviceOf(adapter);
        if (device.busId != request.busId || !desk.isPlugged())
            continue;
        if (!m_desks.lent.insert(&desk).second)
            return usbip::importRefusal(usbip::ImportStatus::Busy);
        m_desk = &desk;
        m_adapter = adapter;
        return usbip::importAnswer(device);
    }
    return usbip::importRefusal(usbip::ImportStatus::NoSuchDevice);
}

UsbIpSession::Bytes UsbIpSession::answer(const usbip::Submit& submit)
{
    if (submit.endpoint == kInterruptEndpoint && submit.isIn) {
        m_pending.insert(submit.number);
        return {};
    }
    if (submit.endpoint != kControlEndpoint)
        return usbip::submitAnswer(submit, -EPIPE, {});
    UsbAdapter::Answer answer = UsbAdapter(*m_desk).control(submit.setup, submit.data);
    if (answer.isReport) {
        const Bytes read = answer.result == TransferResult::Ok ? answer.data : Bytes {submit.setup[2]};
        m_witness({m_adapter, submit.isIn, answer.result, submit.isIn ? read : submit.data});
    }
    if (answer.result == TransferResult::NoAnswer) {
        m_pending.insert(submit.number);
        return {};
    }
    const bool brings = submit.isIn && answer.result == TransferResult::Ok;
    answer.data.resize(brings ? std::min<size_t>(answer.data.size(), submit.length) : 0);
    return usbip::submitAnswer(submit, statusOf(answer.result), answer.data);
}

UsbIpSession::Bytes UsbIpSession::answer(const usbip::Unlink& unlink)
{
    return usbip::unlinkAnswer(unlink, m_pending.erase(unlink.victim) ? -ECONNRESET : 0);
}
