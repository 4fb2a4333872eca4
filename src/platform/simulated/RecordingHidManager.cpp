#include "platform/simulated/RecordingHidManager.h"

#include "platform/RunLoop.h"

#include <algorithm>
#include <cstring>
#include <map>
#include <utility>

namespace {
constexpr size_t kFewestShownBytes = 8;

class RecordedDevice final : public HidDevice {
public:
    RecordedDevice(HidDeviceRef recorded, std::shared_ptr<const RecordingHidManager::Recorder> recorder)
        : m_recorded(std::move(recorded))
        , m_recorder(std::move(recorder))
    {
    }

    [[nodiscard]] HidStatus openExclusively() override { return m_recorded->openExclusively(); }

    [[nodiscard]] std::optional<QString> stringProperty(const QString& name) const override
    {
        return m_recorded->stringProperty(name);
    }

protected:
    HidStatus platformSetFeatureReport(std::span<const uint8_t> report) override
    {
        return record(HidTransfer::Direction::Write, report, m_recorded->setFeatureReport(report));
    }

    HidStatus platformGetFeatureReport(std::span<uint8_t> report) override
    {
        const HidStatus status = m_recorded->getFeatureReport(report);
        return record(HidTransfer::Direction::Read, report, status);
    }

private:
    HidStatus record(
        HidTransfer::Direction direction, std::span<const uint8_t> report, HidStatus status) const
    {
        if (*m_recorder)
            (*m_recorder)({RunLoop::main().now(), direction, {report.begin(), report.end()}, status});
        return status;
    }

    HidDeviceRef m_recorded;
    std::shared_ptr<const RecordingHidManager::Recorder> m_recorder;
};
}

QString HidTransfer::text() const
{
    const auto lastUsed = std::find_if(bytes.rbegin(), bytes.rend(), [](uint8_t byte) { return byte != 0; });
    const bool whole = direction == Direction::Write;
    const size_t used = whole ? bytes.size() : std::max(size_t(bytes.rend() - lastUsed), kFewestShownBytes);
    QString line = direction == Direction::Write ? QStringLiteral("write") : QStringLiteral("read ");
    for (size_t i = 0; i < std::min(used, bytes.size()); ++i)
        line += QString::asprintf(" %02X", bytes[i]);
    return status == 0 ? line : line + QStringLiteral(": ") + QString::fromLocal8Bit(strerror(status));
}

/// A device of the recorded manager has one recorded device for as long as somebody holds it, so that
/// arrival, removal and listing speak of the same object. Nothing is held here: a device closes when its last
/// user lets go of it.
struct RecordingHidManager::State {
    std::shared_ptr<const Recorder> recorder;
    std::map<const HidDevice*, std::weak_ptr<HidDevice>> devices;

    HidDeviceRef recorded(const HidDeviceRef& device)
    {
        std::erase_if(devices, [](const auto& entry) { return entry.second.expired(); });
        HidDeviceRef found = devices[device.get()].lock();
        if (!found) {
            found = std::make_shared<RecordedDevice>(device, recorder);
            devices[device.get()] = found;
        }
        return found;
    }
};

RecordingHidManager::RecordingHidManager(HidManager& recorded, Recorder recorder)
    : m_recorded(recorded)
    , m_state(std::make_shared<State>())
{
    m_state->recorder = std::make_shared<const Recorder>(std::move(recorder));
}

RecordingHidManager::~RecordingHidManager() = default;

HidStatus RecordingHidManager::open()
{
    // The recorded manager keeps these callbacks, perhaps longer than this one lives.
    m_recorded.setDeviceMatching(m_matching);
    m_recorded.registerDeviceMatchingCallback(
        [this, weak = std::weak_ptr(m_state)](const HidDeviceRef& device) {
            const auto state = weak.lock();
            if (!state)
                return;
            const HidDeviceRef arrived = state->recorded(device);
            if (const DeviceCallback callback = m_matched)
                callback(arrived);
        });
    m_recorded.registerDeviceRemovalCallback(
        [this, weak = std::weak_ptr(m_state)](const HidDeviceRef& device) {
            const auto state = weak.lock();
            if (!state)
                return;
            const HidDeviceRef removed = state->recorded(device);
            if (const DeviceCallback callback = m_removed)
                callback(removed);
        });
    return m_recorded.open();
}

std::vector<HidDeviceRef> RecordingHidManager::copyDevices() const
{
    std::vector<HidDeviceRef> devices = m_recorded.copyDevices();
    for (HidDeviceRef& device : devices)
        device = m_state->recorded(device);
    return devices;
}
