#include "storm/Oracle.h"

#include <utility>

namespace storm {
// Record and schedule.

/// What begins a period: a new posture, a return, an adapter that is heard of, dark screens.
void Oracle::open()
{
    if (!isActive())
        return;
    beginRow();
    m_isGiven = false;
    double standing = setting("ActivityGoal");
    if (setting("ActivityMode") == 1) {
        const double caloriesAMinute = setting("Weight") * 2.205 * 0.0054;
        standing = std::ceil(standing / caloriesAMinute / setting("AverageWorkDayHours"));
    }
    standing = std::min(standing, 60.0);
    const double minutes = m_posture == Standing ? standing : 60 - standing;
    if (minutes > 0)
        schedule(minutes * 60 / setting("NumberOfStandUps"));
}

void Oracle::beginRow()
{
    m_isOpen = m_hasStore = true;
    m_span = {wall(), m_now, m_slept};
    m_storedEnd = wall();
    m_rows.push_back({wall(), wall(), m_posture, setting("Weight")});
}

void Oracle::close()
{
    m_isOpen = false;
    m_due = kNever;
    m_span = {wall(), m_now, m_slept};
}

void Oracle::schedule(double seconds)
{
    m_scheduledAt = m_now;
    m_due = m_now + std::round(seconds * 1e6) / 1e6;
    m_scheduled = m_posture;
}

// The reminder.

void Oracle::periodEnds()
{
    const Posture target = m_scheduled == Standing ? Sitting : Standing;
    if (target == m_posture || m_isIdle || hasSlept())
        return;
    ++m_figures.reminders;
    if (!std::exchange(m_isReminderOnShow, true))
        m_owedSince = m_now;
    m_isActionDone = false;
    m_fadedAt = kNever;
    dismissAfter(setting("TimeNotificationDismiss"));
    m_target = target;
}

void Oracle::dismissAfter(double seconds)
{
    m_dismissBegunAt = m_now;
    m_dismissAt = m_now + seconds;
}

void Oracle::dismissTicks()
{
    if (m_isReminderHeld)
        dismissAfter(setting(m_isActionDone ? "TimeNotificationDismissOnAction" : "TimeNotificationDismiss"));
    else if (m_isActionDone)
        fade();
    else
        snooze();
}

void Oracle::reminderAppeared()
{
    if (isNear(m_now, m_remindedAt))
        runTimers(m_now, true); // It was due with the init report, of which all is heard by now.
    if (std::exchange(m_owedSince, kNever) == kNever)
        fail("a reminder out of its time");
    m_isHoldExact = false; // It takes the keyboard where a window that comes up becomes the active one.
}

void Oracle::fadeEnds()
{
    m_leavesAt = m_now;
    m_isReminderOnShow = m_isPointed = false;
}

void Oracle::reminderLeft()
{
    if (std::max(m_fadedAt, m_frozenUntil) <= m_now + kRounding) { // Before the cable has told what is late.
        m_fadedAt = kNever;
        fadeEnds();
    }
    if (!isNear(std::exchange(m_leavesAt, kNever), m_now))
        fail("the reminder left at a time of its own");
}

void Oracle::snooze()
{
    m_dismissAt = kNever;
    if (isActive())
        schedule(setting("TimeSnooze"));
    fade();
}

void Oracle::answered(const std::string& how)
{
    if (how == "snooze" || how == "close")
        return snooze();
    if (!std::exchange(m_isPointed, true)) // A pointer that has entered the window stops its clock.
        m_dismissAt = kNever;
    if (isActive())
        schedule(3600 / int(setting("NumberOfStandUps")));
    fade();
}

// What is shown.

void Oracle::opened()
{
    m_openedAt = std::min(m_openedAt, m_now);
    m_dismissAt = kNever;
    fade();
    m_isHoldExact = false; // Another window that comes to the front takes a hold away.
}

void Oracle::look(const Shown& shown)
{
    runTimers(m_now, true);
    if (shown.isConnected != isActive())
        fail("the icon does not follow the desk");
    if (m_isReminderOnShow && shown.memory != (m_target == Standing ? "Memory2" : "Memory1"))
        fail("the reminder offers " + shown.memory.value_or("nothing"));
    if (!shown.height)
        return;
    if ((*shown.status == "ConnectTable") == isActive())
        fail("the status says " + *shown.status);
    const auto height = [&] {
        return std::stod(shown.height->substr(shown.height->find_first_of("0123456789")));
    };
    if (isActive() && std::abs(height() - (int(setting("TablePositionOffset")) + m_height) / 10 / 10.0) > 0.5)
        fail("the height is shown as " + *shown.height);
    // Where two adapters told of the end of one error, a clock is left over that wipes out the next one for a
    // moment, again and again.
    if (m_hasError && !m_hadTwo && m_errorAt > m_openedAt && !shown.hasError)
        fail("an error is not shown");
    const double overAt = m_adapters.size() > 1 ? m_now : m_errorOverAt;
    if (!m_hasError && shown.hasError && m_now > std::max(overAt, m_frozenUntil) + kErrorStays + kPoll)
        fail("an error stays");
}
}
