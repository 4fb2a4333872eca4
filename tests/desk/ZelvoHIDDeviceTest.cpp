#include "desk/ZelvoHIDDevice.h"

#include "desk/DeskTest.h"
#include "desk/ZelvoHIDManager.h"

using ZelvoHIDDeviceTest = DeskTest;

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
    ZelvoHIDManager manager(hid);
    const auto adapter = makeAdapter();
    hid.plug(adapter);
    const Device device = manager.devices().back();
    for (const auto& [status, readStatus, expected] : kCases) {
        adapter->status[2] = uint8_t(status & 0xFF);
        adapter->status[3] = uint8_t(status >> 8);
        adapter->readStatus = readStatus;
        device->updateCommunicating();
        EXPECT_EQ(device->isCommunicating(), expected) << status;
        const TimerRef polling = device->readPositionTimer();
        EXPECT_EQ(polling && polling->isValid(), expected) << status;
    }
    EXPECT_EQ(ZelvoHIDDevice::statusToArray(0xE006),
        (ZelvoHIDDevice::StatusBits {0, 1, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1}));
}
