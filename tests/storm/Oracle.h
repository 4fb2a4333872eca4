#pragma once

#include "storm/Script.h"

#include <array>
#include <cstdint>
#include <functional>
#include <limits>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace storm {
/// Knows what must be true of a history from what the user, the desk and the machine did; the program itself
/// it never asks. It is told of each event at the moment it happens, on a clock that counts sleep too, looks
/// at the world between events, and in the end reads the store's file through a connection of its own.
class Oracle {
public:
    /// What the oracle looks at between two events.
    struct World {
        std::array<int, 2> heights; ///< of the two desks, by their own measure
        std::optional<bool> errorLine; ///< whether the main window shows one; nothing without the window
    };

    Oracle(const Script& script, std::string storePath);

    void started(double now);
    void ended(double now, bool killed);
    void plugged(double now, int adapter);
    void unplugged(double now, int adapter);
    void away(double now);
    void back(double now);
    void dark(double now);
    void sleepAnnounced(double now);
    void wakeTold(double now);
    void slept(double from, double until);
    void clockSet(double now, double by);
    void settingChanged(double now, size_t setting, double value);
    void deskError(double now, bool present);
    /// How transfers fare from here on; `seconds` is what a slow one takes.
    void wire(double now, const std::string& how, double seconds);
    void disk(double now, bool full);
    void frozen(double from, double until);

    /// A button went down; `command` is the report value it stands for.
    void pressed(double now, uint16_t command, bool onReminder);
    void letGo(double now, bool onReminder);
    /// A movement report reached an adapter.
    void written(double now, int adapter, uint16_t command);

    /// The user asks for the main window.
    void opened(double now);
    void reminderShown(double now, const std::string& number, const std::string& memory);
    void reminderAnswered(double now, const std::string& how);
    void reminderHidden(double now);

    void look(double now, const World& world);
    /// After the last event: holds the record in the file against everything.
    void judge();

    [[nodiscard]] const std::string& failure() const { return m_failure; }
    [[nodiscard]] double setting(const std::string& key) const;
    /// The adapter that the program drives: the one plugged in last. -1 without any.
    [[nodiscard]] int driven() const { return m_attached.empty() ? -1 : m_attached.back(); }
    [[nodiscard]] bool isReminderOpen() const { return m_reminder.has_value() && !m_reminder->answered; }

    struct Figures {
        double longestOverrun = 0; ///< of a hold, seconds
        double largestError = 0; ///< longest stretch in which the record was not the truth, seconds
        double recorded = 0, attended = 0, standing = 0; ///< seconds
        int records = 0, expected = 0, shown = 0; ///< reminders
    };
    [[nodiscard]] const Figures& figures() const { return m_figures; }

private:
    /// What a record may say of a moment: a set of these.
    enum Posture : unsigned { None = 1, Sitting = 2, Standing = 4 };
    struct Run {
        double from, to;
        unsigned allowed;
        unsigned truth;
    };
    struct Hold {
        double from, to = std::numeric_limits<double>::infinity();
        int adapter;
        uint16_t command;
        bool mustMove;
        int moves = 0;
        bool stopped = false;
    };
    struct Row {
        double from, to; ///< on the clock that counts sleep
        unsigned posture;
        double weight;
    };
    struct Reminder {
        double shownAt, leavesAt;
        bool actionDone = false, answered = false;
    };
    struct Restart { ///< of the schedule
        double at, seconds;
        unsigned posture;
        bool isRow;
    };
    struct Stretch {
        double from, to;
    };

    struct Clock {
        double since, offset; ///< what to add for the wall clock
        int rowsBefore; ///< in the store when it was set
    };

    void fail(double now, const std::string& what);
    void add(Run run);
    void certainFrom(double time);
    void opener(double now, double lag);
    void adapterChanged(double now, bool isAdopted);
    void woke(double now);
    void stoodStill(double from, double until);
    void endHold(double now);
    void judgePosture(double now, int height);
    void lookAtError(double now, const World& world);
    void lookAtReminder(double now);
    void restart(double now, double seconds);
    [[nodiscard]] unsigned truth(double now) const;
    [[nodiscard]] unsigned allowed(double now) const;
    [[nodiscard]] double latency(double now) const;
    [[nodiscard]] double late(double now) const;
    [[nodiscard]] bool isIdleFor(double now, double seconds) const;
    [[nodiscard]] double settingAt(double time, const std::string& key) const;
    [[nodiscard]] double interval(double time, unsigned posture) const;
    [[nodiscard]] bool isDisturbed(double from, double to) const;

    [[nodiscard]] static bool isInOne(const std::vector<Stretch>& stretches, double from, double to);
    [[nodiscard]] bool wasSet(double time) const;
    void readStore(
        const std::function<void(double start, double end, bool isStanding, double weight)>& visit) const;
    void readRows();
    [[nodiscard]] std::optional<double> onOwnClock(double wall, int row) const;
    void judgeRows();
    void judgeRuns();
    void judgeReminders();

    const std::string m_storePath;
    std::string m_failure;
    Figures m_figures;
    std::vector<std::pair<double, std::vector<double>>> m_settings; ///< since when
    std::vector<Clock> m_clocks;
    std::vector<Run> m_runs, m_lost;
    double m_lookedAt = 0;
    unsigned m_allowedBefore = None;
    std::vector<Row> m_rows;

    bool m_running = false;
    double m_idleAfter = 0; ///< read when the program starts
    std::vector<int> m_attached;
    std::optional<double> m_awaySince;
    double m_absentSince = 1e18; ///< without input since a wake
    double m_wokeAt = -1e9, m_wentOnAt = -1e9, m_fellAsleepAt = -1e9;
    bool m_maybeAbsent = false;
    double m_sleptWhileAway = 0;
    double m_certainFrom = 0;
    double m_openedAt = -1e9; ///< something may have opened a period for an absent user
    bool m_suspended =
        false; ///< a signal closed the period; the next event of the desk or the user opens one
    bool m_wireIsBad = false;
    double m_deafSince = 1e18; ///< no status report comes through
    double m_newLatency = 0, m_formerLatency = 0, m_latencySince = -1e9, m_wellSince = -1e9;
    double m_fullSince = 1e18;
    Stretch m_wasFull {};
    bool m_storeIsOpen = false; ///< It is opened for the first period.
    unsigned m_suspendedPosture = None;
    int m_height = -1;
    unsigned m_posture = None, m_formerPosture = None;
    double m_postureSince = 0;

    std::vector<Hold> m_holds;
    std::map<int, uint16_t> m_lastCommand;
    double m_errorSince = 1e18, m_errorUntil = -1e9, m_windowSince = 1e18, m_owedUntil = -1e9;
    double m_hiddenSince = 0;
    bool m_hadTwo = false; ///< adapters at once, since the start
    std::optional<Reminder> m_reminder;
    bool m_reminderIsHeld = false;
    std::vector<double> m_shown;
    std::vector<Restart> m_restarts;
    std::vector<Stretch> m_disturbances;
    std::vector<Stretch> m_splits; ///< when a period may end and one of the same posture begin
};
}
