#include "platform/linux/HidrawDevice.h"

#include <QFile>

#include <algorithm>
#include <cerrno>
#include <utility>

namespace {
/// The bytes of one transfer. A silent adapter outlives the caller's patience, so the worker never touches
/// the caller's own buffer.
using Bytes = std::shared_ptr<std::vector<uint8_t>>;

Bytes copyOf(std::span<const uint8_t> report)
{
    return std::make_shared<std::vector<uint8_t>>(report.begin(), report.end());
}
}

HidrawDevice::HidrawDevice(HidrawAdapter adapter)
    : m_adapter(std::move(adapter))
    , m_worker(std::make_unique<HidrawWorker>(QFile::encodeName(m_adapter.node).toStdString()))
    , m_openStatus(EAGAIN)
{
}

void HidrawDevice::beginOpening(OpeningEnded ended)
{
    if (!m_worker)
        return;
    m_worker->perform([](HidrawNode& node) { return node.open(); },
        [weak = weak_from_this(), ended = std::move(ended)](HidStatus status) {
            if (const auto device = weak.lock())
                device->openingEnded(status, ended);
        });
}

void HidrawDevice::openingEnded(HidStatus status, const OpeningEnded& ended)
{
    if (!m_worker)
        return;
    m_openStatus = status;
    ended(status);
}

void HidrawDevice::detach()
{
    m_worker.reset();
}

HidStatus HidrawDevice::openExclusively()
{
    return m_worker ? m_openStatus : ENODEV;
}

std::optional<QString> HidrawDevice::stringProperty(const QString& name) const
{
    const auto found = m_adapter.strings.constFind(name);
    return found == m_adapter.strings.cend() ? std::nullopt : std::optional(*found);
}

HidStatus HidrawDevice::platformSetFeatureReport(std::span<const uint8_t> report)
{
    if (!m_worker)
        return ENODEV;
    return m_worker
        ->performWithin(
            kDeadlineSeconds, [bytes = copyOf(report)](HidrawNode& node) { return node.setFeature(*bytes); })
        .value_or(ETIMEDOUT);
}

HidStatus HidrawDevice::platformGetFeatureReport(std::span<uint8_t> report)
{
    if (!m_worker)
        return ENODEV;
    const Bytes bytes = copyOf(report);
    const auto status = m_worker->performWithin(
        kDeadlineSeconds, [bytes](HidrawNode& node) { return node.getFeature(*bytes); });
    if (status == 0)
        std::copy(bytes->begin(), bytes->end(), report.begin());
    return status.value_or(ETIMEDOUT);
}
