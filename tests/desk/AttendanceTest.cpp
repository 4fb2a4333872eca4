#include "desk/HubTest.h"

namespace {
/// A story about what is recorded and what is not. It begins with a poll at 1.2 s that finds the desk low.
/// Polls come each second, pulses every 15 s, looks at the user every 10 s, all awake.
struct Story : HubTest {
    void TestBody() override { }

    /// A number lets the machine be awake until so many seconds after the start, "z" lets it sleep for some
    /// seconds, "set" moves the wall clock, "due" ends the schedule after some.
    void happens(const QString& what)
    {
        const auto seconds = [&](qsizetype from) { return what.mid(from).toDouble(); };
        const std::map<QString, std::function<void()>> kDeeds {
            {QStringLiteral("away"), [&] { user->stayActive(false); }},
            {QStringLiteral("back"), [&] { user->stayActive(true); }},
            {QStringLiteral("raise"), [&] { adapter->setHeight(4000); }},
            {QStringLiteral("lower"), [&] { adapter->setHeight(2000); }},
            {QStringLiteral("pull"), [&] { hid.unplug(adapter); }},
            {QStringLiteral("plug"), [&] { hid.plug(adapter); }},
            {QStringLiteral("pull2"), [&] { hid.unplug(second); }},
            {QStringLiteral("plug2"), [&] { hid.plug(second); }},
            {QStringLiteral("mute"), [&] { letWritesFail(EPIPE); }},
            {QStringLiteral("speak"), [&] { letWritesFail(0); }}, // The status can be read again.
            {QStringLiteral("dark"), [&] { workspace.screensSleep(); }},
            {QStringLiteral("willsleep"), [&] { workspace.willSleep(); }},
            {QStringLiteral("wake"), [&] { workspace.wake(); }},
        };
        if (const auto deed = kDeeds.find(what); deed != kDeeds.end())
            deed->second();
        else if (what.startsWith(QLatin1Char('z')))
            platform.runLoop.sleepMachine(seconds(1));
        else if (what.startsWith(QStringLiteral("set")))
            platform.runLoop.setWallClock(platform.runLoop.now() + seconds(3));
        else if (what.startsWith(QStringLiteral("due")))
            hub->scheduleManager()->startScheduledTimerWithInterval(seconds(3), 2);
        else
            platform.runLoop.advance(what.toDouble() - platform.runLoop.monotonicNow());
    }

    /// After a write that failed the device asks for the status.
    void letWritesFail(HidStatus readStatus)
    {
        adapter->writeStatus = EPIPE;
        adapter->readStatus = readStatus;
        hub->moveDeviceUp();
    }

    /// What was told but heights and device states, in awake seconds.
    [[nodiscard]] std::string told() const
    {
        return (diary.filter(QStringLiteral("session")) + diary.filter(QStringLiteral("reminder")))
            .join(QStringLiteral(", "))
            .toStdString();
    }

    std::shared_ptr<FakeHidDevice> second = makeAdapter(1200);
};

TEST(Attendance, RecordsAttendedTimeAndNothingElse)
{
    const struct {
        const char* what;
        const char* story;
        const char* records;
        const char* told;
    } kStories[] = {
        {"postures meet without a gap", "20 raise 50 lower 66",
            "sit 1.2..20.2, stand 20.2..50.2, sit 50.2..66", "20.2: session, 50.2: session"},
        {"one reminder to stand up, and one to sit down", "4000 raise 4700",
            "sit 1.2..4000.2, stand 4000.2..4700", "4000.2: session, 1201.2: reminder 1, 4600.2: reminder 2"},
        {"an adapter that leaves for a while", "100 pull 200 plug 210", "sit 1.2..100, sit 201.2..210",
            "201.2: session"},
        {"an adapter that is silent for a while", "50 mute 100 speak 120", "sit 1.2..50, sit 100..120",
            "100.0: session"},
        {"a second adapter changes nothing until the first one leaves",
            "9 plug2 20 pull2 30 plug2 40 pull 50", "sit 1.2..40, sit 41.2..50", "41.2: session"},
        {"an absence, seen at the next look in both directions", "104 away 303 back 330",
            "sit 1.2..280, sit 310..330", "310.0: session"},
        {"dark screens open a fresh period, a wake closes it", "47 dark 63 wake 66",
            "sit 1.2..47, sit 47..63", "47.0: session"},
        {"dark screens open one where none was open, but not without a desk",
            "22 wake 24 dark 27 pull dark 41", "sit 1.2..22, sit 24..27", "24.0: session"},

        {"dark screens after the user left: nothing after the next look", "7 away 183 dark due30 2001",
            "sit 1.2..180, sit 183..190", "183.0: session, 183.0: session"},
        {"a schedule that ends before that look", "7 away 183 dark due4 201", "sit 1.2..180, sit 183..190",
            "183.0: session, 183.0: session"},
        {"an adapter that comes back at night", "7 away 250 pull 281 plug 400",
            "sit 1.2..180, sit 282.2..290", "282.2: session"},

        {"a sleep with both signals", "42 willsleep 43 z30000 wake 66", "sit 1.2..42, sit 30060..30066",
            "60.0: session"},
        {"a locker that goes dark after the word of sleep", "42 willsleep dark 43 z30000 wake 66",
            "sit 1.2..42, sit 42..43, sit 30060..30066", "42.0: session, 60.0: session"},
        {"four seconds asleep without a signal, noticed by the pulse", "41 z4 66", "sit 1.2..45, sit 64..70",
            "60.0: session"},
        {"a night without a signal, noticed by the look at the user", "48 z30000 66",
            "sit 1.2..50, sit 30060..30066", "60.0: session"},
        {"the schedule ends before anything notices", "41 due3 z30000 49", "sit 1.2..45", "41.0: session"},
        {"a sleep behind a clock that lost the same time", "41 z30000 set-30000 66",
            "sit 1.2..45, sit 60..66", "60.0: session"},
        {"a machine that wakes by itself", "42 away willsleep z30000 wake 100 pull plug 400",
            "sit 1.2..42, sit 30101.2..30110", "101.2: session"},
        {"two sleeps, the second by the desktop's word alone", "42 willsleep z30000 wake 73 wake 96",
            "sit 1.2..42, sit 30060..30073, sit 30090..30096", "60.0: session, 90.0: session"},
        {"an adapter that comes back before the word of waking", "42 willsleep z30000 pull plug 44 wake 66",
            "sit 1.2..42, sit 30043.2..30044, sit 30060..30066", "43.2: session, 60.0: session"},
        {"an adapter that comes back after it", "42 willsleep z30000 wake 44 pull plug 66",
            "sit 1.2..42, sit 30045.2..30050, sit 30060..30066", "45.2: session, 60.0: session"},

        {"a clock set back by a week: the schedule goes on", "41 set-604800 1203",
            "sit -604755..-603597, sit 1.2..45", "1201.2: reminder 1"},
        {"a machine without a clock battery", "raise 22 set1500000000 40",
            "sit 1.2..2.2, stand 2.2..30, stand 1500000030..1500000040", "2.2: session"},
        {"steps of less than two seconds, until they add up", "16 set1.25 31 set1.25 47",
            "sit 1.2..45, sit 47.5..49.5", ""},
        {"a small step back at the start: nothing runs backwards", "1.5 set-1 1.6", "sit 1.2..1.2", ""},
        {"a step, and the posture changes before the pulse", "41 set1000 raise 44",
            "sit 1.2..41.2, stand 1041.2..1044", "41.2: session"},
        {"a step, and the adapter is pulled before the pulse", "41 set-1000 pull 66", "sit 1.2..41", ""},
        {"a step in front of dark screens while nobody is there", "7 away 192 dark set1000 199",
            "sit 1.2..180, sit 192..195", "192.0: session"},
    };
    for (const auto& [what, happens, records, told] : kStories) {
        Story story;
        story.plugAndPoll();
        for (const QString& deed : QString::fromLatin1(happens).split(QLatin1Char(' ')))
            story.happens(deed);
        story.hub->terminate();
        EXPECT_EQ(story.records(), records) << what;
        EXPECT_EQ(story.told(), told) << what;
        EXPECT_EQ(story.hub->activity(), nullptr) << what;
        EXPECT_FALSE(story.hub->scheduleManager()->isScheduled()) << what;
    }
}
}
