#include "platform/HidManager.h"

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
