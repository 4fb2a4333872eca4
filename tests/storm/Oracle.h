#pragma once

#include "storm/Script.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>

namespace storm {
constexpr double kNever = std::numeric_limits<double>::infinity();
enum Posture { None = 0, Standing = 1, Sitting = 2 };

/// Of all histories.
struct Figures {
    int histories = 0, reminders = 0, holds = 0;
    size_t steps = 0, records = 0;
    double longestOverrun = 0, largestError = 0; ///< seconds: of a hold; a record that is not true
};

/// What the oracle knows of a process, and forgets with it.
struct Process {
    struct Hold {
        double from, to;
        int adapter;
        uint16_t command;
        int moves = 0;
        bool stopped = false;
    };
    struct Answer {
        std::vector<uint8_t> bytes;
        double askedAt;
    };

    bool m_running = false;
    double m_nextPulse = kNever, m_nextLook = kNever, m_nextPoll = kNever, m_nextResend = kNever;

    // The user.
    bool m_isIdle = false;
    double m_idleAfter = 0; ///< read when the program starts
    double m_sleepSeen = 0, m_wokeAt = -1e9;
    double m_absentSince = kNever, m_absenceSeenAt = -1; ///< since a wake
    bool m_isAbsenceTold = false; ///< by the desktop's word
    double m_sleepReminded = 0, m_remindedAt = -1; ///< the adapter was told its init report after a sleep

    // The cable: the program listens to the first adapter, and drives the one taken up last.
    std::vector<int> m_adapters;
    double m_drivenSince = -1, m_checkedAt = kNever, m_polledSince = kNever;
    double m_stoppedAt = 0, m_writtenAt = -1, m_lateAt = -1, m_readAt = 0, m_errorAt = -1, m_errorOverAt = -1;
    int m_height = 0;
    Posture m_posture = None;
    bool m_hasError = false, m_hadTwo = false; ///< adapters at once
    std::map<int, uint16_t> m_lastCommand;
    std::map<int, Answer> m_answers; ///< the last ones
    std::vector<Hold> m_holds;
    bool m_isHeld = false; ///< by a button whose release stops the desk, over whichever adapter
    bool m_isHoldExact = false; ///< how many reports it gives is known

    // Record and schedule.
    bool m_isOpen = false;
    bool m_hasStore = false;
    bool m_isGiven = false; ///< nothing is recorded until the next event, as a wake has it
    double m_due = kNever, m_scheduledAt = 0;
    Posture m_scheduled = None;

    // Windows.
    bool m_isReminderOnShow = false, m_isReminderHeld = false, m_isActionDone = false, m_isPointed = false;
    double m_dismissAt = kNever, m_dismissBegunAt = 0, m_fadedAt = kNever;
    double m_owedSince = kNever, m_leavesAt = kNever; ///< what the windows have to show
    double m_openedAt = kNever;
    Posture m_target = None; ///< of the reminder
};

/// Knows what must be true of a history from what the user, the desk and the machine did; the program itself
/// it never asks. It is told of each event at the moment it happens, keeps a record, a schedule and a
/// reminder of its own, looks at the windows between events, and in the end reads the store's file through a
/// connection of its own.
///
/// Times are seconds on the clock that stands still in sleep.
class Oracle : Process {
public:
    /// What the cable carried.
    struct Transfer {
        int adapter;
        bool isRead, isOk;
        double duration; ///< until now
        const std::vector<uint8_t>& bytes;
    };
    /// What is on show; nothing of windows that were not made yet.
    struct Shown {
        bool isConnected; ///< says the icon
        std::optional<std::string> height, status; ///< says the main window
        bool hasError; ///< so does the main window
        std::optional<std::string> memory; ///< offers the reminder
    };

    Oracle(const Script& script, std::string storePath, Figures& figures);

    /// Time goes on; what is told next happens now.
    void pass(double now);

    // The process and the adapters.
    void started();
    void ended(bool killed);
    void plugged(int adapter, bool in);
    /// How transfers fare from here on: whether the desk is heard, whether all is well, what a transfer
    /// takes (for ever: it ends with the trouble).
    void wire(bool isHeard, bool isGood, double seconds);
    /// An adapter is taken up, is given up.
    void matched(int adapter);
    void removed(int adapter);
    void transferred(const Transfer& transfer);

    // The user and the machine.
    void setAway(std::optional<double> since) { m_awaySince = since; }
    void dark() { open(); }
    void sleepAnnounced();
    void wakeTold();
    void slept(double seconds);
    void frozenUntil(double time);
    void clockSet(double by) { m_wallOffset += by; }
    void set(const std::string& key, double value) { m_settings[key] = value; }
    /// A button went down; `command` is the report value it stands for.
    void pressed(uint16_t command, bool onReminder);
    void letGo(bool onReminder);
    /// The user asks for the main window.
    void opened();
    void answered(const std::string& how);

    // The windows.
    void reminderAppeared();
    void reminderLeft();
    void look(const Shown& shown);

    /// After the last event: holds the record in the file against what must be there.
    void judge();
    void fail(const std::string& what);

    [[nodiscard]] const std::string& failure() const { return m_failure; }
    [[nodiscard]] double setting(const std::string& key) const { return m_settings.at(key); }
    /// The adapter that the program drives; -1 without any.
    [[nodiscard]] int driven() const { return m_adapters.empty() ? -1 : m_adapters.back(); }
    [[nodiscard]] bool isReminderOpen() const { return m_isReminderOnShow && m_fadedAt == kNever; }
    /// The file of the record is open.
    [[nodiscard]] bool hasStore() const { return m_hasStore; }
    /// All adapters are taken up, and answer at once.
    [[nodiscard]] bool isQuick() const { return isAnsweredAtOnce() && m_now > m_goodSince; }

private:
    static constexpr double kPoll = 1.0, kLook = 10.0, kPulse = 15.0, kResend = 0.2; ///< rhythms
    static constexpr double kCheck = 0.2; ///< after an adapter was taken up
    static constexpr double kOverrun = 0.15, kStop = 0.3; ///< last movement report after a hold, and its stop
    static constexpr double kWaking = 1.5; ///< after a wake, in which input is the machine's own
    static constexpr double kErrorStays = 15.0, kFade = 0.4, kFrame = 0.025;
    static constexpr double kPatience = 5.05, kSlowest = 0.6; ///< a transfer without an answer, and with one
    static constexpr double kBelieved = 5.0; ///< an answer
    static constexpr double kWait = 0.01; ///< for an answer; then it is heard of when it comes
    static constexpr double kRounding = 5e-7; ///< all happens on whole microseconds
    /// The record is the truth again so soon after whatever happens: two looks at the user after a wake, and
    /// a standstill.
    static constexpr double kLongestError = 2 * kLook + 4.5;
    static constexpr uint16_t kStopCommand = 0x8001;

    struct Row {
        double start, end; ///< on the wall
        Posture posture;
        double weight;
    };
    /// Since the record was begun or ended last.
    struct Span {
        double wall = 0, from = 0, slept = 0;
    };

    static constexpr double kMoment = 1e-5; ///< what is nearer than that happens at once
    static bool isNear(double left, double right) { return std::abs(left - right) < kMoment; }
    /// `due`, or the first of the moments that follow it in the rhythm after now.
    [[nodiscard]] double next(double due, double interval) const;

    [[nodiscard]] double wall() const { return m_now + m_slept + m_wallOffset; }
    [[nodiscard]] bool isAsking() const { return m_polledSince < kNever; } ///< the desk where it is
    [[nodiscard]] bool isActive() const { return isAsking() && m_posture != None; }
    [[nodiscard]] bool isTakenUp(int adapter) const { return std::ranges::count(m_adapters, adapter) > 0; }
    [[nodiscard]] bool isAnsweredAtOnce() const { return m_isGood && m_latency == 0 && m_now > m_quickSince; }
    [[nodiscard]] Posture truth() const;
    void goTo(double time);
    /// @param isAllHeard nothing more comes over the cable at that moment
    void runTimers(double until, bool isAllHeard = false);
    void remind(); ///< the adapter of its init report
    void pulse();
    void lookAtUser();
    [[nodiscard]] double idleSeconds();
    bool noticeSleep(); ///< whether there was one
    void periodEnds();
    void dismissTicks();
    void fadeEnds();
    void dismissAfter(double seconds);

    void adopt(int adapter);
    void hear(const std::vector<uint8_t>& report);
    [[nodiscard]] bool isItsTurn() const;
    void hearAgain();
    void commanded(const Transfer& transfer);

    void open();
    void beginRow();
    void close();
    [[nodiscard]] bool hasSlept() const { return m_slept - m_span.slept > 2; }
    /// The wall clock was set, or went on in sleep.
    [[nodiscard]] bool isBroken() const { return std::abs(wall() - m_span.wall - m_now + m_span.from) > 2; }
    void schedule(double seconds);
    void snooze();
    void fade() { m_fadedAt = isReminderOpen() ? m_now + kFade : m_fadedAt; }

    void endHold();
    void judgePresence();

    const std::string m_storePath;
    std::string m_failure;
    Figures& m_figures;
    std::map<std::string, double> m_settings;

    double m_now = 0, m_slept = 0, m_wallOffset, m_frozenFrom = 0, m_frozenUntil = 0;
    std::optional<double> m_awaySince;

    std::array<bool, 2> m_isPlugged {};
    bool m_isHeard = true, m_isGood = true; ///< on the cable
    double m_latency = 0, m_quickSince = 0, m_goodSince = 0, m_deafSince = kNever;

    std::vector<Row> m_rows;
    Span m_span;
    double m_storedEnd = 0, m_wrong = 0; ///< end of the last row; how long the record is not the truth
};
}
