#include "desk/ScheduleManager.h"

#include "data/ActivityMode.h"
#include "data/AppProperties.h"
#include "data/CalorieCalculator.h"
#include "desk/Posture.h"
#include "platform/Log.h"
#include "platform/NotificationCenter.h"

#include <cmath>

namespace {
constexpr double kMinutesPerHour = 60.0;
constexpr double kSecondsPerMinute = 60.0;
}

ScheduleManager::ScheduleManager(int32_t activityMode)
    : m_activityMode(activityMode)
{
    updateGoals();
}

void ScheduleManager::updateGoals()
{
    auto& properties = AppProperties::instance();
    const double goal = properties.activityGoal();
    const int32_t mode = properties.activityMode();
    if (mode == kTimeGoal)
        setStandingPerHour(goal);
    else if (mode == kCalorieGoal)
        setStandingPerHour(CalorieCalculator::standingPerHourForDailyCalories(goal, properties.weight()));
    else
        setStandingPerHour(0);
}

void ScheduleManager::setStandingPerHour(double minutes)
{
    m_standingPerHour = std::fmin(minutes, kMinutesPerHour);
}

void ScheduleManager::startScheduledTimerForPosition(int32_t position)
{
    updateGoals();
    if (position != kStanding && position != kSitting)
        return;
    const double seconds = (position == kStanding ? standingPerHour() : sittingPerHour()) * kSecondsPerMinute;
    if (seconds > 0)
        startScheduledTimerWithInterval(seconds / AppProperties::instance().standUpsForDivision(), position);
}

void ScheduleManager::startScheduledTimerWithInterval(double seconds, int32_t userInfo)
{
    stopScheduleTimer();
    m_running = Running {{}, seconds};
    m_scheduleTimer = m_timers.schedule(
        seconds, RunLoop::Repeat::No, [this](Timer& timer) { onScheduleTimerTick(timer); }, userInfo);
    NotificationCenter::defaultCenter().post(kNewSession);
}

void ScheduleManager::stopScheduleTimer()
{
    m_running.reset();
    invalidate(m_scheduleTimer); // Kept: a restart asks it which position it timed.
}

void ScheduleManager::onScheduleTimerTick(const Timer& timer)
{
    const int32_t completed = timer.userInfo().toInt();
    // It names the position that is over: whoever reads logs of earlier versions finds the same number.
    Log::line(QString::asprintf("Schedule timer ticked. For new position: %u", unsigned(completed)));
    if (m_delegate)
        m_delegate->activityScheduledToPosition(completed == kStanding ? kSitting : kStanding);
}

void ScheduleManager::restartScheduleTimer()
{
    startScheduledTimerForPosition(m_scheduleTimer ? m_scheduleTimer->userInfo().toInt() : 0);
}

void ScheduleManager::snoozeForPosition(int32_t position)
{
    startScheduledTimerWithInterval(AppProperties::instance().timeSnooze(), position);
}

void ScheduleManager::cancelPeriodForPosition(int32_t position)
{
    const auto cycle = int32_t((standingPerHour() + sittingPerHour()) * kSecondsPerMinute);
    const int32_t wholeSeconds = cycle / AppProperties::instance().standUpsForDivision();
    startScheduledTimerWithInterval(wholeSeconds, position);
}

std::optional<Date> ScheduleManager::scheduledDate() const
{
    return m_running ? std::optional(Date::now().dateByAddingSeconds(timeToSchedule())) : std::nullopt;
}

std::optional<Date> ScheduleManager::scheduleUpdatedDate() const
{
    return m_running ? std::optional(Date::now().dateByAddingSeconds(-timeScheduleRunning())) : std::nullopt;
}
