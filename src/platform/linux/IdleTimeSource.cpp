#include "platform/linux/IdleTimeSource.h"

#include "platform/Log.h"
#include "platform/SleepAwareEventSource.h"
#include "platform/linux/NullEventSource.h"
#include "platform/linux/X11EventSource.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace {
using Backends = std::vector<std::unique_ptr<IdleBackend>>;

/// Best first; each is here only where its answers would be right, and the last one is always available.
Backends backends()
{
    Backends backends;
    if (qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY"))
        backends.push_back(std::make_unique<X11EventSource>());
    backends.push_back(std::make_unique<NullEventSource>());
    return backends;
}

/// Asks the first of the backends that can answer at the moment.
class FirstAvailable final : public EventSource {
public:
    double secondsSinceLastEventType(EventType eventType) override
    {
        IdleBackend& backend = choose();
        const double seconds = backend.secondsSinceLastEventType(eventType);
        // A backend may notice only now that its other end is gone; then its answer is an old one.
        return backend.isAvailable() ? seconds : choose().secondsSinceLastEventType(eventType);
    }

private:
    IdleBackend& choose()
    {
        const auto found = std::find_if(
            m_backends.begin(), m_backends.end(), [](const auto& backend) { return backend->isAvailable(); });
        if (std::exchange(m_chosen, found->get()) != found->get())
            Log::line(QStringLiteral("Idle time comes from: %1").arg((*found)->name()));
        return **found;
    }

    Backends m_backends = backends();
    const IdleBackend* m_chosen = nullptr;
};
}

std::unique_ptr<EventSource> makeIdleTimeSource()
{
    return std::make_unique<SleepAwareEventSource>(std::make_unique<FirstAvailable>());
}
