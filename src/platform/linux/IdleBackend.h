#pragma once

#include "platform/EventSource.h"

#include <QString>

/// One way of this desktop to tell how long ago the last input was. It may be missing from the start, come up
/// late or go away while the program runs.
class IdleBackend : public EventSource {
public:
    /// How the log calls it.
    [[nodiscard]] virtual QString name() const = 0;
    /// Whether it can answer now. Cheap: asked before each question.
    [[nodiscard]] virtual bool isAvailable() const = 0;
};
