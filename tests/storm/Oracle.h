#pragma once

#include "storm/Script.h"

#include <array>
#include <cstdint>
#include <limits>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace storm {
/// Knows what must be true of a history from what the user, the desk and the machine did; the program itself
/// it never asks. It is told of each event at the moment it happens, keeps a record, a schedule, a reminder
/// and error lines of its own, looks at the windows between events, and in the end reads the store's file
/// through a connection of its own.
///
/// Times are seconds on the clock that stands still in sleep.
class Oracle {
public:
    /// What the cable carried.
    struct Transfer {
        bool isRead, isOk;
        double duration; ///< until now
        const std::vector<uint8_t>& bytes;
    };
    /// What the windows show; nothing of those that were not made yet.
    struct Shown {
        std::array<std::optional<std::string>, 2> errors; ///< of main window and reminder; empty without
        std::optional<std::string> height, status; ///< of the main window
        std::optional<std::string> number, memory; ///< of the reminder while it is on show
    };
    /// What the main window has just brought up to date.
    struct Progress {
        std::string percent, value, session;
        double schedule;
    };

    Oracle(const Script& script, std::string storePath);

    /// Time goes on; what is told next happens now.
    void pass(double now);

    void started();
    void ended(bool killed);
    void plugged(int adapter, bool in);
    /// How transfers fare from here on: whether the desk is heard, whether all is well, what a transfer
    /// takes.
    void wire(bool isHeard, bool isGood, double seconds);
    /// An adapter is taken up, is given up.
    void matched(int adapter);
    void removed(int adapter);
    void transferred(int adapter, const Transfer& transfer);

    void setAway(std::optional<double> since) { m_awaySince = since; }
    void dark();
    void sleepAnnounced();
    void wakeTold();
    void slept(double seconds);
    void frozenUntil(double time);
    void clockSet(double by);
    void disk(bool full) { m_isFull = full; }
    void set(size_t key, double value);

    /// A button went down; `command` is the report value it stands for.
    void pressed(uint16_t command, bool onReminder);
    void letGo(bool onReminder);
    /// The user asks for the main window.
    void opened();
    void answered(const std::string& how);
    void reminderAppeared();
    void reminderLeft();

    void look(const Shown& shown);
    void look(const Progress& progress);
    /// After the last event: holds the record in the file against what must be there.
    void judge();
    void fail(const std::string& what);

    [[nodiscard]] const std::string& failure() const { return m_failure; }
    [[nodiscard]] double setting(const std::string& key) const;
    /// The adapter that the program drives: the one taken up last. -1 without any.
    [[nodiscard]] int driven() const { return m_devices.empty() ? -1 : m_devices.back().adapter; }
    [[nodiscard]] bool isReminderOpen() const { return m_isReminderOnShow && m_fadedAt == kNever; }
    [[nodiscard]] bool hasStore() const { return m_hasStore; }
    /// Timers that run now; nothing where two adapters may have left some behind.
    [[nodiscard]] std::optional<size_t> timers() const;

    struct Figures {
        double longestOverrun = 0; ///< of a hold, seconds
        double largestError = 0; ///< longest stretch in which the record was not the truth, seconds
        double recorded = 0, attended = 0, standing = 0; ///< seconds
        int records = 0, reminders = 0, errors = 0, holds = 0;
    };
    [[nodiscard]] const Figures& figures() const { return m_figures; }

private:
    static constexpr double kNever = std::numeric_limits<double>::infinity();
    enum Posture { None = 0, Standing = 1, Sitting = 2 };

    /// What the program keeps of an adapter. The first is the one it listens to.
    struct Device {
        int adapter;
        double checkedAt; ///< asked whether it communicates
        double polledSince = kNever;
        int height = 0;
        Posture posture = None;
        bool hasError = false;
        [[nodiscard]] bool communicates() const { return polledSince != kNever; }
    };
    struct Row {
        double start, end; ///< on the wall
        Posture posture;
        double weight;
        std::optional<double> storedEnd;
    };
    /// Since the record was begun or ended last.
    struct Span {
        double wall = 0, from = 0, slept = 0;
    };
    struct Hold {
        double from, to;
        int adapter;
        uint16_t command;
        bool isExact;
        int moves = 0;
        bool stopped = false;
    };
    struct ErrorLine {
        bool exists = false, isClockCurrent = false;
        double shownAt = -1;
        std::vector<double> clocks; ///< begun when an error went; each clears the line every 15 s
        std::string text;
    };
    struct Absence {
        double since;
        double lookedAt = kNever;
    };

    [[nodiscard]] double wall() const { return m_now + m_slept + m_wallOffset; }
    [[nodiscard]] bool isActive() const;
    [[nodiscard]] bool isAnsweredAtOnce() const; ///< by an adapter that is taken up
    [[nodiscard]] bool isQuick() const; ///< and all of them are taken up
    [[nodiscard]] bool isTakenUp(int adapter) const;
    [[nodiscard]] Posture truth() const;
    void goTo(double time);
    void runTimers(double until);
    void pulse();
    void lookAtUser();
    [[nodiscard]] double idleSeconds();
    void periodEnds();
    void dismissTicks();

    void adopt(int adapter);
    void hear(Device& device, const std::vector<uint8_t>& report);
    [[nodiscard]] bool isItsTurn(const Device& device) const;
    void hearAgain();
    void takeHeight(Device& device, int height);
    void commanded(int adapter, const Transfer& transfer);
    void errorIs(Device& device, const std::string& text);
    [[nodiscard]] bool isShown(const ErrorLine& line) const;

    void open();
    void beginRow();
    void endRow();
    void close();
    void save();
    [[nodiscard]] bool hasSlept() const { return m_slept - m_span.slept > 2; }
    [[nodiscard]] bool isBroken() const;
    [[nodiscard]] double spanEnd() const;
    void schedule(double seconds);
    void snooze();
    void fade();
    void describeReminder(Posture target);

    void endHold();
    void judgePresence();
    [[nodiscard]] double standingMinutesToday(bool asCalories) const;

    const std::string m_storePath;
    std::string m_failure;
    Figures m_figures;
    std::vector<double> m_settings;

    // Clocks.
    double m_now = 0, m_slept = 0, m_wallOffset, m_frozenUntil = 0, m_wokeAt = -1e9;

    // User and machine.
    std::optional<double> m_awaySince;
    bool m_isFull = false, m_hasStore = false;

    // The process.
    bool m_running = false, m_isIdle = false;
    double m_idleAfter = 0; ///< read when the program starts
    double m_nextPulse = kNever, m_nextLook = kNever, m_nextPoll = kNever, m_nextResend = kNever;
    double m_sleepSeen = 0;
    std::optional<Absence> m_absence; ///< since a wake

    // The cable.
    std::array<bool, 2> m_isPlugged {}, m_isInitOwed {};
    double m_cableChangedAt = -1; ///< when another adapter became the driven one
    std::vector<Device> m_devices;
    bool m_isHeard = true, m_isGood = true, m_hadTwo = false;
    double m_latency = 0, m_quickSince = 0, m_goodSince = 0, m_deafSince = kNever;
    double m_writtenAt = -1, m_readAt = 0;
    std::map<int, uint16_t> m_lastCommand;
    std::map<int, std::pair<std::vector<uint8_t>, double>>
        m_answers; ///< the last ones, and when they were asked
    std::vector<Hold> m_holds;

    // Record and schedule.
    std::vector<Row> m_rows;
    size_t m_firstUnstored = 0;
    bool m_isOpen = false;
    bool m_isGiven = false; ///< nothing is recorded until the next event, as a wake has it
    Posture m_posture = None;
    Span m_span;
    double m_due = kNever, m_interval = 0, m_scheduledAt = kNever, m_standingPerHour = 0;
    Posture m_scheduled = None;
    double m_wrong = 0;

    // Windows.
    std::array<ErrorLine, 2> m_lines;
    bool m_isReminderOnShow = false, m_isReminderHeld = false;
    bool m_isActionDone = false, m_isPointed = false;
    double m_dismissAt = kNever, m_fadedAt = kNever, m_fadedInAt = 0, m_owedSince = kNever;
    std::set<double> m_offsets; ///< since the window was opened
    std::string m_number, m_memory;
};
}
