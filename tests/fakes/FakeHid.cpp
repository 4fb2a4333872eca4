#include "fakes/FakeHid.h"

#include <algorithm>

void FakeHidDevice::setCommunicating(bool communicating)
{
    status[2] = uint8_t(communicating ? status[2] | 1 : status[2] & ~1);
}

void FakeHidDevice::setHeight(uint16_t height)
{
    status[4] = uint8_t(height & 0xFF);
    status[5] = uint8_t(height >> 8);
}

std::optional<QString> FakeHidDevice::stringProperty(const QString& name) const
{
    const auto found = strings.constFind(name);
    return found == strings.cend() ? std::nullopt : std::optional(*found);
}

HidStatus FakeHidDevice::platformSetFeatureReport(std::span<const uint8_t> report)
{
    if (writeStatus == 0)
        written.emplace_back(report.begin(), report.end());
    return writeStatus;
}

HidStatus FakeHidDevice::platformGetFeatureReport(std::span<uint8_t> report)
{
    ++reads;
    const auto answer = report.subspan(1);
    if (readStatus == 0)
        std::copy_n(status.begin() + 1, std::min(answer.size(), status.size() - 1), answer.begin());
    else
        std::fill(answer.begin(), answer.end(), 0xA5); // A failed read may leave anything.
    return readStatus;
}

HidStatus FakeHidManager::open()
{
    m_open = openStatus == 0;
    return openStatus;
}

void FakeHidManager::plug(const HidDeviceRef& device)
{
    if (!m_open || !isMatching(*device))
        return;
    m_attached.push_back(device);
    if (m_matched)
        m_matched(device);
}

void FakeHidManager::unplug(const HidDeviceRef& device)
{
    if (std::erase(m_attached, device) > 0 && m_removed)
        m_removed(device);
}
