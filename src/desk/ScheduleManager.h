#pragma once

#include "data/Date.h"
#include "desk/AwakeSpan.h"
#include "platform/RunLoop.h"

#include <cstdint>
#include <optional>

class ScheduleManagerDelegate {
public:
    /// The period is over, and the user should take that Posture.
    virtual void activityScheduledToPosition(int32_t position) = 0;

protected:
    ~ScheduleManagerDelegate() = default;
};

/// Times the current sitting or standing period against its planned share of the hour. Time is awake time, as
/// the timer's is: a wall clock that is set moves the dates along and the rest stays as it is.
class ScheduleManager {
public:
    /// Posted without object when a period has been (re)started.
    static inline const QString kNewSession = QStringLiteral("org.zelvo.StandUp.newsession");

    explicit ScheduleManager(int32_t activityMode);

    /// Takes the planned standing minutes from the goal in the settings.
    void updateGoals();
    /// Starts a period for that Posture; nothing for another number or when the plan has no minutes for it.
    void startScheduledTimerForPosition(int32_t position);
    void startScheduledTimerWithInterval(double seconds, int32_t userInfo);
    void stopScheduleTimer();
    /// Starts the running period again, with the settings as they are now.
    void restartScheduleTimer();
    void snoozeForPosition(int32_t position);
    /// Skips the change: the position goes on for a full cycle of standing and sitting.
    void cancelPeriodForPosition(int32_t position);
    [[nodiscard]] bool isScheduled() const { return m_running.has_value(); }
    /// Seconds; 0 when nothing is scheduled.
    [[nodiscard]] double timeToSchedule() const { return currentScheduleInterval() - timeScheduleRunning(); }
    [[nodiscard]] double timeScheduleRunning() const
    {
        return m_running ? m_running->sinceStart.seconds() : 0;
    }
    [[nodiscard]] double currentScheduleInterval() const { return m_running ? m_running->interval : 0; }

    [[nodiscard]] ScheduleManagerDelegate* delegate() const { return m_delegate; }
    void setDelegate(ScheduleManagerDelegate* delegate) { m_delegate = delegate; }
    /// The mode at the time this was made; each plan is reckoned with the one that is set by then.
    [[nodiscard]] int32_t activityMode() const { return m_activityMode; }
    [[nodiscard]] std::optional<Date> scheduledDate() const; ///< when the running period is due
    [[nodiscard]] std::optional<Date> scheduleUpdatedDate() const; ///< when it was started
    /// Minutes an hour, at most 60.
    [[nodiscard]] double standingPerHour() const { return m_standingPerHour; }
    void setStandingPerHour(double minutes);
    [[nodiscard]] double sittingPerHour() const { return 60.0 - m_standingPerHour; } ///< minutes an hour
    [[nodiscard]] const TimerRef& scheduleTimer() const { return m_scheduleTimer; }

private:
    struct Running {
        AwakeSpan sinceStart;
        double interval; ///< seconds
    };

    void onScheduleTimerTick(const Timer& timer);

    ScheduleManagerDelegate* m_delegate = nullptr;
    int32_t m_activityMode;
    std::optional<Running> m_running;
    double m_standingPerHour = 0;
    TimerRef m_scheduleTimer;
    TimerScope m_timers;
};
