#include "storm/Oracle.h"

#include <algorithm>
#include <cmath>
#include <sqlite3.h>
#include <utility>

namespace storm {
namespace {
/// What the program may be late by, and why.
constexpr double kPoll = 1.0; ///< the height is asked once a second
constexpr double kIdlePoll = 10.0; ///< so is the user, every ten
constexpr double kPulse = 15.0; ///< an open period is saved as often; a kill loses no more
constexpr double kLook = 0.5; ///< the world is looked at that often
constexpr double kAdoption = 0.2 + kPoll; ///< an adapter's check and the first poll
constexpr double kFirstAbsence = 2 * kIdlePoll; ///< after a wake: one poll finds an absence, the next its end
constexpr double kStop = 0.3; ///< no movement report comes later than this after a hold
constexpr double kResend = 0.2;
constexpr double kErrorStays = 15.0;
constexpr double kFade = 0.4;
constexpr double kDeaf =
    5.0; ///< a transfer may take as long before the adapter counts as gone; so may its return
constexpr double kRounding = 0.05; ///< a moment that two clocks tell

constexpr uint16_t kStopCommand = 0x8001;

double overlap(double from, double to, double otherFrom, double otherTo)
{
    return std::min(to, otherTo) - std::max(from, otherFrom);
}
}

Oracle::Oracle(const Script& script, std::string storePath)
    : m_storePath(std::move(storePath))
    , m_settings {{0.0, script.settings}}
    , m_clocks {{0.0, script.start, 0}}
{
}

void Oracle::fail(double now, const std::string& what)
{
    if (m_failure.empty())
        m_failure = std::to_string(now) + " s: " + what;
}

double Oracle::settingAt(double time, const std::string& key) const
{
    const auto& keys = settingKeys();
    size_t index = 0;
    while (keys[index] != key)
        ++index;
    double value = 0;
    for (const auto& [since, values] : m_settings) {
        if (since <= time)
            value = values[index];
    }
    return value;
}

double Oracle::setting(const std::string& key) const
{
    return settingAt(1e18, key);
}

void Oracle::settingChanged(double now, size_t setting, double value)
{
    m_settings.emplace_back(now, m_settings.back().second);
    m_settings.back().second[setting] = value;
}

/// From then on the record must be true; until then it may also be missing.
void Oracle::certainFrom(double time)
{
    m_certainFrom = std::max(m_certainFrom, time + kLook);
}

/// An event that opens a period, also for an absent user, until the next look at the user ends it.
void Oracle::opener(double now, double lag)
{
    m_openedAt = now + lag + late(now);
    m_suspended = false;
    m_splits.push_back({now, now + lag});
    certainFrom(now + lag);
}

void Oracle::started(double now)
{
    m_running = true;
    std::sort(m_attached.begin(), m_attached.end()); // They are announced anew, in the order of their ports.
    m_idleAfter = setting("TimeIdle");
    // A new process knows of no sleep before it.
    m_storeIsOpen = false;
    m_absentSince = 1e18;
    m_wokeAt = -1e9;
    m_maybeAbsent = false;
    if (m_awaySince)
        *m_awaySince += std::exchange(m_sleptWhileAway, 0);
    m_posture = m_formerPosture = None;
    m_height = -1;
    m_windowSince = 1e18;
    m_owedUntil = -1e9;
    m_hadTwo = false;
    m_reminder.reset();
    opener(now, kAdoption);
}

void Oracle::ended(double now, bool killed)
{
    endHold(now);
    m_holds.clear();
    m_lastCommand.clear();
    m_running = false;
    m_reminder.reset();
    const double fullSince = now < m_wasFull.to && killed ? m_wasFull.from : m_fullSince;
    double saved = std::min(now, fullSince) - kPulse - kLook;
    if (saved < m_wokeAt)
        saved = std::min(saved, m_fellAsleepAt - kPulse - kLook); // No pulse saves in sleep.
    m_disturbances.push_back({saved, now + kPulse});
    while ((killed || m_fullSince < now) && !m_runs.empty() && m_runs.back().to > saved) {
        m_lost.push_back(m_runs.back());
        m_runs.pop_back();
    }
    for (; !m_lost.empty(); m_lost.pop_back()) {
        Run run = m_lost.back();
        if (run.from < saved)
            add({std::exchange(run.from, saved), saved, run.allowed, run.truth});
        add({run.from, run.to, run.allowed | None, run.truth});
    }
}

void Oracle::plugged(double now, int adapter)
{
    endHold(now);
    m_attached.push_back(adapter);
    adapterChanged(now, m_attached.size() == 1);
}

void Oracle::unplugged(double now, int adapter)
{
    endHold(now);
    const bool wasAdopted = m_attached.front() == adapter;
    std::erase(m_attached, adapter);
    m_lastCommand.erase(adapter);
    if (m_errorSince < now) {
        m_errorUntil = now;
        m_errorSince = 1e18;
    }
    adapterChanged(now, wasAdopted);
}

/// The program adopts the adapter that came first and drives the one that came last.
void Oracle::adapterChanged(double now, bool isAdopted)
{
    m_height = -1;
    if (!isAdopted) {
        m_formerPosture = Sitting | Standing; // Of the one desk or the other.
        m_postureSince = now + kAdoption;
        m_splits.push_back({now, now + kAdoption + kPoll});
        certainFrom(now + kAdoption);
        return;
    }
    m_posture = m_formerPosture = None;
    opener(now, kAdoption);
}

bool Oracle::isIdleFor(double now, double seconds) const
{
    return m_awaySince && (now - *m_awaySince >= m_idleAfter + seconds || now - m_absentSince >= seconds);
}

void Oracle::away(double now)
{
    if (m_awaySince)
        return;
    m_awaySince = now;
    m_sleptWhileAway = 0;
    if (now < m_wokeAt + kRounding)
        m_absentSince = m_wokeAt; // The last input was before the wake.
    // Where nobody told of the wake it is found out by the next look at the user.
    m_maybeAbsent = now < m_wokeAt + kIdlePoll;
}

void Oracle::back(double now)
{
    if (m_maybeAbsent || isIdleFor(now, -kRounding))
        opener(now, kIdlePoll);
    m_maybeAbsent = false;
    m_awaySince.reset();
    m_absentSince = 1e18;
}

/// Whoever wakes the machine was away until their first input after it.
void Oracle::woke(double now)
{
    m_wokeAt = now;
    if (m_awaySince)
        m_absentSince = std::min(m_absentSince, now);
    m_suspended = false;
    m_splits.push_back({now, now + kFirstAbsence});
    certainFrom(now + kFirstAbsence);
}

void Oracle::dark(double now)
{
    opener(now, 0);
}

void Oracle::sleepAnnounced(double now)
{
    endHold(now);
    m_suspended = true;
    m_suspendedPosture = m_posture;
    // A reminder that is open then snoozes, and comes back though no period is open.
    m_disturbances.push_back({now, now + (isReminderOpen() ? 3600 : 0)});
}

void Oracle::wakeTold(double now)
{
    woke(now);
    m_disturbances.push_back({now, now});
}

void Oracle::slept(double from, double until)
{
    m_disturbances.push_back({from, until + kPulse});
    // Where no sleep was announced, the first pulse after it finds out, and reckons with the time awake.
    const double found = std::min(from + kPulse + kLook, until);
    add({from, found, m_posture | m_formerPosture | None, None});
    add({found, until, None, None});
    m_lookedAt = until;
    stoodStill(from, until);
    m_fellAsleepAt = from;
    m_sleptWhileAway += until - from;
    m_allowedBefore = None;
    if (!m_holds.empty())
        m_holds.back().mustMove = false;
    if (m_reminder)
        m_reminder->leavesAt += until - from;
    woke(until);
}

void Oracle::clockSet(double now, double by)
{
    int rows = 0;
    readStore([&rows](double, double, bool, double) { ++rows; });
    m_clocks.push_back({now, m_clocks.back().offset + by, rows});
}

void Oracle::deskError(double now, bool present)
{
    if (present == (m_errorSince < 1e18))
        return;
    if (present) {
        m_errorSince = now;
    } else {
        m_errorUntil = now;
        m_errorSince = 1e18;
    }
}

void Oracle::wire(double now, const std::string& how, double seconds)
{
    if (how == "one-failure")
        return; // It is tried again, and nothing is concluded.
    m_formerLatency = latency(now);
    m_newLatency = how == "slow" ? seconds : 0;
    m_latencySince = now;
    const bool wasBad = std::exchange(m_wireIsBad, how != "well" && how != "slow");
    if (!wasBad && !m_wireIsBad)
        return; // Late is not failed.
    const bool isDeaf = m_wireIsBad && how != "failing-writes";
    // Where nothing is written nobody finds out that it would fail.
    const bool staysSuspended = m_suspended && !isDeaf && m_deafSince > now;
    if (!m_holds.empty())
        m_holds.back().mustMove = false;
    if (now > m_deafSince + 2 * kDeaf)
        endHold(m_deafSince + 2 * kDeaf); // The adapter that comes back is another one.
    m_deafSince = isDeaf ? std::min(m_deafSince, now) : 1e18;
    m_owedUntil = -1e9;
    m_wellSince = now + 2 * kDeaf;
    m_disturbances.push_back({now, now + 2 * kDeaf});
    opener(now, 2 * kDeaf + kAdoption);
    m_suspended = staysSuspended;
}

/// What a transfer takes; one that is under way takes what it took when it began.
double Oracle::latency(double now) const
{
    return now < m_latencySince + kAdoption ? std::max(m_formerLatency, m_newLatency) : m_newLatency;
}

/// How much later a height is known: a slow answer may be told of by the next poll.
double Oracle::late(double now) const
{
    return latency(now) > 0 ? kPoll + 3 * latency(now) : 0;
}

void Oracle::disk(double now, bool full)
{
    const double begin = now < m_wasFull.to ? m_wasFull.from : now;
    const double since = std::exchange(m_fullSince, full ? std::min(m_fullSince, begin) : 1e18);
    if (!full && since < now)
        m_wasFull = {since, now + kPulse + kLook}; // What waited is saved by the next pulse.
    if (full || m_storeIsOpen || since > now)
        return;
    certainFrom(now + kPulse);
    m_splits.push_back({now, now + kPulse});
    m_disturbances.push_back({since, now + 3600}); // The schedule ran without a record.
}

void Oracle::frozen(double from, double until)
{
    if (!m_holds.empty())
        m_holds.back().mustMove = false;
    if (m_reminder && m_reminder->leavesAt > from)
        m_reminder->leavesAt = std::max(m_reminder->leavesAt, until);
    stoodStill(from, until);
    m_disturbances.push_back({from - 1, until + 1});
}

/// What the program was about to find out, it finds out later.
void Oracle::stoodStill(double from, double until)
{
    m_wentOnAt = until;
    m_hiddenSince = std::max(m_hiddenSince, until);
    for (double* const awaited : {&m_openedAt, &m_postureSince, &m_wellSince, &m_certainFrom}) {
        if (*awaited > from - kIdlePoll)
            *awaited += until - from;
    }
}

void Oracle::pressed(double now, uint16_t command, bool onReminder)
{
    const bool known = driven() >= 0 && now >= m_certainFrom && !m_wireIsBad && latency(now) == 0;
    m_reminderIsHeld = onReminder;
    if (driven() >= 0)
        m_holds.push_back({.from = now, .adapter = driven(), .command = command, .mustMove = known});
}

void Oracle::letGo(double now, bool onReminder)
{
    endHold(now);
    m_reminderIsHeld = false;
    if (m_reminder && onReminder)
        m_reminder->actionDone = true;
}

void Oracle::endHold(double now)
{
    if (m_holds.empty() || m_holds.back().to <= now)
        return;
    Hold& hold = m_holds.back();
    hold.to = now;
    const int due = int((now - hold.from) / kResend - kRounding);
    if (hold.mustMove && hold.moves < due - 1)
        fail(now,
            "a hold of " + std::to_string(now - hold.from) + " s gave " + std::to_string(hold.moves)
                + " movement reports");
}

void Oracle::written(double now, int adapter, uint16_t command)
{
    m_lastCommand[adapter] = command;
    // A stalled report is told of late: it belongs to the hold in which it began.
    const auto found = std::find_if(
        m_holds.rbegin(), m_holds.rend(), [now](const Hold& candidate) { return candidate.from <= now; });
    Hold* const hold = found == m_holds.rend() ? nullptr : &*found;
    if (command == kStopCommand) {
        if (hold && hold->adapter == adapter && hold->to <= now)
            hold->stopped = true;
        return;
    }
    if (!hold || hold->adapter != adapter || hold->command != command || hold->stopped
        || now > hold->to + kStop + kRounding) {
        fail(now, "movement report " + std::to_string(command) + " outside a hold");
        return;
    }
    ++hold->moves;
    m_figures.longestOverrun = std::max(m_figures.longestOverrun, now - hold->to);
}

/// The standing point lies in the middle between the first two memory positions; the height is judged when
/// it changes, and not when they do.
void Oracle::judgePosture(double now, int height)
{
    if (height == m_height)
        return;
    m_height = height;
    const int middle = (int(setting("DevicePosition1")) + int(setting("DevicePosition2"))) / 2;
    const unsigned posture = height >= middle ? Standing : Sitting;
    if (posture == m_posture)
        return;
    m_formerPosture = m_posture;
    m_posture = posture;
    m_postureSince = now;
    m_openedAt = std::max(m_openedAt, now + kPoll + late(now));
    m_splits.push_back({now, now + kPoll});
}

void Oracle::add(Run run)
{
    const bool goesOn = !m_runs.empty() && m_runs.back().allowed == run.allowed
        && m_runs.back().truth == run.truth && m_runs.back().to == run.from;
    if (goesOn)
        m_runs.back().to = run.to;
    else if (run.to > run.from)
        m_runs.push_back(run);
}

unsigned Oracle::truth(double now) const
{
    return !m_running || m_attached.empty() || isIdleFor(now, 0) ? unsigned(None) : m_posture;
}

unsigned Oracle::allowed(double now) const
{
    if (!m_running || m_attached.empty())
        return None;
    if (now > m_deafSince + 2 * kDeaf)
        return None;
    if (isIdleFor(now, kIdlePoll + kLook) && now > m_openedAt + kIdlePoll + kLook)
        return None;
    const bool isStarved = latency(now) >= kResend / 2 && !m_holds.empty()
        && now < m_holds.back().to + kPoll + kLook + late(now);
    const bool changes =
        isStarved || m_wireIsBad || now < std::max(m_postureSince, m_wellSince) + kPoll + kLook + late(now);
    const unsigned postures = m_posture | (changes ? m_formerPosture & ~None : 0U);
    const bool hasStore = m_storeIsOpen || m_fullSince > now;
    const bool certain = hasStore && now >= m_certainFrom + 2 * late(now) && !m_wireIsBad && !m_suspended
        && !m_maybeAbsent && !isIdleFor(now, -kRounding);
    return postures | (certain ? 0U : unsigned(None));
}

void Oracle::look(double now, const World& world)
{
    if (driven() >= 0 && m_running)
        judgePosture(now, world.heights[size_t(driven())]);
    // A posture that lasts has been seen, and is an event of its own.
    if (m_suspended && m_posture != m_suspendedPosture && now > m_postureSince + kPoll + late(now))
        opener(now, 0);
    const unsigned may = allowed(now);
    // What lies between two looks may be as at the one or as at the other.
    add({m_lookedAt, now, may | m_allowedBefore, truth(now)});
    m_lookedAt = now;
    m_allowedBefore = may;
    m_storeIsOpen = m_storeIsOpen || !(may & None);
    if (!m_holds.empty() && !m_wireIsBad
        && now > std::max({m_holds.back().to, m_wellSince, m_wentOnAt}) + kStop + 2 * latency(now)) {
        const auto last = m_lastCommand.find(m_holds.back().adapter);
        if (last != m_lastCommand.end() && last->second != kStopCommand)
            fail(now, "no stop after a hold");
    }
    lookAtError(now, world);
    lookAtReminder(now);
}

void Oracle::lookAtError(double now, const World& world)
{
    m_hadTwo = m_hadTwo || m_attached.size() > 1;
    m_windowSince = world.errorLine ? std::min(m_windowSince, now) : 1e18;
    if (!world.errorLine || m_wireIsBad || now < m_certainFrom + kPoll) {
        m_hiddenSince = now;
        return;
    }
    const bool present = now > std::max(m_errorSince, m_windowSince) + kPoll + kLook + late(now);
    const bool mustShow = present || now < m_owedUntil;
    // Of two adapters each says that its error is gone; the first one's clock goes on ticking.
    if (present && !m_hadTwo)
        m_owedUntil = now + kErrorStays - kLook;
    if (*world.errorLine || !mustShow)
        m_hiddenSince = now;
    const bool mustHide = m_errorSince > now && now > m_errorUntil + kErrorStays + kPoll + kLook + late(now)
        && now > m_wellSince + kErrorStays;
    if (now > m_hiddenSince + kPoll + kLook)
        fail(now, "the desk's error is not shown");
    if (mustHide && *world.errorLine)
        fail(now, "an error is shown that the desk has no more");
}

void Oracle::lookAtReminder(double now)
{
    if (!isReminderOpen() || now < m_reminder->leavesAt)
        return;
    if (m_reminderIsHeld) {
        m_disturbances.push_back({now, now + 3600}); // While it stays open no other one appears.
        m_reminder->leavesAt +=
            setting(m_reminder->actionDone ? "TimeNotificationDismissOnAction" : "TimeNotificationDismiss");
        return;
    }
    m_reminder->answered = true;
    if (!m_reminder->actionDone)
        restart(m_reminder->leavesAt, setting("TimeSnooze"));
}

void Oracle::restart(double now, double seconds)
{
    if (driven() >= 0)
        m_restarts.push_back({now, seconds, m_posture, false});
}

void Oracle::opened(double now)
{
    if (!m_holds.empty())
        m_holds.back().mustMove = false; // Another window that comes to the front takes a hold away.
    if (isReminderOpen())
        reminderAnswered(now, "dismiss");
}

void Oracle::reminderShown(double now, const std::string& number, const std::string& memory)
{
    ++m_figures.shown;
    m_shown.push_back(now);
    if (!m_holds.empty())
        m_holds.back().mustMove = false; // The window system may have made it the active window.
    m_reminder = Reminder {now, now + setting("TimeNotificationDismiss")};
    if (isIdleFor(now, kIdlePoll + kLook))
        fail(now, "a reminder for an absent user");
    if (now < m_postureSince + kPoll + kLook + late(now) || isDisturbed(now, now))
        return;
    const bool standUp = m_posture == Sitting;
    const int standUps = int(setting("NumberOfStandUps"));
    const double hourly = interval(now, standUp ? Standing : Sitting) * standUps / 60;
    int expected = int(hourly + kRounding) / standUps;
    if (standUp && setting("ActivityMode") == 1)
        expected = int(setting("Weight") * 2.205 * expected * 0.0054);
    const bool isSame = m_settings.size() == 1; // The rates are those of the schedule's last start.
    if (memory != (standUp ? "Memory2" : "Memory1") || (isSame && number != std::to_string(expected)))
        fail(now, "the reminder says " + number + " " + memory + " for " + std::to_string(expected));
}

void Oracle::reminderAnswered(double now, const std::string& how)
{
    if (!isReminderOpen())
        return;
    if (how == "skip-unpointed") {
        // The window's own clock runs on and snoozes.
        restart(now, std::floor(3600 / setting("NumberOfStandUps")));
        m_reminder->actionDone ? void() : restart(m_reminder->leavesAt, setting("TimeSnooze"));
    } else if (how == "skip") {
        restart(now, std::floor(3600 / setting("NumberOfStandUps")));
    } else if (how != "dismiss") {
        restart(now, setting("TimeSnooze"));
    }
    m_reminder->answered = true;
    m_reminder->leavesAt = now;
}

void Oracle::reminderHidden(double now)
{
    const bool wasHeld = m_reminder && (m_reminder->actionDone || m_reminderIsHeld);
    if (m_reminder && !wasHeld && std::abs(now - m_reminder->leavesAt - kFade) > 0.1
        && !isDisturbed(now - 1, now))
        fail(now, "the reminder left at a time of its own");
}

bool Oracle::isDisturbed(double from, double to) const
{
    return isInOne(m_disturbances, from, to);
}

double Oracle::interval(double time, unsigned posture) const
{
    double standing = settingAt(time, "ActivityGoal");
    if (settingAt(time, "ActivityMode") == 1) {
        const double caloriesAMinute = settingAt(time, "Weight") * 2.205 * 0.0054;
        standing = std::ceil(standing / caloriesAMinute / settingAt(time, "AverageWorkDayHours"));
    }
    standing = std::min(standing, 60.0);
    return (posture == Standing ? standing : 60 - standing) * 60 / settingAt(time, "NumberOfStandUps");
}

/// A row's start is told by the wall clock as it went when the row was made: by the last one that was set
/// before the row was in the store, or by an earlier one for a row that waited for room on the disk.
std::optional<double> Oracle::onOwnClock(double wall, int row) const
{
    double until = m_lookedAt + kPulse;
    for (auto clock = m_clocks.rbegin(); clock != m_clocks.rend(); ++clock) {
        const double time = wall - clock->offset;
        const bool wasThen = time >= clock->since - kRounding && time <= until + kRounding;
        if (clock->rowsBefore <= row && wasThen)
            return time;
        until = clock->since;
    }
    return std::nullopt;
}

bool Oracle::isInOne(const std::vector<Stretch>& stretches, double from, double to)
{
    return std::any_of(stretches.begin(), stretches.end(),
        [&](const Stretch& stretch) { return stretch.from <= to && stretch.to >= from; });
}

/// Whether the clock was set so shortly before that a pulse can have found it out just then.
bool Oracle::wasSet(double time) const
{
    return std::any_of(m_clocks.begin() + 1, m_clocks.end(),
        [&](const auto& clock) { return clock.since <= time && time <= clock.since + kPulse + kRounding; });
}

void Oracle::readStore(const std::function<void(double, double, bool, double)>& visit) const
{
    sqlite3* store = nullptr;
    sqlite3_stmt* rows = nullptr;
    sqlite3_open_v2(m_storePath.c_str(), &store, SQLITE_OPEN_READONLY, "unix");
    sqlite3_prepare_v2(
        store, "SELECT startDate, endDate, isStanding, weight FROM Activity ORDER BY id", -1, &rows, nullptr);
    while (sqlite3_step(rows) == SQLITE_ROW)
        visit(sqlite3_column_double(rows, 0), sqlite3_column_double(rows, 1),
            sqlite3_column_int(rows, 2) != 0, sqlite3_column_double(rows, 3));
    sqlite3_finalize(rows);
    sqlite3_close(store);
}

void Oracle::readRows()
{
    int number = 0;
    readStore([&](double start, double end, bool isStanding, double weight) {
        const auto from = onOwnClock(start, number++);
        const double before = m_rows.empty() ? 0 : m_rows.back().to;
        if (!from || end < start || *from < before - kRounding)
            fail(from.value_or(0),
                "a record of " + std::to_string(end - start)
                    + " s that runs backwards, overlaps or began at no time that was");
        else
            m_rows.push_back(
                {*from, *from + end - start, isStanding ? unsigned(Standing) : unsigned(Sitting), weight});
    });
}

void Oracle::judge()
{
    readRows();
    judgeRows();
    judgeRuns();
    judgeReminders();
}

void Oracle::judgeRows()
{
    const Row* former = nullptr;
    for (const Row& row : m_rows) {
        if (row.weight != settingAt(row.from - kRounding, "Weight")
            && row.weight != settingAt(row.from, "Weight"))
            fail(row.from, "a record with the weight " + std::to_string(row.weight));
        const bool met = former && row.from - former->to < kRounding;
        if (met && former->posture == row.posture && !isInOne(m_splits, row.from - kLook, row.from + kLook)
            && !wasSet(row.from))
            fail(row.from, "a period was split for no reason");
        ++m_figures.records;
        m_figures.recorded += row.to - row.from;
        m_figures.standing += row.posture == Standing ? row.to - row.from : 0;
        former = &row;
    }
}

/// Walks the looks and the rows side by side.
void Oracle::judgeRuns()
{
    size_t at = 0;
    double wrong = 0;
    for (const Run& run : m_runs) {
        while (at < m_rows.size() && m_rows[at].to < run.from)
            ++at;
        std::map<unsigned, double> seconds {{None, run.to - run.from}};
        for (size_t i = at; i < m_rows.size() && m_rows[i].from < run.to; ++i) {
            const double shared = overlap(run.from, run.to, m_rows[i].from, m_rows[i].to);
            seconds[m_rows[i].posture] += shared;
            seconds[None] -= shared;
        }
        for (const auto& [posture, time] : seconds) {
            if (time > kRounding && !(posture & run.allowed))
                fail(run.from,
                    "until " + std::to_string(run.to) + " s for " + std::to_string(time)
                        + " s the record says " + std::to_string(posture)
                        + " (1 nothing, 2 sitting, 4 standing)");
        }
        m_figures.attended += run.truth & ~None ? run.to - run.from : 0;
        const double error = run.to - run.from - seconds[run.truth];
        wrong = error > kRounding ? wrong + error : 0;
        m_figures.largestError = std::max(m_figures.largestError, wrong);
    }
}

void Oracle::judgeReminders()
{
    std::vector<Row> sessions;
    for (const Row& row : m_rows) {
        // A clock that was set begins a record, and no session.
        const bool meets = !sessions.empty() && row.from - sessions.back().to < kRounding
            && row.posture == sessions.back().posture && wasSet(row.from);
        const bool isUnclear = meets && isInOne(m_splits, row.from - kLook, row.from + kLook);
        if (isUnclear)
            m_disturbances.push_back({row.from - 1, row.from + 3600});
        if (meets && !isUnclear)
            sessions.back().to = row.to;
        else
            sessions.push_back(row);
    }
    for (const Row& row : sessions)
        m_restarts.push_back({row.from, interval(row.from, row.posture), row.posture, true});
    std::stable_sort(m_restarts.begin(), m_restarts.end(),
        [](const Restart& left, const Restart& right) { return left.at < right.at; });
    std::vector<double> left = m_shown;
    size_t row = 0;
    for (size_t i = 0; i < m_restarts.size(); ++i) {
        const Restart& restart = m_restarts[i];
        const double due = restart.at + restart.seconds;
        while (row + 1 < sessions.size() && sessions[row + 1].from <= restart.at + kRounding)
            ++row;
        const bool open = row < sessions.size() && sessions[row].from <= restart.at + kRounding;
        const double end = open ? sessions[row].to : 0;
        const bool superseded = i + 1 < m_restarts.size() && m_restarts[i + 1].at < due - kRounding;
        if (restart.seconds <= 0 || superseded)
            continue;
        const bool disturbed = isDisturbed(restart.at - 1, due + 1);
        const auto shown =
            std::find_if(left.begin(), left.end(), [&](double at) { return std::abs(at - due) < 0.1; });
        const bool must = open && end > due + 0.3 && !disturbed;
        m_figures.expected += must;
        if (shown != left.end() && (open && (end > due - 0.3 || disturbed)))
            left.erase(shown);
        else if (must)
            fail(due, "no reminder");
    }
    for (const double at : left) {
        if (!isDisturbed(at - 1, at + 1))
            fail(at, "a reminder out of its time");
    }
}
}
