#include "desk/ZelvoController.h"

#include "desk/DeskStory.h"
#include "fakes/Files.h"

namespace {
struct ZelvoControllerTest : testing::Test, DeskStory { };
}

TEST_F(ZelvoControllerTest, logsWhatHappensInFixedWords)
{
    const QString log = logOf([this] {
        play("height=3990 1.9 height=4000 full 40 room 1000 away 1400 back 1420 dark wake fail=1 1423 on=0 "
             "check");
    });
    const char* const kRecord = "Creating new activity. startDate: 2024-03-15T08:00:02.200Z, "
                                "endDate: 2024-03-15T08:00:02.200Z, isStanding: 1, weight: 67.500000\n";
    for (const char* text : {"ReadPositionTimer started\n", "device status updated: isCommunicating: 1\n",
             "device position state updated. Position state: 1\n", kRecord, "Activity pulse\n",
             "Couldn't save pulse: StoreNotWritable", "Couldn't save: StoreNotWritable",
             "IdleTime: 1.000000\n", "Schedule timer ticked. For new position: 1\n", "IdleObserver - Idle\n",
             "IdleObserver - Active\n", "receiveSleepNotification\n", "receiveWakeNotification\n",
             "IOHIDDeviceGetReport return value: 00000020\n", "ReadPositionTimer stopped\n",
             "device status updated: isCommunicating: 0\n"})
        EXPECT_TRUE(log.contains(text)) << text;
    EXPECT_EQ(log.count("device position state updated"), 2);
}

TEST_F(ZelvoControllerTest, tellsOfAHeightThenOfItsPeriodThenOfTheDesk)
{
    play("height=4000 2.2");
    EXPECT_EQ(heard(), "2.2 height 4000, 2.2 session, 2.2 desk 1 1");
    hub->updatedPositionState(hub->position(), nullptr);
    EXPECT_EQ(heard(), "") << "no second period in the same posture";
    play("on=0 check on=1 check pull 2.4");
    EXPECT_EQ(heard(), "2.2 desk 0 1, 2.2 session, 2.2 desk 1 1, 2.2 desk");
}

TEST_F(ZelvoControllerTest, tellsItsDelegatesInOrderAlsoWhileTheyChange)
{
    play("2");
    std::map<QString, std::shared_ptr<HeightListener>> listeners;
    for (const char* name : {"first", "meddler", "leaving", "newcomer"}) {
        listeners[name] = std::make_shared<HeightListener>();
        listeners[name]->heard = [this, name](int32_t) { note(name); };
        if (listeners.size() < 4)
            hub->addDelegate(listeners[name]);
    }
    listeners["meddler"]->heard = [&](int32_t) {
        hub->removeDelegate(listeners["leaving"]);
        hub->addDelegate(listeners["newcomer"]);
    };
    hub->updatedPosition(1, nullptr);
    EXPECT_EQ(heard(), "2 height 1, 2 first");
    hub->updatedPosition(2, nullptr);
    EXPECT_EQ(heard(), "2 height 2, 2 first, 2 newcomer");
}

TEST_F(ZelvoControllerTest, runsWithoutAStore)
{
    context = nullptr;
    play("61.2");
    EXPECT_TRUE(hub->scheduleManager()->isScheduled()) << "reminders need no record";
    context = activities.context;
    play("90.2");
    hub->stopCurrentActivity();
    play("150");
    EXPECT_EQ(records(), "sit 75..90.2") << "a store is used from the next pulse on, and resumes nothing";
    play("z=60 200");
    EXPECT_EQ(wire.filter("init").size(), 1) << "once for each sleep";
    play("full");
    hub->startNewActivity();
    EXPECT_FALSE(hub->activity()) << "until it is stored";
}

/// Of attendance and its record, what random histories of the whole program do not meet.
TEST(Attendance, isRecordedAndNothingElse)
{
    const struct {
        const char* what;
        const char* happens;
        QString records, told; ///< sessions and reminders, in awake seconds
    } kStories[] = {
        {"an adapter that is silent for a while", "50 on=0 check 100 on=1 check 120",
            "sit 1.2..50, sit 100..120", "100 session"},
        {"an adapter that forgets in a sleep, whose wake is told or not, that it was initialised",
            "44.9 powercut z=900 46 height=4000 65 powercut z=900 wake 66 height=900 67",
            "sit 1.2..45, stand 946.2..950, stand 960..965, sit 1866.2..1867",
            "46.2 session, 60 session, 66.2 session"},
        {"the same before a look at the user", "35.5 powercut z=900 46 height=4000 47",
            "sit 1.2..40, stand 946.2..947", "46.2 session"},
        {"the same of one who stands", "10 height=4000 32.5 powercut z=900 46 height=4000 47",
            "sit 1.2..10.2, stand 10.2..33.2, sit 933.2..940, stand 945.2..947",
            "10.2 session, 33.2 session, 45.2 session"},
        {"a desk that stands at the adapter's zero from the start", "pull low 5 plug 20",
            "sit 1.2..1.2, sit 6.2..20", "6.2 session"},
        {"what is due, and a clock that is set, while the user is known to be away",
            "10 away 183 dark due=4 221 dark 222 set=1000 231", "sit 1.2..180, sit 183..190, sit 221..225",
            "183 session, 183 session, 221 session"},
        {"a sleep behind a clock that lost the same time", "41 z=30000 set=-30000 66",
            "sit 1.2..45, sit 60..66", "60 session"},
        {"steps of less than two seconds, until they add up", "16 set=1.25 31 set=1.25 47",
            "sit 1.2..45, sit 47.5..49.5", ""},
        {"a small step back at the start: nothing runs backwards", "1.5 set=-1 1.6", "sit 1.2..1.2", ""},
        {"a period that begins and ends without room goes out all the same",
            "50 full height=4000 51 due=2 55 pull room 61", "sit 1.2..50.2, stand 50.2..55",
            "50.2 session, 51 session"},
    };
    for (const auto& [what, happens, records, told] : kStories) {
        SCOPED_TRACE(what);
        DeskStory story;
        story.play(QString(happens) + " quit");
        EXPECT_EQ(story.records(), records);
        EXPECT_EQ(story.heard("session|reminder"), told);
        EXPECT_EQ(story.hub->activity(), nullptr);
        EXPECT_FALSE(story.hub->scheduleManager()->isScheduled());
    }
}
