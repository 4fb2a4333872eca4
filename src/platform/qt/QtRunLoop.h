#pragma once

#include "platform/RunLoop.h"

#include <QObject>

#include <unordered_set>

/// The run loop of a Qt application.
class QtRunLoop final : public RunLoop {
public:
    /// @param longestLegSeconds QTimer counts milliseconds in an int, which holds 24.8 days; a longer wait is
    /// made of several legs. A test makes them short.
    explicit QtRunLoop(double longestLegSeconds = 24.0 * 3600.0);
    ~QtRunLoop() override;

    [[nodiscard]] double now() const override;
    [[nodiscard]] double monotonicNow() const override;
    [[nodiscard]] double bootTimeNow() const override;
    void performSoon(std::function<void()> callable) override;

protected:
    TimerRef platformScheduleTimer(double seconds, Repeat repeats, TimerCallback callback, QVariant userInfo,
        Precision precision) override;

private:
    class QtTimer;
    std::unordered_set<TimerRef> m_liveTimers;
    QObject m_context;
    double m_longestLegSeconds;
};
