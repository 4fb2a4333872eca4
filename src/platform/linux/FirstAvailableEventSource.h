#pragma once

#include "platform/linux/IdleBackend.h"

#include <memory>
#include <vector>

/// Asks the first of several backends that can answer at the moment, and logs each change of the one in use.
class FirstAvailableEventSource final : public EventSource {
public:
    /// @param backends best first; the last one is always available.
    explicit FirstAvailableEventSource(std::vector<std::unique_ptr<IdleBackend>> backends);

    [[nodiscard]] double secondsSinceLastEventType(EventType eventType) override;

private:
    IdleBackend& choose();

    std::vector<std::unique_ptr<IdleBackend>> m_backends;
    const IdleBackend* m_chosen = nullptr;
};
