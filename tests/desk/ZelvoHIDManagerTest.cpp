#include "desk/ZelvoHIDManager.h"

#include "desk/ScriptedAdapter.h"
#include "fakes/Files.h"
#include "fakes/TestPlatform.h"
#include "platform/NotificationCenter.h"

namespace {
struct ForbiddenHidManager final : HidManager {
    [[nodiscard]] HidStatus open() override { return EACCES; }
    [[nodiscard]] std::vector<HidDeviceRef> copyDevices() const override { return {}; }
};

/// Beside the simulated adapter, which nobody hears of while no time passes.
struct ZelvoHIDManagerTest : testing::Test, ZelvoHIDManagerDelegate {
    using Device = std::shared_ptr<ZelvoHIDDevice>;

    ZelvoHIDManagerTest() { manager.setDelegate(this); }

    void deviceAdded(const Device& device) override
    {
        added.push_back(device);
        EXPECT_TRUE(device->isConnected());
        EXPECT_EQ(manager.deviceByNode(device->ownNode()), nullptr) << "told first";
        EXPECT_TRUE(added.size() > 1 || first->written.empty()) << "and before the first report";
    }
    void deviceRemoved(const Device& device) override
    {
        removed.push_back(device);
        EXPECT_TRUE(device->isConnected()) << "told first";
        EXPECT_EQ(manager.isDeviceConneced(), device == added[0]) << "which is listed until then";
        EXPECT_EQ(manager.deviceByNode(device->ownNode()), device);
    }
    void plug(const HidDeviceRef& adapter) { manager.handleMatchingDevice(adapter, platform.hid, 0); }
    void unplug(const HidDeviceRef& adapter) { manager.handleRemovedDevice(adapter, platform.hid, 0); }

    TestPlatform platform;
    ZelvoHIDManager manager {platform.hid};
    std::shared_ptr<ScriptedAdapter> first = std::make_shared<ScriptedAdapter>();
    std::shared_ptr<ScriptedAdapter> second = std::make_shared<ScriptedAdapter>();
    ZelvoHIDDevice::Report report {5};
    std::vector<Device> added, removed;
};
}

TEST_F(ZelvoHIDManagerTest, followsAnAdapterInAndOut)
{
    first->product = "høj 机\n%s%n\nDevice count: 99" + QString(20000, 'x');
    const QString shown = "høj 机 %s%n Device count: 99" + QString(53, 'x');
    const QString address = QString::number(quintptr(first.get()), 16);
    EXPECT_EQ(logOf([&] { plug(first); }),
        "\nDevice added: 0x" + address + "\nModel: " + shown + "\nDevice count: 1\n");
    ASSERT_EQ(added.size(), 1u);
    EXPECT_TRUE(added[0]->isConnected());
    EXPECT_EQ(manager.devices(), added);
    EXPECT_TRUE(manager.isDeviceConneced());
    EXPECT_EQ(manager.connectedDevice()->ownNode(), added[0]->ownNode());
    EXPECT_EQ(QString::fromStdString(added[0]->ownNode()->model), first->product);

    first->written.clear();
    report.fill(0xAA);
    EXPECT_TRUE(ZelvoHIDManager::writeBuffer(report, *added[0]));
    EXPECT_EQ(first->written, (std::vector<std::vector<uint8_t>> {std::vector<uint8_t>(8, 0xAA)}));
    first->status.fill(0x55);
    EXPECT_TRUE(ZelvoHIDManager::readBuffer(report, *added[0]));
    EXPECT_EQ(std::count(report.begin(), report.end(), 0x55), 63);
    added[0]->updateCommunicating();
    added[0]->readPosition();
    EXPECT_EQ(added[0]->position(), 0x5555);

    platform.hid.plug(1);
    EXPECT_EQ(logOf([&] { unplug(first); }), "\nDevice removed: 0x" + address + "\nDevice count: 2\n");
    EXPECT_EQ(removed, added);
    EXPECT_FALSE(removed[0]->isConnected());
    EXPECT_TRUE(manager.devices().empty());
    EXPECT_EQ(manager.connectedDevice(), nullptr);
    const auto transfer = [&] {
        EXPECT_FALSE(ZelvoHIDManager::writeBuffer(report, *removed[0]));
        EXPECT_FALSE(ZelvoHIDManager::readBuffer(report, *removed[0]));
    };
    EXPECT_EQ(logOf(transfer), "") << "not even tried";
    EXPECT_TRUE(removed[0]->isCommunicating() && !removed[0]->isActive());
    removed[0]->readPosition();
    EXPECT_EQ(std::pair(removed[0]->position(), removed[0]->positionState()), std::pair(0, 2));
}

TEST_F(ZelvoHIDManagerTest, drivesTheNewestAtOnceAndBringsInTheEldestThatWaits)
{
    platform.hid.unplug(0);
    const auto third = std::make_shared<ScriptedAdapter>();
    for (const auto& adapter : {first, second, third})
        plug(adapter);
    unplug(first);
    EXPECT_EQ(ZelvoHIDDevice::node()->deviceRef, third);
    platform.runLoop.advance(0.1);
    EXPECT_EQ(added.back()->ownNode()->deviceRef, second);
}

TEST_F(ZelvoHIDManagerTest, letsAHoldGoOnWhileAnotherAdapterLeaves)
{
    platform.hid.unplug(0);
    const auto third = std::make_shared<ScriptedAdapter>();
    third->openStatus = EBUSY;
    for (const auto& adapter : {first, second, third})
        plug(adapter);
    added[0]->moveUp();
    unplug(third);
    EXPECT_TRUE(added[0]->moveTimer()->isValid()) << "another program's";
    second->written.clear();
    unplug(first);
    EXPECT_EQ(second->written.at(0)[1], 0x01) << "the desk that moves is the other one";
}

TEST_F(ZelvoHIDManagerTest, namesWhatFails)
{
    int told = 0;
    const auto access = NotificationCenter::defaultCenter().addObserver(
        ZelvoHIDManager::kAccessDidChange, [&](const PostedNotification&) { ++told; });
    first->openStatus = EBUSY;
    EXPECT_EQ(logOf([&] { plug(first); }), "Open failed\n");
    EXPECT_EQ(manager.accessStatus(), EBUSY);

    second->writeStatus = EPIPE;
    const QString log = logOf([&] { plug(second); });
    EXPECT_TRUE(log.startsWith("IOHIDDeviceSetReport return value: 00000020\n"));
    EXPECT_TRUE(log.endsWith("Could not init device\n"));
    EXPECT_EQ(manager.accessStatus(), 0) << "one is open";
    unplug(first);
    EXPECT_EQ(told, 2) << "that it failed and that it has left";
    EXPECT_TRUE(added.size() == 1 && removed.empty());
    const auto read = [&] { EXPECT_FALSE(ZelvoHIDManager::readBuffer(report, *added.at(0))); };
    second->readStatus = ETIMEDOUT;
    EXPECT_EQ(logOf(read), "IOHIDDeviceGetReport return value: 0000006e\n");
    second->readStatus = EINPROGRESS;
    EXPECT_EQ(logOf(read), "") << "the answer is only late";

    EXPECT_TRUE(manager.killDeviceReference(second) && !manager.killDeviceReference(second)) << "once";

    ForbiddenHidManager forbidden;
    const auto begin = [&] { EXPECT_FALSE(ZelvoHIDManager(forbidden).isDeviceConneced()); };
    EXPECT_EQ(logOf(begin), "IOHIDManagerOpen failed.\n") << "with a list of its own";
}

TEST_F(ZelvoHIDManagerTest, takesCommunicationFromBitZeroOfTheStatusWordAfterAWriteThatFailed)
{
    const std::tuple<uint16_t, HidStatus, bool> kCases[] = {{0x0001, 0, true}, {0xFFFF, 0, true},
        {0x0000, 0, false}, {0xFFFE, 0, false}, {0x0001, EPIPE, false}, {0x4001, 0, true}};
    plug(first);
    first->writeStatus = EPIPE;
    const QString log = logOf([&] {
        for (const auto& [status, readStatus, expected] : kCases) {
            first->status[2] = uint8_t(status & 0xFF);
            first->status[3] = uint8_t(status >> 8);
            first->readStatus = readStatus;
            EXPECT_FALSE(added[0]->moveUpSingle());
            EXPECT_EQ(added[0]->isCommunicating(), expected) << status;
            const TimerRef polling = added[0]->readPositionTimer();
            EXPECT_EQ(polling && polling->isValid(), expected) << status;
        }
    });
    EXPECT_EQ(log.count("device status updated"), 3) << "what is the same is not told again";
    EXPECT_TRUE(log.contains("ReadPositionTimer started\nReadPositionTimer stopped\n"));
    EXPECT_EQ(log.count("ReadPositionTimer stopped"), 5) << "an ended timer is stopped again";
    EXPECT_EQ(ZelvoHIDDevice::statusToArray(0xE006),
        (ZelvoHIDDevice::StatusBits {0, 1, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1}));
}

TEST(ZelvoHIDDevice, putsTheStandingPointBetweenTheFirstTwoMemories)
{
    const std::tuple<int, int, double> kCases[] = {{700, 1101, 900}, {4300, 700, 2500}, {0, 4300, 2540},
        {700, 0, 2540}, {1, 1, 1}, {65535, 65533, 65534}};
    TestPlatform platform;
    for (const auto& [first, second, expected] : kCases) {
        platform.restart();
        platform.defaults.values = {{"DevicePosition1", first}, {"DevicePosition2", second}};
        EXPECT_EQ(ZelvoHIDDevice::getStandingPoint(), expected) << first << " " << second;
    }
}
