#pragma once

#include "platform/EventSource.h"
#include "platform/NotificationCenter.h"
#include "platform/RunLoop.h"

#include <optional>

/// The hands on mouse and keyboard: at work until they leave. Like the system's own sources this one counts
/// on a clock that stands still in sleep.
class SimulatedUser final : public EventSource {
public:
    /// The last input for a while comes now.
    void leave() { m_awaySince = RunLoop::main().monotonicNow(); }
    void comeBack() { m_awaySince.reset(); }
    [[nodiscard]] bool isAway() const { return m_awaySince.has_value(); }

    /// Whether the desktop tells of them at all.
    void setSeen(bool isSeen)
    {
        m_isSeen = isSeen;
        NotificationCenter::defaultCenter().post(kCanTellDidChange);
    }
    [[nodiscard]] bool canTell() const override { return m_isSeen; }

    [[nodiscard]] double secondsSinceLastEventType(EventType) override
    {
        return m_awaySince ? RunLoop::main().monotonicNow() - *m_awaySince : 1.0;
    }

private:
    bool m_isSeen = true;
    std::optional<double> m_awaySince; ///< on the monotonic clock
};
