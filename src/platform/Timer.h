#pragma once

#include <QVariant>

#include <functional>
#include <memory>

/// One pending call of a RunLoop. The loop keeps a valid timer alive, so a caller may let its own reference
/// go; whoever holds a reference can end the timer. A one-shot timer is invalid from the moment its callback
/// starts.
class Timer {
public:
    virtual ~Timer() = default;
    Timer(const Timer&) = delete;
    Timer& operator=(const Timer&) = delete;

    [[nodiscard]] bool isValid() const { return m_valid; }
    /// Ends the timer; its callback is never called again. Does nothing on an invalid timer.
    void invalidate();
    /// What was handed over when the timer was scheduled.
    [[nodiscard]] const QVariant& userInfo() const { return m_userInfo; }

protected:
    explicit Timer(QVariant userInfo);
    virtual void stop() = 0;

private:
    QVariant m_userInfo;
    bool m_valid = true;
};

using TimerRef = std::shared_ptr<Timer>;
using TimerCallback = std::function<void(Timer&)>;

/// Ends the timer behind a reference that may be empty.
void invalidate(const TimerRef& timer);
