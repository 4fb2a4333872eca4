#include "storm/Oracle.h"

#include "storm/OracleTerms.h"

#include <algorithm>
#include <cmath>
#include <sqlite3.h>
#include <utility>

namespace storm {
Oracle::Oracle(const Script& script, std::string storePath)
    : m_storePath(std::move(storePath))
    , m_settings(script.settings)
    , m_wallOffset(script.start)
{
}

void Oracle::fail(const std::string& what)
{
    if (m_failure.empty())
        m_failure = number(m_now) + " s: " + what;
}

double Oracle::setting(const std::string& key) const
{
    const auto& keys = settingKeys();
    size_t index = 0;
    while (keys[index] != key)
        ++index;
    return m_settings[index];
}

// Clocks and timers.

void Oracle::pass(double now)
{
    runTimers(now);
    goTo(now);
    if (m_now > m_owedSince + kWait)
        fail("no reminder");
    if (m_isReminderOnShow && m_now > std::max(m_fadedAt, m_frozenUntil) + 0.1)
        fail("the reminder does not leave");
    judgePresence();
}

void Oracle::goTo(double time)
{
    const double seconds = std::max(0.0, time - m_now);
    const Posture recorded = m_isOpen ? m_rows.back().posture : None;
    const Posture real = truth();
    // Who left between a wake and the next look at the user was perhaps not seen.
    const bool isUnclear = m_isGiven || (m_awaySince && *m_awaySince <= m_wokeAt + kLook);
    m_wrong = recorded == real || isUnclear ? 0 : m_wrong + seconds;
    m_figures.largestError = std::max(m_figures.largestError, m_wrong);
    m_figures.recorded += recorded ? seconds : 0;
    m_figures.attended += real ? seconds : 0;
    m_figures.standing += recorded == Standing ? seconds : 0;
    m_now = std::max(m_now, time);
    if (m_wrong > kLongestError)
        fail("the record is not the truth for " + number(m_wrong) + " s");
}

/// Whether and how the user is at the desk. A machine that has just woken tells of nobody until there is
/// input.
Oracle::Posture Oracle::truth() const
{
    const double leftAt = m_awaySince.value_or(m_now);
    const bool isGone = m_awaySince && (m_now - leftAt >= m_idleAfter || leftAt <= m_wokeAt);
    return m_running && !isGone && isActive() ? m_posture : None;
}

/// Of those that are due at once the one that was begun first.
void Oracle::runTimers(double until)
{
    struct {
        double& due;
        double interval;
        void (Oracle::*tick)();
    } timers[] {{m_due, 0, &Oracle::periodEnds}, {m_nextPulse, kPulse, &Oracle::pulse},
        {m_nextLook, kLook, &Oracle::lookAtUser}, {m_dismissAt, 0, &Oracle::dismissTicks},
        {m_nextPoll, kPoll, &Oracle::hearAgain}, {m_nextResend, kResend, &Oracle::hearAgain}};
    while (true) {
        decltype(&timers[0]) next = nullptr;
        for (auto& timer : timers) {
            // What is heard at this very moment counts before what was heard once, and after a standstill
            // the earlier question comes first.
            const double limit = until + (timer.tick == &Oracle::hearAgain ? -kRounding : kRounding / 10);
            const bool isDue = std::max(timer.due, m_frozenUntil) <= limit
                && (timer.due <= m_nextPoll || until > m_frozenUntil + kRounding || !isAnsweredAtOnce());
            if (isDue && (!next || timer.due < next->due - kRounding))
                next = &timer;
        }
        if (!next)
            return;
        goTo(std::max(next->due, m_frozenUntil)); // A standstill makes it late.
        const double missed = std::floor((m_now - next->due) / next->interval + kRounding);
        next->due += next->interval > 0 ? (missed + 1) * next->interval : kNever;
        (this->*next->tick)();
    }
}

void Oracle::pulse()
{
    if (hasSlept() || (isBroken() && m_isIdle))
        return close();
    if (m_isOpen && isBroken())
        return beginRow();
    if (m_isOpen)
        m_rows.back().end = spanEnd();
    save();
}

void Oracle::lookAtUser()
{
    const bool wasIdle = std::exchange(m_isIdle, idleSeconds() >= m_idleAfter);
    if (m_isIdle)
        close();
    else if (wasIdle)
        open();
}

/// Whoever wakes the machine was away until their first input after it; one look finds the absence.
double Oracle::idleSeconds()
{
    const double seconds = m_awaySince ? m_now - *m_awaySince : 1.0;
    if (m_slept > m_sleepSeen)
        m_absence = Absence {m_now};
    m_sleepSeen = m_slept;
    if (!m_absence)
        return seconds;
    if (m_absence->lookedAt == kNever || m_now <= m_absence->lookedAt + 3)
        m_absence->lookedAt = m_now;
    else if (m_now - seconds > m_absence->since)
        m_absence.reset();
    return m_absence ? kNever : seconds;
}

void Oracle::periodEnds()
{
    const Posture target = m_scheduled == Standing ? Sitting : Standing;
    if (target == m_posture || m_isIdle || hasSlept())
        return;
    ++m_figures.reminders;
    if (!std::exchange(m_isReminderOnShow, true))
        m_owedSince = m_now;
    m_lines[1].exists = true;
    m_fadedInAt = m_now + kFade;
    m_isActionDone = false;
    m_fadedAt = kNever;
    m_dismissAt = m_now + setting("TimeNotificationDismiss");
    describeReminder(target);
}

void Oracle::dismissTicks()
{
    if (m_isReminderHeld)
        m_dismissAt =
            m_now + setting(m_isActionDone ? "TimeNotificationDismissOnAction" : "TimeNotificationDismiss");
    else if (m_isActionDone)
        fade();
    else
        snooze();
}

// The process, the user, the machine.

void Oracle::started()
{
    m_running = true;
    m_goodSince = std::max(m_goodSince, m_now);
    m_idleAfter = setting("TimeIdle");
    m_nextPulse = m_now + kPulse;
    m_nextLook = m_now + kLook;
    m_isIdle = m_isGiven = m_hasStore = m_hadTwo = false;
    m_absence.reset();
    m_sleepSeen = m_slept; // A new process knows of no sleep before it.
    m_wokeAt = -1e9;
    m_span = {wall(), m_now, m_slept};
    m_posture = None;
    m_lines = {};
}

void Oracle::ended(bool killed)
{
    endHold();
    if (!killed && isQuick() && driven() >= 0 && m_lastCommand[driven()] != kStopCommand)
        fail("no stop at the end");
    if (!killed) {
        save();
        close();
    }
    m_holds.clear();
    m_lastCommand.clear();
    m_answers.clear();
    m_devices.clear();
    m_running = m_isOpen = m_isReminderOnShow = m_isReminderHeld = false;
    for (double* timer : {&m_nextPulse, &m_nextLook, &m_nextPoll, &m_nextResend, &m_due, &m_dismissAt,
             &m_fadedAt, &m_scheduledAt, &m_owedSince})
        *timer = kNever;
    std::erase_if(m_rows, [](const Row& row) { return !row.storedEnd; });
    for (size_t i = std::min(m_firstUnstored, m_rows.size()); i < m_rows.size(); ++i) {
        const double lost = m_rows[i].end - *m_rows[i].storedEnd;
        m_rows[i].end = *m_rows[i].storedEnd;
        if (!m_isFull)
            m_figures.largestError = std::max(m_figures.largestError, lost);
    }
    m_firstUnstored = m_rows.size();
}

void Oracle::dark()
{
    open();
}

void Oracle::sleepAnnounced()
{
    endHold();
    close();
    m_isGiven = true;
}

void Oracle::wakeTold()
{
    close();
    m_isGiven = true;
    m_wokeAt = m_now;
    if (m_slept > m_sleepSeen || !m_absence)
        m_absence = Absence {m_now};
    m_sleepSeen = m_slept;
}

void Oracle::slept(double seconds)
{
    m_slept += seconds;
    m_wokeAt = m_now;
    if (!m_holds.empty())
        m_holds.back().isExact = false;
}

void Oracle::frozenUntil(double time)
{
    m_frozenUntil = time;
    m_readAt = std::max(m_readAt, time);
    if (!m_holds.empty())
        m_holds.back().isExact = false;
}

void Oracle::set(size_t key, double value)
{
    if (settingKeys()[key] == std::string("TablePositionOffset"))
        m_offsets.insert({m_settings[key], value}); // A new one shows with the next refresh.
    m_settings[key] = value;
}

void Oracle::clockSet(double by)
{
    m_wallOffset += by;
}

void Oracle::judge()
{
    sqlite3* store = nullptr;
    sqlite3_stmt* rows = nullptr;
    sqlite3_open_v2(m_storePath.c_str(), &store, SQLITE_OPEN_READONLY, "unix");
    sqlite3_prepare_v2(
        store, "SELECT startDate, endDate, isStanding, weight FROM Activity ORDER BY id", -1, &rows, nullptr);
    size_t count = 0;
    for (; sqlite3_step(rows) == SQLITE_ROW; ++count) {
        const double start = sqlite3_column_double(rows, 0);
        const double end = sqlite3_column_double(rows, 1);
        const Posture posture = sqlite3_column_int(rows, 2) ? Standing : Sitting;
        const Row* row = count < m_rows.size() ? &m_rows[count] : nullptr;
        if (!row || !isNear(row->start, start) || !isNear(row->end, end) || row->posture != posture
            || row->weight != sqlite3_column_double(rows, 3))
            fail("record " + std::to_string(count) + " from " + number(start) + " for " + number(end - start)
                + " s, posture " + number(posture) + "; expected from " + number(row ? row->start : 0)
                + " for " + number(row ? row->end - row->start : 0));
    }
    sqlite3_finalize(rows);
    sqlite3_close(store);
    if (count != m_rows.size())
        fail(std::to_string(count) + " records in place of " + std::to_string(m_rows.size()));
    m_figures.records += int(count);
}
}
