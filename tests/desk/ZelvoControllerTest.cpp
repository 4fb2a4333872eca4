#include "desk/ZelvoController.h"

#include "desk/HubTest.h"

namespace {
class ZelvoControllerTest : public HubTest { };
}

TEST_F(ZelvoControllerTest, endsAPeriodWhereTheNextOneStarts)
{
    plugAndPoll();
    until(60);
    const Date started = Date::now().dateByAddingSeconds(-5);
    hub->setActivity(hub->activityPersister()->createWithStartDate(started, started, true, 67.5));
    EXPECT_EQ(records(), "sit 1.2..55, stand 55..55")
        << "not now, or the time between the two would be in both or in none";
}

TEST_F(ZelvoControllerTest, logsWhatHappensInFixedWords)
{
    testing::internal::CaptureStderr();
    adapter->setHeight(4000);
    hid.plug(adapter);
    platform.runLoop.advance(1000); // The standing period ends.
    user.leave();
    platform.runLoop.advance(400);
    user.comeBack();
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
             "ReadPositionTimer stopped\n", "device status updated: isCommunicating: 0\n"})
        EXPECT_TRUE(log.contains(QLatin1String(text))) << text;
}

TEST_F(ZelvoControllerTest, waitsForSetUpToBeComplete)
{
    platform.restart(); // Or what was read at first would count.
    platform.defaults.values.remove(QStringLiteral("Weight"));
    hid.plug(adapter);
    platform.runLoop.advance(5);
    EXPECT_EQ(hub->position(), kSitting);
    EXPECT_EQ(hub->scheduleManager(), nullptr);
    EXPECT_EQ(records(), "");
    AppProperties::instance().setWeight(67.5);
    hub->startNewActivity();
    ASSERT_NE(hub->scheduleManager(), nullptr);
    EXPECT_EQ(records(), "sit 5..5");
}

TEST_F(ZelvoControllerTest, stopsAHeldMovementBeforeTheMachineSleepsOrTheProgramEnds)
{
    plugAndPoll();
    for (const auto end : {&ZelvoController::receiveWillSleepNotification, &ZelvoController::terminate}) {
        const size_t written = adapter->written.size();
        ((*hub).*end)();
        EXPECT_EQ(adapter->written.size(), written) << "no button is held, so nothing is sent";
        EXPECT_EQ(hub->activity(), nullptr);

        hub->device()->moveToPosition(4000);
        ((*hub).*end)();
        platform.runLoop.advance(1);
        EXPECT_EQ(adapter->written.size(), written + 2)
            << "the stop before the movement, and one for its end";
    }
}

TEST_F(ZelvoControllerTest, ignoresWhatItKnowsAndWhomItDoesNot)
{
    plugAndPoll();
    hub->updatedPositionState(kSitting, hub->device());
    hub->activityScheduledToPosition(kSitting);
    const auto stranger = std::make_shared<ZelvoHIDDevice>();
    hub->deviceRemoved(stranger);
    hub->deviceAdded(stranger);
    EXPECT_NE(hub->device(), stranger);
    EXPECT_TRUE(hub->isActive());
    EXPECT_EQ(heard(), "");

    const auto held = hub->device(); // By a screen.
    hid.unplug(adapter);
    platform.runLoop.advance(5);
    EXPECT_EQ(heard(), "1.2: no device") << "its last poll says nothing of the next adapter";
    EXPECT_EQ(hub->position(), 0);
}

TEST_F(ZelvoControllerTest, tellsItsDelegatesInOrderAlsoWhileTheyChange)
{
    const auto listener = [&](const char* name) {
        return std::make_shared<HeightListener>([this, name](int32_t) { note(QString::fromLatin1(name)); });
    };
    const auto newcomer = listener("newcomer");
    const auto leaving = listener("leaving");
    std::shared_ptr<HeightListener> meddler;
    meddler = std::make_shared<HeightListener>([&](int32_t) {
        note(QStringLiteral("meddler"));
        hub->removeDelegate(leaving);
        hub->removeDelegate(meddler);
        hub->addDelegate(newcomer);
    });
    hub->addDelegate(meddler);
    hub->addDelegate(leaving);
    hub->updatedPosition(1, nullptr);
    EXPECT_EQ(heard(), "0.0: height 1, 0.0: meddler");
    hub->updatedPosition(2, nullptr);
    EXPECT_EQ(heard(), "0.0: height 2, 0.0: newcomer");
    hub->removeDelegate(hub->delegates().front());
    EXPECT_EQ(hub->delegates(), (std::vector<std::shared_ptr<ZelvoControllerDelegate>> {newcomer}));
}

TEST_F(ZelvoControllerTest, runsWithoutAStore)
{
    context = nullptr;
    plugAndPoll();
    until(61.2);
    EXPECT_TRUE(hub->scheduleManager()->isScheduled()) << "reminders need no record";
    EXPECT_EQ(timesAskedForContext, 5) << "at the start of the period and at each pulse";
    context = activities.context;
    until(90.2);
    EXPECT_EQ(timesAskedForContext, 6) << "a store that can be opened later is used from then on";
    hub->stopCurrentActivity();
    until(150);
    EXPECT_EQ(records(), "sit 75..90.2") << "a pulse resumes nothing that has ended";
}

TEST_F(ZelvoControllerTest, leavesNothingBehind)
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
