#include "storm/Oracle.h"
#include "storm/OracleTerms.h"

#include <algorithm>
#include <cmath>
#include <ctime>
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
}
