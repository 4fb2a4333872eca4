#include "desk/ZelvoHIDDevice.h"

#include "desk/DeskTest.h"
#include "desk/ZelvoHIDManager.h"
#include "platform/NotificationCenter.h"

namespace {
using Bytes = FakeHidDevice::Report;
using Reports = std::vector<Bytes>;
using Device = std::shared_ptr<ZelvoHIDDevice>;

const Bytes kInit {0x03, 0x04, 0x00, 0xFB, 0x00, 0x00, 0x00, 0x00};
const Bytes kUp {0x05, 0x00, 0x80, 0x00, 0x80, 0x00, 0x80, 0x00};
const Bytes kDown {0x05, 0xFF, 0x7F, 0xFF, 0x7F, 0xFF, 0x7F, 0xFF};
const Bytes kStop {0x05, 0x01, 0x80, 0x01, 0x80, 0x01, 0x80, 0x01};

class ZelvoHIDDeviceTest : public DeskTest, public ZelvoHIDDeviceDelegate {
protected:
    /// Plugs the adapter in; this test is the device's delegate.
    void plug()
    {
        hid.plug(adapter);
        device = manager.devices().back();
        device->setDelegate(this);
    }

    /// As plug(), and the device communicates and has polled once.
    void plugAndPoll()
    {
        plug();
        platform.runLoop.advance(1.2);
        heard.clear();
        adapter->written.clear();
    }

    void updatedIsCommunicating(bool isCommunicating, const Device& onDevice) override
    {
        hear(QStringLiteral("communicating %1").arg(isCommunicating), onDevice);
    }
    void updatedPosition(int32_t position, const Device& onDevice) override
    {
        hear(QStringLiteral("position %1").arg(position), onDevice);
    }
    void updatedPositionState(int32_t positionState, const Device& onDevice) override
    {
        hear(QStringLiteral("state %1").arg(positionState), onDevice);
    }

    void hear(const QString& what, const Device& onDevice)
    {
        EXPECT_EQ(onDevice, device);
        heard.append(QStringLiteral("%1: %2").arg(secondsSinceStart(), 0, 'f', 1).arg(what));
    }

    std::shared_ptr<FakeHidDevice> adapter = makeAdapter();
    ZelvoHIDManager manager {hid};
    Device device;
    QStringList heard;
};

}

TEST_F(ZelvoHIDDeviceTest, SendsEachCommandByteForByte)
{
    plug();
    EXPECT_EQ(adapter->written, (Reports {kInit, kStop}));

    const struct {
        std::function<bool()> send;
        Bytes expected;
    } cases[] = {
        {[&] { return device->moveUpSingle(); }, kUp},
        {[&] { return device->moveDownSingle(); }, kDown},
        {[&] { return device->stop(); }, kStop},
        {[&] { return device->moveToPositionSingle(2000); }, {5, 0xD0, 0x07, 0xD0, 0x07, 0xD0, 0x07, 0xD0}},
        {[&] { return device->moveToPositionSingle(0); }, {5, 0, 0, 0, 0, 0, 0, 0}},
        {[&] { return device->moveToPositionSingle(0x51234); },
            {5, 0x34, 0x12, 0x34, 0x12, 0x34, 0x12, 0x34}},
    };
    for (const auto& testCase : cases) {
        adapter->written.clear();
        EXPECT_TRUE(testCase.send());
        EXPECT_EQ(adapter->written, (Reports {testCase.expected}));
    }
}

TEST_F(ZelvoHIDDeviceTest, ReplacesOneHeldMovementByAnother)
{
    plugAndPoll();
    device->moveToPosition(0x0102);
    platform.runLoop.advance(0.2);
    device->setMoveToposition(0x0304); // The next command takes the target as it then is.
    platform.runLoop.advance(0.2);
    device->moveDown();
    platform.runLoop.advance(0.2);
    EXPECT_EQ(adapter->written,
        (Reports {kStop, Bytes {5, 2, 1, 2, 1, 2, 1, 2}, Bytes {5, 4, 3, 4, 3, 4, 3, 4}, kStop, kDown}));

    adapter->written.clear();
    device->moveToDirection(7);
    platform.runLoop.advance(1);
    EXPECT_EQ(adapter->written, (Reports {kStop})) << "no such direction";
}

TEST_F(ZelvoHIDDeviceTest, BecomesActiveByItsFirstPollAndJudgesTheStateWhenTheHeightChanges)
{
    plug();
    EXPECT_EQ(device->positionState(), 0);
    platform.runLoop.advance(1.1);
    EXPECT_TRUE(device->isCommunicating());
    EXPECT_FALSE(device->isActive());
    adapter->setHeight(2499);
    platform.runLoop.advance(1);
    EXPECT_TRUE(device->isActive());
    adapter->setHeight(2500);
    platform.runLoop.advance(3);
    AppProperties::instance().setDevicePosition2(4304);
    platform.runLoop.advance(5);
    adapter->setHeight(2501);
    platform.runLoop.advance(1);
    EXPECT_EQ(heard.join(u' '),
        QStringLiteral("0.2: communicating 1 1.2: position 2499 1.2: state 2 2.2: position 2500 2.2: state 1 "
                       "10.2: position 2501 10.2: state 2"));
}

TEST_F(ZelvoHIDDeviceTest, PutsTheStandingPointBetweenTheFirstTwoMemories)
{
    const struct {
        int first;
        int second;
        double expected;
    } cases[] = {{700, 1101, 900}, {700, 4300, 2500}, {4300, 700, 2500}, {0, 4300, 2540}, {700, 0, 2540},
        {1, 1, 1}, {65535, 65533, 65534}, {65536, 4300, 2500}};
    for (const auto& testCase : cases) {
        platform.restart();
        store("DevicePosition1", testCase.first);
        store("DevicePosition2", testCase.second);
        EXPECT_EQ(ZelvoHIDDevice::getStandingPoint(), testCase.expected)
            << testCase.first << " " << testCase.second;
    }
}

TEST_F(ZelvoHIDDeviceTest, TakesCommunicationFromBitZeroOfTheStatusWord)
{
    const struct {
        uint16_t status;
        HidStatus readStatus;
        bool expected;
    } cases[] = {{0x0001, 0, true}, {0x4001, 0, true}, {0xFFFF, 0, true}, {0x0000, 0, false},
        {0x4000, 0, false}, {0x8000, 0, false}, {0xFFFE, 0, false}, {0x0001, EPIPE, false}};
    plug();
    for (const auto& testCase : cases) {
        adapter->status[2] = uint8_t(testCase.status & 0xFF);
        adapter->status[3] = uint8_t(testCase.status >> 8);
        adapter->readStatus = testCase.readStatus;
        device->updateCommunicating();
        EXPECT_EQ(device->isCommunicating(), testCase.expected) << testCase.status;
        const TimerRef polling = device->readPositionTimer();
        EXPECT_EQ(polling && polling->isValid(), testCase.expected) << testCase.status;
    }
    EXPECT_EQ(heard.size(), 2) << "only changes are told";
    EXPECT_EQ(ZelvoHIDDevice::statusToArray(0xE006),
        (ZelvoHIDDevice::StatusBits {0, 1, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1}));
}

TEST_F(ZelvoHIDDeviceTest, ChecksTheCommunicationAgainAfterAFailedCommand)
{
    plugAndPoll();
    adapter->writeStatus = EPIPE;
    EXPECT_FALSE(device->moveUpSingle());
    EXPECT_TRUE(device->isCommunicating()) << "the status can still be read";
    adapter->readStatus = EPIPE;
    EXPECT_FALSE(device->moveUpSingle());
    EXPECT_FALSE(device->isActive());
    const int reads = adapter->reads;
    platform.runLoop.advance(10);
    EXPECT_EQ(adapter->reads, reads) << "the polling has ended";
    EXPECT_EQ(heard, (QStringList {QStringLiteral("1.2: communicating 0")}));

    adapter->readStatus = 0;
    EXPECT_FALSE(device->moveDownSingle());
    EXPECT_TRUE(device->isActive());
}

TEST_F(ZelvoHIDDeviceTest, ReadsZeroOnceAfterItsRemoval)
{
    adapter->setHeight(5000);
    plugAndPoll();
    hid.unplug(adapter);
    const int reads = adapter->reads;
    platform.runLoop.advance(10);
    EXPECT_EQ(heard, (QStringList {QStringLiteral("2.2: position 0"), QStringLiteral("2.2: state 2")}));
    EXPECT_EQ(adapter->reads, reads);
    EXPECT_FALSE(device->isActive());

    const std::weak_ptr gone = device;
    device.reset();
    EXPECT_TRUE(gone.expired());
    EXPECT_EQ(platform.runLoop.pendingTimerCount(), 0u);
}

TEST_F(ZelvoHIDDeviceTest, PostsEachErrorReportAndItsEndOnce)
{
    QStringList posted;
    auto& center = NotificationCenter::defaultCenter();
    const auto error =
        center.addObserver(ZelvoHIDDevice::kErrorCode, [&](const PostedNotification& notification) {
            EXPECT_EQ(notification.object, device);
            EXPECT_EQ(
                device->errorRecieved(), !posted.isEmpty() && posted.last() != QStringLiteral("removed"))
                << "changes after the post";
            posted.append(u'[' + notification.userInfo.keys().join(u' ') + u']');
        });
    const auto removed =
        center.addObserver(ZelvoHIDDevice::kErrorCodeRemoved, [&](const PostedNotification& notification) {
            EXPECT_FALSE(notification.object);
            EXPECT_TRUE(device->errorRecieved()) << "changes after the post";
            posted.append(QStringLiteral("removed"));
        });
    plugAndPoll();
    const struct {
        uint8_t flags;
        uint8_t listed;
        HidStatus readStatus;
        bool isPlugged;
    } kSeconds[] = {{0, 0, 0, true}, {2, 0, 0, true}, // An empty dictionary is an error too.
        {2, 1, 0, true}, {2, 1, 0, true}, {0, 1, 0, true}, {0, 1, 0, true}, {2, 1, 0, true},
        {2, 1, ETIMEDOUT, true}, {2, 1, 0, true}, {2, 1, 0, false}}; // No answer is no error.
    adapter->status[34] = 7;
    for (const auto& second : kSeconds) {
        adapter->status[3] = second.flags;
        adapter->status[32] = second.listed;
        adapter->readStatus = second.readStatus;
        if (!second.isPlugged)
            hid.unplug(adapter);
        platform.runLoop.advance(1);
    }
    EXPECT_EQ(posted.join(u' '), QStringLiteral("[] [E07] [E07] removed [E07] removed [E07] removed"));
}
