#include "platform/simulated/SimulatedHidManager.h"

#include "platform/RunLoop.h"

#include <algorithm>
#include <cerrno>
#include <utility>

namespace {
HidStatus statusOf(TransferResult result)
{
    switch (result) {
    case TransferResult::Ok:
        return 0;
    case TransferResult::Refused:
        return EPIPE;
    case TransferResult::Failed:
        return EPROTO;
    case TransferResult::NoAnswer:
        return ETIMEDOUT;
    case TransferResult::Unplugged:
        return ENODEV;
    }
    return EIO;
}
}

struct SimulatedHidManager::State {
    DeskModel desk;
    double deskTime = RunLoop::main().monotonicNow();
    const Device* attached = nullptr; // What sits on the cable now.
    const Device* holder = nullptr; // What has the adapter open.

    DeskModel& deskNow()
    {
        const double now = RunLoop::main().monotonicNow();
        desk.advance(now - std::exchange(deskTime, now));
        return desk;
    }
};

class SimulatedHidManager::Device final : public HidDevice {
public:
    explicit Device(std::shared_ptr<State> state)
        : m_state(std::move(state))
    {
        m_state->attached = this;
    }

    ~Device() override
    {
        if (m_state->attached == this)
            m_state->attached = nullptr;
        if (m_state->holder == this)
            m_state->holder = nullptr;
    }

    [[nodiscard]] HidStatus openExclusively() override
    {
        if (m_state->attached != this)
            return ENODEV;
        if (m_state->holder)
            return EBUSY;
        m_state->holder = this;
        return 0;
    }

    [[nodiscard]] std::optional<QString> stringProperty(const QString& name) const override
    {
        if (name == QStringLiteral("Manufacturer"))
            return QStringLiteral("Zelvo Ardenta A/S");
        if (name == QStringLiteral("Product"))
            return QStringLiteral("Simulated desk");
        return std::nullopt;
    }

protected:
    HidStatus platformSetFeatureReport(std::span<const uint8_t> report) override
    {
        const HidStatus failure = transferFailure();
        return failure != 0 ? failure : statusOf(m_state->deskNow().setFeatureReport(report));
    }

    HidStatus platformGetFeatureReport(std::span<uint8_t> report) override
    {
        const HidStatus failure = transferFailure();
        return failure != 0 ? failure : statusOf(m_state->deskNow().getFeatureReport(report));
    }

private:
    [[nodiscard]] HidStatus transferFailure() const
    {
        if (m_state->attached != this)
            return ENODEV;
        return m_state->holder == this ? 0 : EBADF;
    }

    std::shared_ptr<State> m_state;
};

SimulatedHidManager::SimulatedHidManager()
    : m_state(std::make_shared<State>())
    , m_device(std::make_shared<Device>(m_state))
{
}

SimulatedHidManager::~SimulatedHidManager() = default;

HidStatus SimulatedHidManager::open()
{
    m_open = true;
    if (m_announced && m_announced == m_device) {
        // A device of its own for the new user; the one before is closed when the last one lets go of it.
        m_device = std::make_shared<Device>(m_state);
    }
    m_announced = nullptr;
    announceSoon();
    return 0;
}

std::vector<HidDeviceRef> SimulatedHidManager::copyDevices() const
{
    if (!m_device)
        return {};
    const auto names = m_matching.keys();
    const bool matches = std::all_of(names.begin(), names.end(),
        [&](const QString& name) { return m_device->stringProperty(name) == m_matching.value(name); });
    return matches ? std::vector {m_device} : std::vector<HidDeviceRef> {};
}

void SimulatedHidManager::plug()
{
    if (m_device)
        return;
    desk().setPlugged(true);
    m_device = std::make_shared<Device>(m_state);
    announceSoon();
}

void SimulatedHidManager::unplug()
{
    if (!m_device)
        return;
    desk().setPlugged(false);
    m_state->attached = nullptr;
    m_state->holder = nullptr;
    m_device = nullptr;
    announceSoon();
}

DeskModel& SimulatedHidManager::desk()
{
    return m_state->deskNow();
}

void SimulatedHidManager::announceSoon()
{
    if (!m_open)
        return;
    RunLoop::main().performSoon([this, life = std::weak_ptr(m_life)] {
        if (!life.expired())
            announce();
    });
}

/// Announces the difference between what was announced and what is: an adapter that came and went within one
/// turn of the loop is not worth a word.
void SimulatedHidManager::announce()
{
    // A callback may destroy the manager, plug and unplug.
    const std::weak_ptr life = m_life;
    if (m_announced && m_announced != m_device) {
        const HidDeviceRef removed = std::exchange(m_announced, nullptr);
        if (const DeviceCallback callback = m_removed)
            callback(removed);
    }
    if (life.expired() || m_announced || copyDevices().empty())
        return;
    const HidDeviceRef arrived = m_announced = m_device;
    if (const DeviceCallback callback = m_matched)
        callback(arrived);
}
