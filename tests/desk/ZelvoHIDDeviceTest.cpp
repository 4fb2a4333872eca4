#include "desk/ZelvoHIDDevice.h"

#include "desk/ZelvoHIDManager.h"
#include "fakes/FakeHid.h"
#include "fakes/TestPlatform.h"

#include <gtest/gtest.h>

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

TEST(ZelvoHIDDevice, takesCommunicationFromBitZeroOfTheStatusWordAfterAWriteThatFailed)
{
    const std::tuple<uint16_t, HidStatus, bool> kCases[] = {{0x0001, 0, true}, {0xFFFF, 0, true},
        {0x0000, 0, false}, {0xFFFE, 0, false}, {0x0001, EPIPE, false}, {0x4001, 0, true}};
    const TestPlatform platform;
    FakeHidManager hid;
    const ZelvoHIDManager manager(hid);
    const auto adapter = std::make_shared<FakeHidDevice>();
    hid.plug(adapter);
    const auto device = manager.devices().back();
    adapter->writeStatus = EPIPE;
    for (const auto& [status, readStatus, expected] : kCases) {
        adapter->status[2] = uint8_t(status & 0xFF);
        adapter->status[3] = uint8_t(status >> 8);
        adapter->readStatus = readStatus;
        EXPECT_FALSE(device->moveUpSingle());
        EXPECT_EQ(device->isCommunicating(), expected) << status;
        const TimerRef polling = device->readPositionTimer();
        EXPECT_EQ(polling && polling->isValid(), expected) << status;
    }
    EXPECT_EQ(ZelvoHIDDevice::statusToArray(0xE006),
        (ZelvoHIDDevice::StatusBits {0, 1, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1}));
}
