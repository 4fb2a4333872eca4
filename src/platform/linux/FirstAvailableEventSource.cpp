#include "platform/linux/FirstAvailableEventSource.h"

#include "platform/Log.h"

#include <algorithm>
#include <utility>

FirstAvailableEventSource::FirstAvailableEventSource(std::vector<std::unique_ptr<IdleBackend>> backends)
    : m_backends(std::move(backends))
{
    Q_ASSERT(!m_backends.empty() && m_backends.back()->isAvailable());
}

double FirstAvailableEventSource::secondsSinceLastEventType(EventType eventType)
{
    IdleBackend& backend = choose();
    const double seconds = backend.secondsSinceLastEventType(eventType);
    // A backend may notice only now that its other end is gone; then its answer is an old one.
    return backend.isAvailable() ? seconds : choose().secondsSinceLastEventType(eventType);
}

IdleBackend& FirstAvailableEventSource::choose()
{
    const auto found = std::find_if(
        m_backends.begin(), m_backends.end() - 1, [](const auto& backend) { return backend->isAvailable(); });
    if (std::exchange(m_chosen, found->get()) != found->get())
        Log::line(QStringLiteral("Idle time comes from: %1").arg((*found)->name()));
    return **found;
}
