#include "desk/ZelvoHIDDevice.h"

#include "desk/DeskTest.h"
#include "desk/ZelvoHIDManager.h"
#include "platform/NotificationCenter.h"

namespace {
using Bytes = FakeHidDevice::Report;
using Reports = std::vector<Bytes>;

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

TEST_F(ZelvoHIDDeviceTest, sendsEachCommandByteForByte)
{
    plug();
    const Bytes stop {5, 1, 0x80, 1, 0x80, 1, 0x80, 1};
    EXPECT_EQ(adapter->written, (Reports {{3, 4, 0, 0xFB, 0, 0, 0, 0}, stop}));
    const struct {
        bool sent;
        Bytes expected;
    } kCases[] = {
        {device->moveUpSingle(), {5, 0, 0x80, 0, 0x80, 0, 0x80, 0}},
        {device->moveDownSingle(), {5, 0xFF, 0x7F, 0xFF, 0x7F, 0xFF, 0x7F, 0xFF}},
        {device->stop(), stop},
        {device->moveToPositionSingle(2000), {5, 0xD0, 0x07, 0xD0, 0x07, 0xD0, 0x07, 0xD0}},
        {device->moveToPositionSingle(0x51234), {5, 0x34, 0x12, 0x34, 0x12, 0x34, 0x12, 0x34}},
    };
    size_t i = 2;
    for (const auto& [sent, expected] : kCases) {
        EXPECT_TRUE(sent);
        EXPECT_EQ(adapter->written.at(i++), expected);
    }
    EXPECT_EQ(adapter->written.size(), i);
}

TEST_F(ZelvoHIDDeviceTest, putsTheStandingPointBetweenTheFirstTwoMemories)
{
    const struct {
        int first, second;
        double expected;
    } kCases[] = {{700, 1101, 900}, {4300, 700, 2500}, {0, 4300, 2540}, {700, 0, 2540}, {1, 1, 1},
        {65535, 65533, 65534}};
    for (const auto& [first, second, expected] : kCases) {
        platform.restart();
        store("DevicePosition1", first);
        store("DevicePosition2", second);
        EXPECT_EQ(ZelvoHIDDevice::getStandingPoint(), expected) << first << " " << second;
    }
}

TEST_F(ZelvoHIDDeviceTest, takesCommunicationFromBitZeroOfTheStatusWord)
{
    const struct {
        uint16_t status;
        HidStatus readStatus;
        bool expected;
    } kCases[] = {{0x0001, 0, true}, {0xFFFF, 0, true}, {0x0000, 0, false}, {0xFFFE, 0, false},
        {0x0001, EPIPE, false}, {0x4001, 0, true}};
    plug();
    for (const auto& [status, readStatus, expected] : kCases) {
        adapter->status[2] = uint8_t(status & 0xFF);
        adapter->status[3] = uint8_t(status >> 8);
        adapter->readStatus = readStatus;
        device->updateCommunicating();
        EXPECT_EQ(device->isCommunicating(), expected) << status;
        const TimerRef polling = device->readPositionTimer();
        EXPECT_EQ(polling && polling->isValid(), expected) << status;
    }
    EXPECT_EQ(heard.size(), 3) << "only changes are told";
    EXPECT_EQ(ZelvoHIDDevice::statusToArray(0xE006),
        (ZelvoHIDDevice::StatusBits {0, 1, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1}));
}

TEST_F(ZelvoHIDDeviceTest, checksTheCommunicationAgainAfterAFailedCommand)
{
    plugAndPoll();
    adapter->writeStatus = EPIPE;
    EXPECT_FALSE(device->moveUpSingle());
    EXPECT_TRUE(device->isActive()) << "the status can still be read";
    adapter->readStatus = EPIPE;
    EXPECT_FALSE(device->moveUpSingle());
    EXPECT_FALSE(device->isActive());
    const int reads = adapter->reads;
    platform.runLoop.advance(10);
    EXPECT_EQ(adapter->reads, reads) << "the polling has ended";
    adapter->readStatus = 0;
    EXPECT_FALSE(device->moveDownSingle());
    EXPECT_TRUE(device->isActive());
    EXPECT_EQ(heard.join(u','), QStringLiteral("1.2: communicating 0,11.2: communicating 1"));
}

TEST_F(ZelvoHIDDeviceTest, readsZeroOnceAfterItsRemoval)
{
    adapter->setHeight(5000);
    plugAndPoll();
    hid.unplug(adapter);
    const int reads = adapter->reads;
    platform.runLoop.advance(10);
    EXPECT_EQ(heard.join(u','), QStringLiteral("2.2: position 0,2.2: state 2"));
    EXPECT_EQ(adapter->reads, reads);
    EXPECT_FALSE(device->isActive());

    const std::weak_ptr gone = device;
    device.reset();
    EXPECT_TRUE(gone.expired());
    EXPECT_EQ(platform.runLoop.pendingTimerCount(), 0u);
}

TEST_F(ZelvoHIDDeviceTest, postsEachErrorReportAndItsEndOnce)
{
    QStringList posted;
    const auto note = [&](const QString& what) {
        EXPECT_EQ(device->errorRecieved(), !posted.isEmpty() && posted.last() != QStringLiteral("over"))
            << "changes after the post";
        posted.append(what);
    };
    auto& center = NotificationCenter::defaultCenter();
    const auto error =
        center.addObserver(ZelvoHIDDevice::kErrorCode, [&](const PostedNotification& notification) {
            EXPECT_EQ(notification.object, device);
            note(u'[' + notification.userInfo.keys().join(u' ') + u']');
        });
    const auto over = center.addObserver(
        ZelvoHIDDevice::kErrorCodeRemoved, [&](const PostedNotification&) { note(QStringLiteral("over")); });
    plugAndPoll();
    adapter->status[34] = 7;
    const struct {
        uint8_t flags, listed;
        HidStatus readStatus;
    } kSeconds[] = {{0, 0, 0}, {2, 0, 0}, // An error without a code is one too.
        {2, 1, 0}, {2, 1, 0}, {0, 1, 0}, {0, 1, 0}, {2, 1, 0}, {2, 1, ETIMEDOUT}, {2, 1, 0}};
    for (const auto& [flags, listed, readStatus] : kSeconds) {
        adapter->status[3] = flags;
        adapter->status[32] = listed;
        adapter->readStatus = readStatus; // No answer is no error.
        platform.runLoop.advance(1);
    }
    hid.unplug(adapter);
    EXPECT_EQ(posted.join(u' '), QStringLiteral("[] [E07] [E07] over [E07] over [E07] over"));
}
