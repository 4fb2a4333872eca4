#pragma once

#include "platform/EventSource.h"

#include <memory>

/// The desktop's idle time from the best backend at hand, time asleep included. The log names the backend
/// that is in use, also when it changes.
std::unique_ptr<EventSource> makeIdleTimeSource();
