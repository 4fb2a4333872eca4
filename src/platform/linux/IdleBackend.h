#pragma once

#include <QString>

#include <functional>
#include <optional>

/// One way of this desktop to tell when the last input was. It may be missing from the start, come up late or
/// go away while the program runs.
class IdleBackend {
public:
    /// The instant of the last input on RunLoop::monotonicNow(), or nothing where it cannot be told now.
    using Answer = std::function<void(std::optional<double> lastInputAt)>;

    virtual ~IdleBackend() = default;
    IdleBackend(const IdleBackend&) = delete;
    IdleBackend& operator=(const IdleBackend&) = delete;

    /// How the log calls it.
    [[nodiscard]] virtual QString name() const = 0;
    /// Finds out and answers, at once or from the main loop, without ever waiting. Whoever has not answered
    /// yet when it is asked again answers that it cannot tell.
    virtual void ask(Answer answer) = 0;

protected:
    IdleBackend() = default;
};
