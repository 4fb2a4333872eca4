#include "storm/Oracle.h"

#include <algorithm>
#include <cmath>
#include <ctime>
#include <sqlite3.h>
#include <utility>

namespace storm {
namespace {
constexpr double kPoll = 1.0;
constexpr double kCheck = 0.2; ///< after an adapter was taken up
constexpr double kLook = 10.0; ///< at the user
constexpr double kPulse = 15.0;
constexpr double kResend = 0.2; ///< of a held movement
constexpr double kStop = 0.3; ///< no movement report comes later than this after a hold
constexpr double kErrorStays = 15.0;
constexpr double kFade = 0.4;
constexpr double kPatience = 5.05; ///< with a transfer that is not answered
constexpr double kSlowest = 0.6; ///< transfer
constexpr double kBelieved = 5.0; ///< an answer
constexpr double kWait = 0.01; ///< for an answer; then it is heard of when it comes
constexpr double kRounding = 1e-4;
/// The record is the truth again so soon after whatever happens: two looks at the user after a wake, and a
/// standstill.
constexpr double kLongestError = 2 * kLook + 4.5;

constexpr uint16_t kStopCommand = 0x8001;

bool isNear(double left, double right, double tolerance = 1e-3)
{
    return std::abs(left - right) < tolerance;
}

std::string number(double value)
{
    return std::to_string(value);
}

/// The number that a text holds.
double numberIn(const std::string& text)
{
    const size_t at = text.find_first_of("0123456789");
    return at == std::string::npos ? -1 : std::stod(text.substr(at));
}

/// What a window says of a status report; nothing without an error.
std::string errorIn(const std::vector<uint8_t>& report)
{
    if (!(report[3] & 2))
        return {};
    std::map<std::string, std::string> lines;
    for (size_t i = 34; i < 40 && report[32]; ++i) {
        if (report[i])
            lines["E" + std::to_string(report[i])] = "";
    }
    const char* const kinds[] {"PositionLostError", "OverloadUpError", "OverloadDownError"};
    for (int kind : {1, 2, 3}) {
        if (report[6] & (kind == 1 ? 1 : kind * 4 - 4))
            lines["E0" + std::to_string(kind)] = kinds[kind - 1];
    }
    std::string text = "Error";
    for (const auto& [key, line] : lines)
        text += " " + key + ":" + (line.empty() ? "" : " " + line);
    return text;
}
}

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
            // What is heard at this very moment counts before what was heard once.
            const double limit = until + (timer.tick == &Oracle::hearAgain ? -kRounding : kRounding / 10);
            const bool isDue = std::max(timer.due, m_frozenUntil) <= limit;
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

// The cable.

void Oracle::plugged(int adapter, bool in)
{
    m_isPlugged[size_t(adapter)] = in;
    m_goodSince = std::max(m_goodSince, m_now);
}

void Oracle::wire(bool isHeard, bool isGood, double seconds)
{
    if (m_latency > 0)
        m_quickSince = m_now + kPoll + 4 * kSlowest; // What is under way takes what it took when it began.
    if (!m_isGood)
        m_goodSince = m_now + 2 * kPatience;
    if (!m_holds.empty())
        m_holds.back().isExact = false;
    m_deafSince = isHeard ? kNever : std::min(m_deafSince, m_now);
    m_isHeard = isHeard;
    m_isGood = isGood;
    m_latency = seconds;
}

bool Oracle::isQuick() const
{
    return m_isGood && m_latency == 0 && m_now > std::max(m_quickSince, m_goodSince);
}

bool Oracle::isActive() const
{
    return !m_devices.empty() && m_devices.front().communicates() && m_devices.front().posture != None;
}

bool Oracle::isTakenUp(int adapter) const
{
    return std::any_of(
        m_devices.begin(), m_devices.end(), [=](const Device& device) { return device.adapter == adapter; });
}

void Oracle::matched(int adapter)
{
    if (!m_isPlugged[size_t(adapter)])
        fail("an adapter is taken up that is not there");
    endHold();
    adopt(adapter);
}

void Oracle::adopt(int adapter)
{
    m_devices.push_back({adapter, m_now + kCheck});
    m_isInitOwed[size_t(adapter)] = true;
    m_readAt = m_now + kCheck;
    m_hadTwo = m_hadTwo || m_devices.size() > 1;
    if (m_devices.size() == 1)
        m_nextPoll = m_now + kCheck;
}

void Oracle::removed(int adapter)
{
    if (m_isPlugged[size_t(adapter)] && m_isGood && m_now > m_goodSince)
        fail("an adapter that answers is given up");
    endHold();
    m_lastCommand.erase(adapter);
    m_answers.erase(adapter);
    m_readAt = m_now;
    const bool wasFirst = m_devices.front().adapter == adapter;
    const auto device = std::find_if(
        m_devices.begin(), m_devices.end(), [=](const Device& one) { return one.adapter == adapter; });
    if (wasFirst) {
        m_posture = None;
        m_nextPoll = kNever;
        close();
    }
    errorIs(*device, {});
    m_devices.erase(device);
    if (!wasFirst || m_devices.empty())
        return;
    // The one that waited is taken up anew.
    errorIs(m_devices.front(), {});
    const int waiting = m_devices.front().adapter;
    m_devices.clear();
    adopt(waiting);
}

void Oracle::transferred(int adapter, const Transfer& transfer)
{
    if (!m_running)
        return;
    if (!transfer.isRead)
        return commanded(adapter, transfer);
    const bool isLate = transfer.duration > kWait;
    if (!transfer.isOk || !isTakenUp(adapter) || (isLate && adapter != driven()))
        return;
    m_readAt = m_now;
    m_answers[adapter] = {transfer.bytes, m_now - transfer.duration};
    if (!isLate && isNear(m_now, m_nextPoll))
        m_nextPoll += kPoll;
    for (Device& device : m_devices) {
        if (isLate || isItsTurn(device))
            hear(device, transfer.bytes);
    }
}

/// Of two devices each asks in a rhythm of its own, through the same cable; only the first one drives.
bool Oracle::isItsTurn(const Device& device) const
{
    const double sincePoll = m_now - device.polledSince;
    const bool isRhythm = device.communicates()
        ? sincePoll > kRounding && isNear(sincePoll, std::round(sincePoll))
        : isNear(m_now, device.checkedAt);
    const bool isDriving = &device == &m_devices.front() && isNear(m_now, m_writtenAt);
    const bool isLate =
        isNear(m_now, m_frozenUntil) && (device.communicates() || device.checkedAt > m_now - 5);
    const bool isCheck = isNear(m_now, device.polledSince); // Nobody looks at the height in it.
    return (isDriving || !isCheck) && (m_devices.size() == 1 || isRhythm || isDriving || isLate);
}

void Oracle::hear(Device& device, const std::vector<uint8_t>& report)
{
    if (!device.communicates()) {
        if (m_now < device.checkedAt - kRounding || !(report[2] & 1))
            return;
        device.polledSince = m_now;
        if (&device == &m_devices.front()) {
            m_nextPoll = m_now + kPoll;
            open();
        }
        return;
    }
    errorIs(device, errorIn(report));
    takeHeight(device, report[4] | report[5] << 8);
}

/// Whoever asks while the answer is on its way gets the one before, unless nobody would believe it any more.
void Oracle::hearAgain()
{
    const auto answer = m_answers.find(driven());
    const bool isSlow = m_latency > 0 || (m_isHeard && m_now < m_quickSince);
    if (!isSlow || m_devices.empty() || answer == m_answers.end()
        || m_now - answer->second.second > kBelieved)
        return;
    Device& device = m_devices.front();
    if (device.communicates() || isNear(m_now, device.checkedAt))
        hear(device, answer->second.first);
}

/// The standing point lies in the middle between the first two memory positions; the height is judged when it
/// changes, and not when they do.
void Oracle::takeHeight(Device& device, int height)
{
    if (std::exchange(device.height, height) == height)
        return;
    const int middle = (int(setting("DevicePosition1")) + int(setting("DevicePosition2"))) / 2;
    device.posture = height >= middle ? Standing : Sitting;
    if (&device == &m_devices.front() && std::exchange(m_posture, device.posture) != device.posture)
        open();
}

void Oracle::commanded(int adapter, const Transfer& transfer)
{
    const auto& bytes = transfer.bytes;
    m_writtenAt = m_now;
    if (bytes[0] == 3) {
        if (!m_isInitOwed[size_t(adapter)] || bytes != std::vector<uint8_t> {3, 4, 0, 0xFB, 0, 0, 0, 0})
            fail("an init report without need, or none");
        m_isInitOwed[size_t(adapter)] = !transfer.isOk; // Else it is tried again.
        return;
    }
    const auto command = uint16_t(bytes[1] | bytes[2] << 8);
    const auto low = uint8_t(command), high = uint8_t(command >> 8);
    if (bytes != std::vector<uint8_t> {5, low, high, low, high, low, high, low})
        fail("a report of no kind");
    if (isTakenUp(adapter) && (transfer.isOk || command != kStopCommand))
        m_lastCommand[adapter] = command;
    // A stalled report is told of late: it belongs to the hold in which it began.
    const double begun = m_now - transfer.duration;
    const auto hold = std::find_if(
        m_holds.rbegin(), m_holds.rend(), [=](const Hold& one) { return one.from <= begun + kRounding; });
    const bool isKnown = hold != m_holds.rend() && hold->adapter == adapter;
    if (command == kStopCommand) {
        if (isKnown && hold->to <= begun)
            hold->stopped = true;
        return;
    }
    if (!isKnown || hold->command != command || hold->stopped || begun > hold->to + kStop) {
        fail("movement report " + number(command) + " outside a hold");
        return;
    }
    hold->moves += transfer.isOk ? 1 : 0;
    m_figures.longestOverrun = std::max(m_figures.longestOverrun, begun - hold->to);
}

/// What must be true of adapters and their reports whenever time has passed.
void Oracle::judgePresence()
{
    if (!m_running || m_now < m_frozenUntil + kRounding)
        return;
    // One that was not heard at the first is not asked again.
    const bool isAsking = !m_devices.empty() && m_devices.front().communicates();
    if (m_isGood && m_now > m_goodSince + kPoll) {
        const double late = isQuick() ? 0 : 2 * kPoll + 4 * kSlowest;
        for (int adapter : {0, 1}) {
            if (isTakenUp(adapter) != m_isPlugged[size_t(adapter)])
                fail("an adapter is not taken up, or is kept");
        }
        if (isAsking && m_now > m_readAt + kPoll + 0.01 + late)
            fail("the height is not asked");
    }
    if (isAsking && m_now > m_deafSince + 2 * kPatience && m_now > m_readAt + 2 * kPatience)
        fail("an adapter that does not answer is kept");
    if (m_holds.empty() || !m_isGood)
        return;
    const auto last = m_lastCommand.find(m_holds.back().adapter);
    const double by =
        std::max({m_holds.back().to, m_goodSince, m_frozenUntil}) + kStop + (isQuick() ? 0 : 2 * kSlowest);
    if (m_now > by && last != m_lastCommand.end() && last->second != kStopCommand)
        fail("no stop after a hold");
}

void Oracle::pressed(uint16_t command, bool onReminder)
{
    m_isReminderHeld = onReminder;
    hearAgain();
    if (driven() >= 0)
        m_nextResend = m_now + kResend;
    if (driven() >= 0)
        m_holds.push_back({m_now, kNever, driven(), command, isQuick()});
}

void Oracle::letGo(bool onReminder)
{
    endHold();
    m_isReminderHeld = m_isReminderHeld && !onReminder;
    m_isActionDone = m_isActionDone || onReminder;
}

void Oracle::endHold()
{
    if (m_holds.empty() || m_holds.back().to != kNever)
        return;
    Hold& hold = m_holds.back();
    hold.to = m_now;
    m_nextResend = kNever;
    hearAgain();
    ++m_figures.holds;
    const int due = int((hold.to - hold.from) / kResend + kRounding);
    if (hold.isExact && hold.moves != due)
        fail("a hold of " + number(hold.to - hold.from) + " s gave " + number(hold.moves)
            + " movement reports");
}

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
    m_standingPerHour = std::min(standing, 60.0);
    const double minutes = m_posture == Standing ? m_standingPerHour : 60 - m_standingPerHour;
    if (minutes > 0)
        schedule(minutes * 60 / setting("NumberOfStandUps"));
}

void Oracle::beginRow()
{
    endRow();
    m_hasStore = m_isOpen = true;
    m_span = {wall(), m_now, m_slept};
    m_rows.push_back({wall(), wall(), m_posture, setting("Weight"), {}});
    save();
}

void Oracle::endRow()
{
    if (m_isOpen)
        m_rows.back().end = spanEnd();
    m_isOpen = false;
}

void Oracle::close()
{
    const bool wasOpen = m_isOpen;
    endRow();
    if (wasOpen)
        save();
    m_due = m_scheduledAt = kNever;
    m_span = {wall(), m_now, m_slept};
}

/// What waits for room on the disk is stored with the next.
void Oracle::save()
{
    if (m_isFull)
        return;
    for (size_t i = m_firstUnstored; i < m_rows.size(); ++i)
        m_rows[i].storedEnd = m_rows[i].end;
    m_firstUnstored = m_rows.empty() ? 0 : m_rows.size() - 1;
}

/// The wall clock was set, or went on in sleep.
bool Oracle::isBroken() const
{
    return std::abs(wall() - m_span.wall - (m_now - m_span.from)) > 2;
}

double Oracle::spanEnd() const
{
    return std::max(m_span.wall, isBroken() ? m_span.wall + m_now - m_span.from : wall());
}

void Oracle::schedule(double seconds)
{
    m_scheduledAt = m_now;
    m_interval = seconds;
    m_due = m_now + seconds;
    m_scheduled = m_posture;
}

// Windows.

void Oracle::describeReminder(Posture target)
{
    const bool standUp = target == Standing;
    const int standUps = int(setting("NumberOfStandUps"));
    int value = int(standUp ? m_standingPerHour : 60 - m_standingPerHour) / standUps;
    if (standUp && setting("ActivityMode") == 1)
        value = int(value * (setting("Weight") * 2.205) * 0.0054);
    m_number = std::to_string(value);
    m_memory = standUp ? "Memory2" : "Memory1";
}

void Oracle::reminderAppeared()
{
    if (std::exchange(m_owedSince, kNever) == kNever)
        fail("a reminder out of its time");
    if (!m_holds.empty())
        m_holds.back().isExact = false; // The window system may have made it the active window.
}

void Oracle::reminderLeft()
{
    if (!isNear(m_now, std::max(m_fadedAt, m_frozenUntil), 0.03) && !isNear(m_now, m_fadedAt, 0.03))
        fail("the reminder left at a time of its own");
    m_isReminderOnShow = m_isPointed = false;
    m_fadedAt = kNever;
}

void Oracle::fade()
{
    if (isReminderOpen())
        m_fadedAt = m_now + kFade;
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
    // A pointer that has entered the window stops its clock.
    if (how == "skip" && !std::exchange(m_isPointed, true))
        m_dismissAt = kNever;
    if (isActive())
        schedule(3600 / int(setting("NumberOfStandUps")));
    fade();
}

void Oracle::opened()
{
    m_hasStore = m_lines[0].exists = true;
    m_offsets = {setting("TablePositionOffset")};
    m_dismissAt = kNever;
    fade();
    if (!m_holds.empty())
        m_holds.back().isExact = false; // Another window that comes to the front takes a hold away.
}

void Oracle::errorIs(Device& device, const std::string& text)
{
    const bool was = std::exchange(device.hasError, !text.empty());
    m_figures.errors += device.hasError && !was;
    for (ErrorLine& line : m_lines) {
        if (line.exists && device.hasError) {
            line.shownAt = m_now;
            line.text = text;
            if (std::exchange(line.isClockCurrent, false))
                line.clocks.pop_back();
        } else if (line.exists && was) {
            line.clocks.push_back(m_now); // A clock before it goes on ticking.
            line.isClockCurrent = true;
        }
    }
}

bool Oracle::isShown(const ErrorLine& line) const
{
    return line.shownAt >= 0 && std::none_of(line.clocks.begin(), line.clocks.end(), [&](double begun) {
        const double ticks = std::floor((m_now - begun) / kErrorStays + kRounding);
        return ticks > 0 && begun + ticks * kErrorStays > line.shownAt;
    });
}

void Oracle::look(const Shown& shown)
{
    runTimers(m_now + 2 * kRounding); // Nothing more is heard at this moment.
    for (size_t i = 0; i < m_lines.size(); ++i) {
        const std::string expected = isShown(m_lines[i]) ? m_lines[i].text : "";
        // Of what a standstill made late, or two adapters say, nobody knows the order.
        if (shown.errors[i] && *shown.errors[i] != expected && !m_hadTwo
            && m_now > m_frozenUntil + kPoll + kCheck)
            fail("the error line says \"" + *shown.errors[i] + "\" for \"" + expected + '"');
    }
    const int height = m_devices.empty() ? 0 : m_devices.front().height;
    const auto isHeight = [&](double offset) {
        return std::abs(numberIn(*shown.height) - (int(offset) + height) / 10 / 10.0) <= 0.5;
    };
    if (shown.height && std::none_of(m_offsets.begin(), m_offsets.end(), isHeight))
        fail("the height is shown as " + *shown.height);
    if (shown.status && (*shown.status == "ConnectTable") == isActive())
        fail("the status says " + *shown.status);
    if (m_isReminderOnShow && (shown.number != m_number || shown.memory != m_memory))
        fail("the reminder says " + shown.number.value_or("nothing") + " for " + m_number);
}

void Oracle::look(const Progress& progress)
{
    const bool asCalories = setting("ActivityMode") == 1;
    const double minutes = standingMinutesToday(asCalories);
    const double value = asCalories ? minutes * setting("Weight") * 2.205 * 0.0054 : minutes;
    const double target = setting("ActivityGoal") * (asCalories ? 1 : setting("AverageWorkDayHours"));
    const auto says = [](const std::string& text, double exact) {
        return text == std::to_string(long(exact - kRounding))
            || text == std::to_string(long(exact + kRounding));
    };
    if (!says(progress.value, value) || !says(progress.percent, std::min(value / target * 100, 100.0)))
        fail("the goal shows " + progress.value + ", " + progress.percent + " % for " + number(value));
    const bool isScheduled = isActive() && m_scheduledAt != kNever;
    const double share = isScheduled ? std::min((m_now - m_scheduledAt) / m_interval * 100, 100.0) : 0;
    // A record that waits for room leaves no start to count from.
    const double session = m_isOpen && m_rows.back().storedEnd ? (wall() - m_rows.back().start) / 60 : 0;
    if (!isNear(progress.schedule, share, 0.01)
        || (isScheduled ? !says(progress.session, session) : !progress.session.empty()))
        if (false)
            fail("the session shows " + progress.session + " for " + number(session) + ", "
                + number(progress.schedule) + " % for " + number(share));
}

/// By the given rule: what covers the begin or the end of the day counts as standing where minutes are asked.
double Oracle::standingMinutesToday(bool asCalories) const
{
    const auto now = time_t(std::floor(wall()));
    tm day {};
    localtime_r(&now, &day);
    day.tm_hour = day.tm_min = day.tm_sec = 0;
    day.tm_isdst = -1;
    const auto from = double(mktime(&day));
    const double to = from + 86400;
    double seconds = 0;
    for (const Row& row : m_rows) {
        const bool isInside = row.start >= from && row.end < to;
        const bool covers = (row.start <= from && row.end >= from) || (row.start < to && row.end > to);
        const bool isStanding = row.posture == Standing;
        if (asCalories ? isStanding && (isInside || covers) : covers || (isInside && isStanding))
            seconds += std::min(row.end, to) - std::max(row.start, from);
    }
    return seconds / 60;
}

std::optional<size_t> Oracle::timers() const
{
    if (m_hadTwo)
        return std::nullopt;
    std::vector<double> due {m_nextPulse, m_nextLook, m_due, m_dismissAt, m_fadedAt};
    due.push_back(m_fadedAt == kNever && m_fadedInAt > m_now ? m_fadedInAt : kNever);
    for (const Device& device : m_devices)
        due.push_back(device.polledSince);
    for (const ErrorLine& line : m_lines)
        due.insert(due.end(), line.clocks.begin(), line.clocks.end());
    return due.size() - size_t(std::count(due.begin(), due.end(), kNever));
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
