#include "desk/HubTest.h"

namespace {
constexpr bool kSitting = false;
constexpr bool kStanding = true;
constexpr double kNight = 30000;
constexpr double kWeek = Date::kWeek;

/// Stories about what is recorded and what is not. Each begins with a poll at 1.2 s that finds the desk low.
/// Polls come each second, pulses every 15 s, looks at the user every 10 s, all awake; "until" is awake time
/// and the records are wall time.
struct Story : HubTest {
    void TestBody() override { }

    void away() { user->stayActive(false); }
    void back() { user->stayActive(true); }
    void raise() { adapter->setHeight(4000); }
    void pull() { hid.unplug(adapter); }
    void plug() { hid.plug(adapter); }
    void sleep(double seconds) { platform.runLoop.sleepMachine(seconds); }
    void setClock(double step) { platform.runLoop.setWallClock(platform.runLoop.now() + step); }

    /// What was told but heights and device states.
    [[nodiscard]] std::string told() const
    {
        return (diary.filter(QStringLiteral("session")) + diary.filter(QStringLiteral("reminder")))
            .join(QStringLiteral(", "))
            .toStdString();
    }
};

TEST(Attendance, RecordsAttendedTimeAndNothingElse)
{
    const struct {
        const char* what;
        std::function<void(Story&)> happens;
        double end; // The program ends here.
        std::vector<Period> records;
        const char* told;
    } kStories[] = {
        {"postures meet without a gap",
            [](Story& s) {
                s.until(20);
                s.raise();
                s.until(50);
                s.adapter->setHeight(2000);
            },
            66, {{1.2, 20.2, kSitting}, {20.2, 50.2, kStanding}, {50.2, 66, kSitting}},
            "20.2: session, 50.2: session"},
        {"an absence, seen at the next look in both directions",
            [](Story& s) {
                s.until(104);
                s.away();
                s.until(303);
                s.back();
            },
            330, {{1.2, 280, kSitting}, {310, 330, kSitting}}, "310.0: session"},
        {"dark screens open a fresh period, a wake closes it",
            [](Story& s) {
                s.until(47);
                s.workspace.screensSleep();
                s.until(63);
                s.workspace.wake();
            },
            66, {{1.2, 47, kSitting}, {47, 63, kSitting}}, "47.0: session"},
        {"dark screens open one also where none was open, but not without a desk",
            [](Story& s) {
                s.until(22);
                s.workspace.wake();
                s.until(24);
                s.workspace.screensSleep();
                s.until(27);
                s.pull();
                s.workspace.screensSleep();
            },
            41, {{1.2, 22, kSitting}, {24, 27, kSitting}}, "24.0: session"},

        // Nobody is there.
        {"dark screens after the user left: nothing after the next look, no reminder",
            [](Story& s) {
                s.until(7);
                s.away();
                s.until(183);
                s.workspace.screensSleep();
                s.hub->scheduleManager()->snoozeForPosition(2);
                s.until(2000);
            },
            2001, {{1.2, 180, kSitting}, {183, 190, kSitting}}, "183.0: session, 183.0: session"},
        {"a schedule that ends before that look",
            [](Story& s) {
                s.until(7);
                s.away();
                s.until(183);
                s.workspace.screensSleep();
                s.hub->scheduleManager()->startScheduledTimerWithInterval(4, 2);
            },
            201, {{1.2, 180, kSitting}, {183, 190, kSitting}}, "183.0: session, 183.0: session"},
        {"an adapter that comes back at night",
            [](Story& s) {
                s.until(7);
                s.away();
                s.until(250);
                s.pull();
                s.until(281);
                s.plug();
            },
            400, {{1.2, 180, kSitting}, {282.2, 290, kSitting}}, "282.2: session"},

        // The machine sleeps.
        {"with both signals",
            [](Story& s) {
                s.until(42);
                s.workspace.willSleep();
                s.until(43);
                s.sleep(kNight);
                s.workspace.wake();
            },
            66, {{1.2, 42, kSitting}, {kNight + 60, kNight + 66, kSitting}}, "60.0: session"},
        {"a locker that goes dark after the word of sleep",
            [](Story& s) {
                s.until(42);
                s.workspace.willSleep();
                s.workspace.screensSleep();
                s.until(43);
                s.sleep(kNight);
                s.workspace.wake();
            },
            66, {{1.2, 42, kSitting}, {42, 43, kSitting}, {kNight + 60, kNight + 66, kSitting}},
            "42.0: session, 60.0: session"},
        {"for four seconds without a signal, noticed by the pulse",
            [](Story& s) {
                s.until(41);
                s.sleep(4);
            },
            66, {{1.2, 45, kSitting}, {64, 70, kSitting}}, "60.0: session"},
        {"without a signal, noticed by the look at the user",
            [](Story& s) {
                s.until(48);
                s.sleep(kNight);
            },
            66, {{1.2, 50, kSitting}, {kNight + 60, kNight + 66, kSitting}}, "60.0: session"},
        {"without a signal, the schedule ends before anything notices",
            [](Story& s) {
                s.until(41);
                s.hub->scheduleManager()->startScheduledTimerWithInterval(3, 2);
                s.sleep(kNight);
            },
            49, {{1.2, 45, kSitting}}, "41.0: session"},
        {"behind a clock that lost the same time",
            [](Story& s) {
                s.until(41);
                s.sleep(kNight);
                s.setClock(-kNight);
            },
            66, {{1.2, 45, kSitting}, {60, 66, kSitting}}, "60.0: session"},
        {"and wakes by itself: nobody is there",
            [](Story& s) {
                s.until(42);
                s.away();
                s.workspace.willSleep();
                s.sleep(kNight);
                s.workspace.wake();
                s.until(100);
                s.pull();
                s.plug();
            },
            400, {{1.2, 42, kSitting}, {kNight + 101.2, kNight + 110, kSitting}}, "101.2: session"},
        {"twice, the second time by the desktop's word alone",
            [](Story& s) {
                s.until(42);
                s.workspace.willSleep();
                s.sleep(kNight);
                s.workspace.wake();
                s.until(73);
                s.workspace.wake();
            },
            96,
            {{1.2, 42, kSitting}, {kNight + 60, kNight + 73, kSitting}, {kNight + 90, kNight + 96, kSitting}},
            "60.0: session, 90.0: session"},
        {"and the adapter comes back before the word of waking",
            [](Story& s) {
                s.until(42);
                s.workspace.willSleep();
                s.sleep(kNight);
                s.pull();
                s.plug();
                s.until(44);
                s.workspace.wake();
            },
            66,
            {{1.2, 42, kSitting}, {kNight + 43.2, kNight + 44, kSitting},
                {kNight + 60, kNight + 66, kSitting}},
            "43.2: session, 60.0: session"},
        {"and the adapter comes back after it",
            [](Story& s) {
                s.until(42);
                s.workspace.willSleep();
                s.sleep(kNight);
                s.workspace.wake();
                s.until(44);
                s.pull();
                s.plug();
            },
            66,
            {{1.2, 42, kSitting}, {kNight + 45.2, kNight + 50, kSitting},
                {kNight + 60, kNight + 66, kSitting}},
            "45.2: session, 60.0: session"},

        // The wall clock is set.
        {"back by a week: the schedule goes on",
            [](Story& s) {
                s.until(41);
                s.setClock(-kWeek);
                s.until(1202);
            },
            1203, {{45 - kWeek, 1203 - kWeek, kSitting}, {1.2, 45, kSitting}}, "1201.2: reminder 1"},
        {"forward by 50 years while standing, on a machine without a clock battery",
            [](Story& s) {
                s.raise();
                s.until(22);
                s.setClock(1.5e9);
            },
            40, {{1.2, 2.2, kSitting}, {2.2, 30, kStanding}, {1.5e9 + 30, 1.5e9 + 40, kStanding}},
            "2.2: session"},
        {"by less than two seconds is no step, by more in the end it is",
            [](Story& s) {
                s.until(16);
                s.setClock(1.25);
                s.until(31);
                s.setClock(1.25);
            },
            47, {{1.2, 45, kSitting}, {47.5, 49.5, kSitting}}, ""},
        {"back by one second at once after the start: nothing runs backwards",
            [](Story& s) {
                s.until(1.5);
                s.setClock(-1);
            },
            1.6, {{1.2, 1.2, kSitting}}, ""},
        {"and the posture changes before the pulse",
            [](Story& s) {
                s.until(41);
                s.setClock(1000);
                s.raise();
            },
            44, {{1.2, 41.2, kSitting}, {1041.2, 1044, kStanding}}, "41.2: session"},
        {"and the adapter is pulled before the pulse",
            [](Story& s) {
                s.until(41);
                s.setClock(-1000);
                s.pull();
            },
            66, {{1.2, 41, kSitting}}, ""},
        {"and the screens go dark while the user is idle",
            [](Story& s) {
                s.until(7);
                s.away();
                s.until(192);
                s.workspace.screensSleep();
                s.setClock(1000);
                s.until(199);
            },
            199, {{1.2, 180, kSitting}, {192, 195, kSitting}}, "192.0: session"},
    };
    for (const auto& [what, happens, end, records, told] : kStories) {
        Story story;
        story.plugAndPoll();
        happens(story);
        story.until(end);
        story.hub->terminate();
        EXPECT_EQ(story.storedPeriods(), records) << what;
        EXPECT_EQ(story.told(), told) << what;
        EXPECT_EQ(story.hub->activity(), nullptr) << what;
        EXPECT_FALSE(story.hub->scheduleManager()->isScheduled()) << what;
    }
}
}
