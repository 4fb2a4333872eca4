#include "platform/linux/EventSources.h"

#include "platform/SleepAwareEventSource.h"
#include "platform/linux/FirstAvailableEventSource.h"
#include "platform/linux/NullEventSource.h"
#include "platform/linux/X11EventSource.h"

#include <utility>
#include <vector>

std::unique_ptr<EventSource> makeEventSource()
{
    // Best first. Each is here only where its answers would be right.
    std::vector<std::unique_ptr<IdleBackend>> backends;
    if (qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY"))
        backends.push_back(std::make_unique<X11EventSource>());
    backends.push_back(std::make_unique<NullEventSource>());

    return std::make_unique<SleepAwareEventSource>(
        std::make_unique<FirstAvailableEventSource>(std::move(backends)));
}
