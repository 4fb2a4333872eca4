#include "desk/ZelvoController.h"

#include "desk/HubTest.h"

namespace {
class ZelvoControllerTest : public HubTest { };
}

TEST_F(ZelvoControllerTest, EndsAPeriodWhereTheNextOneStarts)
{
    plugAndPoll();
    until(60);
    EXPECT_EQ(records(), "sit 1.2..60") << "saved every 15 s";
    ActivityPersister& persister = *hub->activityPersister();
    const Date started = Date::now().dateByAddingSeconds(-5);
    hub->setActivity(persister.createWithStartDate(started, started, true, 67.5));
    EXPECT_EQ(records(), "sit 1.2..55, stand 55..55")
        << "not now, or the time between the two would be in both or in none";
}

TEST_F(ZelvoControllerTest, LogsWhatHappensInFixedWords)
{
    testing::internal::CaptureStderr();
    adapter->setHeight(4000);
    hid.plug(adapter);
    platform.runLoop.advance(1000); // The standing period of 15 minutes ends.
    user->stayActive(false);
    platform.runLoop.advance(400);
    user->stayActive(true);
    platform.runLoop.advance(20);
    workspace.screensSleep();
    workspace.wake();
    adapter->writeStatus = adapter->readStatus = EPIPE;
    hub->moveDeviceUp();
    const QString log = QString::fromStdString(testing::internal::GetCapturedStderr());
    for (const char* text : {"ReadPositionTimer started\n", "device status updated: isCommunicating: 1\n",
             "device position state updated. Position state: 1\n", "Activity pulse\n", "IdleTime: 1.000000\n",
             "Schedule timer ticked. For new position: 1\n", "IdleObserver - Idle\n",
             "IdleObserver - Active\n", "receiveSleepNotification\n", "receiveWakeNotification\n",
             "IOHIDDeviceSetReport return value: 00000020\n", "ReadPositionTimer stopped\n",
             "device status updated: isCommunicating: 0\n"})
        EXPECT_TRUE(log.contains(QLatin1String(text))) << text;
}

TEST_F(ZelvoControllerTest, WaitsForSetUpToBeComplete)
{
    AppProperties::instance().setWeight(0);
    platform.defaults.values.remove(QStringLiteral("Weight"));
    hid.plug(adapter);
    platform.runLoop.advance(5);
    EXPECT_EQ(heard(), "0.0: device state, 0.2: device state, 1.2: height 1000, 1.2: device state");
    EXPECT_EQ(hub->position(), 2);
    EXPECT_EQ(hub->scheduleManager(), nullptr);
    hub->stopCurrentActivity();
    EXPECT_EQ(records(), "");

    AppProperties::instance().setWeight(67.5);
    hub->startNewActivity();
    ASSERT_NE(hub->scheduleManager(), nullptr);
    EXPECT_EQ(hub->scheduleManager()->delegate(), &*hub);
    EXPECT_EQ(records(), "sit 5..5");
}

TEST_F(ZelvoControllerTest, TakesNoNewsFromADeviceThatAScreenStillHolds)
{
    plugAndPoll();
    const auto held = hub->device();
    hid.unplug(adapter);
    EXPECT_FALSE(hub->isActive());
    platform.runLoop.advance(5);
    EXPECT_EQ(heard(), "1.2: no device");
    EXPECT_EQ(hub->position(), 0) << "or the next adapter's first state would seem known";
}

TEST_F(ZelvoControllerTest, StopsAHeldMovementBeforeTheMachineSleepsOrTheProgramEnds)
{
    plugAndPoll();
    for (const auto end : {&ZelvoController::receiveWillSleepNotification, &ZelvoController::terminate}) {
        size_t written = adapter->written.size();
        ((*hub).*end)();
        EXPECT_EQ(adapter->written.size(), written) << "no button is held, so nothing is sent";
        EXPECT_EQ(hub->activity(), nullptr);

        hub->device()->moveToPosition(4000);
        platform.runLoop.advance(0.2);
        written = adapter->written.size();
        ((*hub).*end)();
        platform.runLoop.advance(1);
        ASSERT_EQ(adapter->written.size(), written + 1);
        EXPECT_EQ(adapter->written.back(), (FakeHidDevice::Report {5, 1, 0x80, 1, 0x80, 1, 0x80, 1}));
    }
}

TEST_F(ZelvoControllerTest, IgnoresWhatItKnowsAndWhomItDoesNot)
{
    plugAndPoll();
    hub->updatedPositionState(2, hub->device());
    hub->activityScheduledToPosition(2); // The user sits already.
    const auto stranger = std::make_shared<ZelvoHIDDevice>();
    hub->deviceRemoved(stranger);
    hub->deviceAdded(stranger);
    hub->deviceRemoved(nullptr);
    EXPECT_NE(hub->device(), stranger);
    EXPECT_TRUE(hub->isActive());
    EXPECT_EQ(heard(), "");
}

TEST_F(ZelvoControllerTest, TellsItsDelegatesInOrderAlsoWhileTheyChange)
{
    const auto listener = [&](const char* name, std::function<void()> meddle = {}) {
        return std::make_shared<HeightListener>([this, name, meddle](int32_t) {
            note(QString::fromLatin1(name));
            if (meddle)
                meddle();
        });
    };
    const auto newcomer = listener("newcomer");
    const auto leaving = listener("leaving");
    std::shared_ptr<HeightListener> meddler;
    meddler = listener("meddler", [&] {
        hub->removeDelegate(leaving);
        hub->removeDelegate(meddler);
        hub->addDelegate(newcomer);
    });
    hub->addDelegate(meddler);
    hub->addDelegate(leaving);
    hub->addDelegate(nullptr);
    hub->updatedPosition(1, nullptr);
    EXPECT_EQ(heard(), "0.0: height 1, 0.0: meddler");
    hub->updatedPosition(2, nullptr);
    EXPECT_EQ(heard(), "0.0: height 2, 0.0: newcomer");
    hub->removeDelegate(hub->delegates().front());
    EXPECT_EQ(hub->delegates(), (std::vector<std::shared_ptr<ZelvoControllerDelegate>> {newcomer}));
}

TEST_F(ZelvoControllerTest, RunsWithoutAStore)
{
    context = nullptr;
    plugAndPoll();
    platform.runLoop.advance(60);
    EXPECT_EQ(hub->activity(), nullptr);
    EXPECT_TRUE(hub->scheduleManager()->isScheduled()) << "reminders need no record";
    EXPECT_EQ(timesAskedForContext, 5) << "at the start of the period and at each pulse";

    context = activities.context;
    platform.runLoop.advance(29);
    EXPECT_EQ(timesAskedForContext, 6) << "a store that can be opened later is used from then on";
    hub->stopCurrentActivity();
    platform.runLoop.advance(60);
    EXPECT_EQ(records(), "sit 75..90.2") << "a pulse resumes nothing that has ended";
}

TEST_F(ZelvoControllerTest, CarriesOnWhenARecordCannotBeSaved)
{
    plugAndPoll();
    platform.runLoop.advance(28.8);
    execute("PRAGMA query_only = 1");
    adapter->setHeight(4000);
    platform.runLoop.advance(10); // 30.2: the new record fails, the old one ends all the same.
    EXPECT_EQ(hub->activity(), nullptr);
    EXPECT_TRUE(hub->scheduleManager()->isScheduled());
    EXPECT_EQ(heard(), "30.2: height 4000, 30.2: session, 30.2: device state");

    execute("PRAGMA query_only = 0");
    adapter->setHeight(1000);
    platform.runLoop.advance(10);
    EXPECT_EQ(records(), "sit 1.2..30.2, stand 30.2..40.2, sit 40.2..45")
        << "what was pending is saved with the next record, as long as it lasted";

    execute("PRAGMA query_only = 1");
    adapter->setHeight(4000);
    platform.runLoop.advance(5); // 55: a period that begins and ends without room.
    hub->stopCurrentActivity();
    execute("PRAGMA query_only = 0");
    platform.runLoop.advance(15);
    EXPECT_TRUE(records().ends_with(", stand 50.2..55")) << "saved though no period is open";
}

TEST_F(ZelvoControllerTest, LeavesNothingBehind)
{
    plugAndPoll();
    auto held = hub->device();
    hub.reset();
    EXPECT_EQ(held->delegate(), nullptr);
    workspace.screensSleep();
    workspace.willSleep();
    workspace.wake();
    hid.unplug(adapter);
    platform.runLoop.advance(20);
    held.reset();
    EXPECT_EQ(platform.runLoop.pendingTimerCount(), 0u);
    EXPECT_EQ(adapter.use_count(), 1) << "no adapter stays open";
}
