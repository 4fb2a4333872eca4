#include "platform/HidManager.h"

#include <algorithm>
#include <cerrno>

namespace {
constexpr size_t kShortestReport = 2;
}

HidStatus HidDevice::setFeatureReport(std::span<const uint8_t> report)
{
    return report.size() < kShortestReport ? EINVAL : platformSetFeatureReport(report);
}

HidStatus HidDevice::getFeatureReport(std::span<uint8_t> report)
{
    return report.size() < kShortestReport ? EINVAL : platformGetFeatureReport(report);
}

bool HidManager::isMatching(const HidDevice& device) const
{
    const auto names = m_matching.keys();
    return std::all_of(names.begin(), names.end(),
        [&](const QString& name) { return device.stringProperty(name) == m_matching[name]; });
}
