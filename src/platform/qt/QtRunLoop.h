#pragma once

#include "platform/RunLoop.h"

#include <QObject>

#include <unordered_set>

/// The run loop of a Qt application. No timer waits for more than 24 days.
class QtRunLoop : public RunLoop {
public:
    QtRunLoop() = default;
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
};
