#pragma once

#include "storm/World.h"

#include <QLabel>
#include <QTextDocumentFragment>

#include <map>
#include <optional>
#include <string>

// What the parts of the world share: the bus that tells the oracle of adapters, the user, and how windows are
// read.
namespace storm {
inline constexpr double kLook = 4.3;

struct HoldButton {
    const char* name;
    const char* setting; ///< of the height it drives to; none for up and down
    uint16_t command;
    bool isOnReminder;
};

/// In the order of the variants of Verb::Press.
inline constexpr HoldButton kButtons[] {
    {"buttonUp", nullptr, 0x8000, false},
    {"buttonDown", nullptr, 0x7FFF, false},
    {"buttonMemory1", "DevicePosition1", 0, false},
    {"buttonMemory2", "DevicePosition2", 0, false},
    {"buttonMemory3", "DevicePosition3", 0, false},
    {"buttonMemory", "DevicePosition2", 0, true},
    {"buttonUp", nullptr, 0x8000, true},
    {"buttonDown", nullptr, 0x7FFF, true},
};

inline bool isUsable(const QWidget* window)
{
    return window && window->isVisible() && !window->isMinimized();
}

inline bool isReminder(const QWidget* window)
{
    return window->objectName() == QLatin1String("NotificationWindow");
}

inline QWidget* child(const QWidget* window, const char* name)
{
    return window->findChild<QWidget*>(QString::fromLatin1(name));
}

inline std::string textOf(const QWidget* window, const char* name)
{
    return child(window, name)->property("text").toString().toStdString();
}

inline std::optional<std::string> errorOf(const QWidget* window)
{
    if (!window)
        return std::nullopt;
    const auto* label = window->findChild<QLabel*>(QStringLiteral("labelErrorText"));
    if (label->isHidden())
        return "";
    return QTextDocumentFragment::fromHtml(label->text()).toPlainText().simplified().toStdString();
}

class World::Bus final : public HidManager {
public:
    Bus(SimulatedHidManager& desks, World& world)
        : m_desks(desks)
        , m_world(world)
    {
        m_desks.registerDeviceMatchingCallback([this](const HidDeviceRef& device) {
            if (!m_matched)
                return;
            m_world.oracle().matched(m_numbers.at(device));
            m_matched(device);
        });
        m_desks.registerDeviceRemovalCallback([this](const HidDeviceRef& device) {
            if (!m_removed)
                return;
            m_world.oracle().removed(m_numbers.at(device));
            m_removed(device);
        });
        m_desks.registerLateReportCallback(
            [this](const HidDeviceRef& device, std::span<const uint8_t> report) {
                if (m_lateReport)
                    m_lateReport(device, report);
            });
    }
    HidStatus open() override
    {
        m_desks.setDeviceMatching(m_matching);
        m_desks.setRestReport(m_restReport);
        const HidStatus status = m_desks.open();
        m_numbers.clear();
        for (const int number : {0, 1}) {
            if (m_desks.isPlugged(number))
                m_numbers[copyDevices()[m_numbers.size()]] = number;
        }
        return status;
    }
    [[nodiscard]] std::vector<HidDeviceRef> copyDevices() const override { return m_desks.copyDevices(); }
    void plug(int number)
    {
        m_desks.plug(number);
        for (const HidDeviceRef& device : copyDevices())
            m_numbers.try_emplace(device, number);
    }

private:
    SimulatedHidManager& m_desks;
    World& m_world;
    std::map<HidDeviceRef, int> m_numbers;
};

/// Like the system's own sources they count on a clock that stands still in sleep.
struct World::User {
    std::optional<double> awaySince;
    /// The program's source of idle time ends with it, the user does not.
    class Seen final : public EventSource {
    public:
        explicit Seen(const User& user)
            : m_user(user)
        {
        }
        [[nodiscard]] double secondsSinceLastEventType(EventType) override
        {
            return m_user.awaySince ? RunLoop::main().monotonicNow() - *m_user.awaySince : 1.0;
        }

    private:
        const User& m_user;
    };
};
}
