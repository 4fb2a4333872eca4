#include "desk/ZelvoController.h"

#include "desk/DeskStory.h"

namespace {
class ZelvoControllerTest : public testing::Test, protected DeskStory { };
}

TEST_F(ZelvoControllerTest, logsWhatHappensInFixedWords)
{
    testing::internal::CaptureStderr();
    play("height=4000 full 40 room 1000 away 1400 back 1420 dark wake on=0 check");
    const std::string log = testing::internal::GetCapturedStderr();
    const char* const kRecord = "Creating new activity. startDate: 2024-03-15T08:00:02.200Z, "
                                "endDate: 2024-03-15T08:00:02.200Z, isStanding: 1, weight: 67.500000\n";
    for (const char* text : {"ReadPositionTimer started\n", "device status updated: isCommunicating: 1\n",
             "device position state updated. Position state: 1\n", kRecord, "Activity pulse\n",
             "Couldn't save pulse: StoreNotWritable", "Couldn't save: StoreNotWritable",
             "IdleTime: 1.000000\n", "Schedule timer ticked. For new position: 1\n", "IdleObserver - Idle\n",
             "IdleObserver - Active\n", "receiveSleepNotification\n", "receiveWakeNotification\n",
             "ReadPositionTimer stopped\n", "device status updated: isCommunicating: 0\n"})
        EXPECT_TRUE(log.find(text) != std::string::npos) << text;
}

TEST_F(ZelvoControllerTest, ignoresWhatItKnowsAndWhomItDoesNot)
{
    play("2");
    hub->updatedPositionState(kSitting, hub->device());
    hub->activityScheduledToPosition(kSitting);
    const auto stranger = std::make_shared<ZelvoHIDDevice>();
    hub->deviceRemoved(stranger);
    hub->deviceAdded(stranger);
    EXPECT_TRUE(hub->isActive());
    EXPECT_EQ(heard(), "");
    const auto held = hub->device(); // As a screen may.
    play("pull 7");
    EXPECT_EQ(heard(), "2 desk") << "its last poll says nothing of the next adapter";
    EXPECT_EQ(hub->position(), 0);
}

TEST_F(ZelvoControllerTest, tellsItsDelegatesInOrderAlsoWhileTheyChange)
{
    play("2");
    const auto listener = [&](const char* name) {
        return std::make_shared<HeightListener>([this, name](int32_t) { note(name); });
    };
    const auto first = listener("first");
    const auto newcomer = listener("newcomer");
    const auto leaving = listener("leaving");
    std::shared_ptr<HeightListener> meddler;
    meddler = std::make_shared<HeightListener>([&](int32_t) {
        hub->removeDelegate(leaving);
        hub->removeDelegate(meddler);
        hub->addDelegate(newcomer);
    });
    for (const auto& delegate : {first, meddler, leaving})
        hub->addDelegate(delegate);
    hub->updatedPosition(1, nullptr);
    EXPECT_EQ(heard(), "2 first");
    hub->updatedPosition(2, nullptr);
    EXPECT_EQ(heard(), "2 first, 2 newcomer");
    hub->removeDelegate(hub->delegates().front());
    hub->updatedPosition(3, nullptr);
    EXPECT_EQ(heard(), "2 first, 2 newcomer");
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
}

TEST_F(ZelvoControllerTest, leavesNothingBehind)
{
    play("2 height=4000 3");
    EXPECT_EQ(records(), "sit 1.2..2.2, stand 2.2..2.2") << "an end is saved at once";
    auto held = hub->device();
    hub.reset();
    EXPECT_EQ(held->delegate(), nullptr);
    platform.workspace.screensSleep();
    platform.workspace.willSleep();
    platform.workspace.wake();
    hid.unplug();
    platform.runLoop.advance(20);
    held.reset();
    EXPECT_EQ(platform.runLoop.pendingTimerCount(), 0u);
}
