#include "storm/Oracle.h"

#include <sqlite3.h>
#include <utility>

namespace storm {
Oracle::Oracle(const Script& script, std::string storePath, Figures& figures)
    : m_storePath(std::move(storePath))
    , m_figures(figures)
    , m_settings(script.settings)
    , m_wallOffset(script.start)
{
    ++figures.histories;
    figures.steps += script.steps.size();
}

void Oracle::fail(const std::string& what)
{
    if (m_failure.empty())
        m_failure = std::to_string(m_now) + " s: " + what;
}

// Clocks and timers.

void Oracle::pass(double now)
{
    runTimers(now);
    goTo(now);
    if (m_now > m_owedSince + kWait)
        fail("no reminder");
    if (m_now > m_leavesAt + kWait)
        fail("the reminder does not leave");
    judgePresence();
}

void Oracle::goTo(double time)
{
    // Who left between a wake and the next look at the user was perhaps not seen.
    const bool isUnclear = m_isGiven || (m_awaySince && *m_awaySince <= m_wokeAt + kLook);
    const bool isRight = (m_isOpen ? m_rows.back().posture : None) == truth();
    m_wrong = isRight || isUnclear ? 0 : m_wrong + std::max(0.0, time - m_now);
    m_figures.largestError = std::max(m_figures.largestError, m_wrong);
    m_now = std::max(m_now, time);
    if (m_isOpen)
        m_rows.back().end = std::max(m_span.wall, isBroken() ? m_span.wall + m_now - m_span.from : wall());
    if (m_wrong > kLongestError)
        fail("the record is not the truth for " + std::to_string(m_wrong) + " s");
}

/// Whether and how the user is at the desk. A machine that has just woken tells of nobody until there is
/// input.
Posture Oracle::truth() const
{
    const double leftAt = m_awaySince.value_or(m_now);
    const bool isGone = m_awaySince && (m_now - leftAt >= m_idleAfter || leftAt <= m_wokeAt);
    return m_running && !isGone && isActive() ? m_posture : None;
}

double Oracle::next(double due, double interval) const
{
    return due + (std::floor((m_now - due) / interval + kRounding) + 1) * interval;
}

/// Of those that are due at once the one that was begun first.
void Oracle::runTimers(double until, bool isAllHeard)
{
    struct Timer {
        double& due;
        double interval, begun;
        void (Oracle::*tick)();
    };
    const double firstDue =
        std::min({m_due, m_dismissAt, m_fadedAt, m_nextPulse, m_nextLook, m_nextPoll, m_nextResend});
    if (firstDue > until + kRounding)
        return;
    const bool isInOrder = isAllHeard || until > m_frozenUntil + kRounding;
    // What comes of an init report counts before what else is due.
    while (isAllHeard || !isNear(until, m_remindedAt)) {
        // What a tick has begun comes after that timer's next tick.
        const Timer timers[] {{m_nextPulse, kPulse, m_nextPulse - kPulse, &Oracle::pulse},
            {m_nextLook, kLook, m_nextLook - kLook, &Oracle::lookAtUser},
            {m_nextPoll, kPoll, m_nextPoll - kPoll, &Oracle::hearAgain},
            {m_nextResend, kResend, m_nextResend - kResend, &Oracle::hearAgain},
            {m_due, kNever, m_scheduledAt, &Oracle::periodEnds},
            {m_dismissAt, kNever, m_dismissBegunAt, &Oracle::dismissTicks},
            {m_fadedAt, kNever, m_fadedAt - kFade, &Oracle::fadeEnds}};
        const Timer* first = nullptr;
        for (const Timer& timer : timers) {
            // What is heard at this very moment counts before what was heard once, and after a standstill
            // the earlier question comes first.
            const double limit =
                until + (timer.tick == &Oracle::hearAgain && !isAllHeard ? -kRounding : kRounding);
            const bool isDue = std::max(timer.due, m_frozenUntil) <= limit
                && (isInOrder || timer.due <= m_nextPoll + kRounding);
            const double by = first ? timer.due - first->due : -1;
            if (isDue && (by < -kRounding || (by < kRounding && timer.begun < first->begun - kRounding)))
                first = &timer;
        }
        if (!first)
            return;
        goTo(std::max(first->due, m_frozenUntil)); // A standstill makes it late.
        first->due = first->interval < kNever ? next(first->due, first->interval) : kNever;
        (this->*first->tick)();
    }
}

void Oracle::remind()
{
    // A release in a standstill is heard after what it made late.
    const bool isStanding = m_now < m_frozenUntil + kRounding;
    if (!m_holds.empty() && m_holds.back().to >= (isStanding ? m_frozenFrom : kNever))
        return;
    m_sleepReminded = m_slept;
    m_remindedAt = m_now;
}

void Oracle::pulse()
{
    if (m_slept - m_sleepReminded > 2)
        remind();
    if (hasSlept() || (isBroken() && m_isIdle))
        return close();
    if (m_isOpen && isBroken())
        return beginRow();
    if (m_isOpen)
        m_storedEnd = m_rows.back().end;
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
    noticeSleep();
    if (m_absentSince == kNever)
        return seconds;
    if (m_absenceSeenAt < 0 || m_now <= m_absenceSeenAt + 3)
        m_absenceSeenAt = m_now;
    else if (m_now - seconds > m_absentSince)
        m_absentSince = kNever, m_absenceSeenAt = -1;
    return m_absentSince == kNever ? seconds : kNever;
}

bool Oracle::noticeSleep()
{
    if (std::exchange(m_sleepSeen, m_slept) == m_slept)
        return false;
    m_absentSince = m_now;
    m_absenceSeenAt = -1;
    m_isAbsenceTold = false;
    return true;
}

// The process and the machine.

void Oracle::started()
{
    m_running = true;
    m_goodSince = std::max(m_goodSince, m_now);
    m_idleAfter = setting("TimeIdle");
    m_nextPulse = m_now + kPulse;
    m_nextLook = m_now + kLook;
    m_sleepSeen = m_sleepReminded = m_slept; // A new process knows of no sleep before it.
    m_span = {wall(), m_now, m_slept};
}

void Oracle::ended(bool killed)
{
    if (killed)
        m_answers.clear(); // It hears nothing more.
    endHold();
    if (!killed && isQuick() && driven() >= 0 && m_lastCommand[driven()] != kStopCommand)
        fail("no stop at the end");
    if (!killed)
        close();
    if (m_isOpen) { // What was not stored is lost.
        m_figures.largestError = std::max(m_figures.largestError, m_rows.back().end - m_storedEnd);
        m_rows.back().end = m_storedEnd;
    }
    static_cast<Process&>(*this) = {};
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
    remind();
    m_isGiven = true;
    m_wokeAt = m_now;
    // A further word is one of a further wake, whether or not the clocks saw a sleep.
    if (noticeSleep() || m_absentSince == kNever || m_isAbsenceTold) {
        m_absentSince = m_now + kWaking;
        m_absenceSeenAt = -1;
    }
    m_isAbsenceTold = true;
}

void Oracle::slept(double seconds)
{
    m_slept += seconds;
    m_wokeAt = m_now;
    m_wrong = 0; // Each wake is an absence of its own.
    m_isHoldExact = false;
}

void Oracle::frozenUntil(double time)
{
    m_frozenFrom = m_now;
    m_frozenUntil = time;
    m_readAt = std::max(m_readAt, time);
    m_isHoldExact = false;
    if (time > m_fadedAt - kFrame / 2) // The first frame after it is the last one.
        m_fadedAt -= std::floor((m_fadedAt - m_now) / kFrame) * kFrame;
}

void Oracle::judge()
{
    sqlite3* store = nullptr;
    sqlite3_stmt* rows = nullptr;
    sqlite3_open_v2(m_storePath.c_str(), &store, SQLITE_OPEN_READONLY, "unix");
    sqlite3_prepare_v2(
        store, "SELECT startDate, endDate, isStanding, weight FROM Activity ORDER BY id", -1, &rows, nullptr);
    m_rows.resize(m_rows.size() + 1); // One that nothing equals.
    size_t count = 0;
    for (; sqlite3_step(rows) == SQLITE_ROW && m_failure.empty(); ++count) {
        const Row& row = m_rows[count];
        const double start = sqlite3_column_double(rows, 0);
        const double end = sqlite3_column_double(rows, 1);
        if (!isNear(row.start, start) || !isNear(row.end, end)
            || (row.posture == Standing) != bool(sqlite3_column_int(rows, 2))
            || row.weight != sqlite3_column_double(rows, 3))
            fail("record " + std::to_string(count) + " from " + std::to_string(start) + " for "
                + std::to_string(end - start) + " s; expected from " + std::to_string(row.start) + " for "
                + std::to_string(row.end - row.start));
    }
    sqlite3_finalize(rows);
    sqlite3_close(store);
    if (count + 1 != m_rows.size())
        fail(std::to_string(count) + " records in place of " + std::to_string(m_rows.size() - 1));
    m_figures.records += count;
}
}
