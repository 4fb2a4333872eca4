#include "platform/simulated/SimulatedHidManager.h"

#include "fakes/TestPlatform.h"

#include <array>
#include <cerrno>
#include <gtest/gtest.h>

namespace {
const std::vector<uint8_t> kInit {0x03, 0x04, 0x00, 0xFB, 0x00, 0x00, 0x00, 0x00};
const std::vector<uint8_t> kUp {0x05, 0x00, 0x80, 0x00, 0x80, 0x00, 0x80, 0x00};

class SimulatedHidManagerTest : public testing::Test {
protected:
    SimulatedHidManagerTest()
    {
        manager->registerDeviceMatchingCallback(
            [this](const HidDeviceRef& device) { arrived.push_back(device); });
        manager->registerDeviceRemovalCallback(
            [this](const HidDeviceRef& device) { removed.push_back(device); });
    }

    /// What a user of the manager hears in a moment, beginning anew.
    void open(const QString& maker = "Zelvo Ardenta A/S")
    {
        manager->setDeviceMatching({{"Manufacturer", maker}});
        EXPECT_EQ(manager->open(), 0);
        arrived.clear();
        platform.runLoop.advance(0);
    }

    /// The height, or the negative status.
    static int height(HidDevice& device)
    {
        std::array<uint8_t, 64> report {0x04};
        const HidStatus status = device.getFeatureReport(report);
        return status == 0 ? report[4] | report[5] << 8 : -status;
    }

    TestPlatform platform;
    std::unique_ptr<SimulatedHidManager> manager = std::make_unique<SimulatedHidManager>();
    std::vector<HidDeviceRef> arrived;
    std::vector<HidDeviceRef> removed;
};

TEST_F(SimulatedHidManagerTest, announcesWhatMatchesToWhoeverOpensItAndTakesWhatReachesTheWire)
{
    manager->unplug();
    manager->plug();
    platform.runLoop.advance(1);
    EXPECT_TRUE(arrived.empty()) << "not open yet";
    open();
    ASSERT_EQ(arrived.size(), 1u);
    const HidDeviceRef first = arrived[0];
    EXPECT_EQ(first->stringProperty("Product"), "Simulated desk");
    EXPECT_EQ(first->stringProperty("SerialNumber"), std::nullopt);
    EXPECT_EQ(height(*first), -EBADF) << "not open";
    EXPECT_EQ(first->openExclusively(), 0);
    std::array<uint8_t, 1> tooShort {4};
    EXPECT_EQ(first->setFeatureReport(tooShort), EINVAL);
    EXPECT_EQ(first->getFeatureReport(tooShort), EINVAL);
    manager->plug(1);
    open();
    EXPECT_EQ(manager->copyDevices(), arrived);
    EXPECT_EQ(arrived.size(), 2u) << "devices of their own for the new user";
    EXPECT_EQ(height(*first), -ENODEV);
    open("Somebody else");
    EXPECT_TRUE(arrived.empty() && removed.empty() && manager->copyDevices().empty());
}

TEST_F(SimulatedHidManagerTest, movesWithTheRunLoopsTimeAndWithoutATimer)
{
    open();
    HidDevice& device = *arrived[0];
    EXPECT_EQ(device.openExclusively(), 0);
    EXPECT_EQ(device.setFeatureReport(kInit), 0);
    for (int tick = 0; tick < 10; ++tick) {
        EXPECT_EQ(device.setFeatureReport(kUp), 0);
        platform.runLoop.advance(0.2);
    }
    EXPECT_EQ(platform.runLoop.pendingTimerCount(), 0u);
    platform.runLoop.sleepMachine(3600);
    EXPECT_NEAR(manager->desk().height(), 900 + 380 * 2.0 - 47.5, 1.01) << "asleep with the machine";
    platform.runLoop.advance(3600);
    EXPECT_NEAR(height(device), 900 + 380 * 2.3, 1.01) << "0.3 s more until the command dies, then the ramp";
}

TEST_F(SimulatedHidManagerTest, pluggingIsAnnouncedAsWhatCameOfItAndACallbackMayEndAll)
{
    open();
    const HidDeviceRef first = arrived[0];
    manager->unplug();
    manager->plug();
    platform.runLoop.advance(0);
    EXPECT_EQ(removed, std::vector {first});
    ASSERT_EQ(arrived.size(), 2u);

    EXPECT_EQ(arrived[1]->openExclusively(), 0);
    manager->adapter().setStalled(true);
    EXPECT_EQ(height(*arrived[1]), -EINPROGRESS);
    platform.runLoop.advance(7);
    EXPECT_EQ(removed.size(), 2u);
    manager->unplug();
    EXPECT_FALSE(manager->isPlugged());
    EXPECT_EQ(platform.runLoop.pendingTimerCount(), 0u);
    manager->adapter().setStalled(false);
    manager->plug();
    manager->unplug();
    platform.runLoop.advance(7);
    EXPECT_EQ(removed.size(), 2u) << "its leaving is told once, a brief visit not at all";

    manager->plug();
    platform.runLoop.advance(0);
    manager->registerDeviceRemovalCallback([this](const HidDeviceRef&) { manager.reset(); });
    manager->unplug();
    manager->plug();
    platform.runLoop.advance(1);
    EXPECT_EQ(manager, nullptr);
    EXPECT_EQ(arrived.size(), 3u);
}
}
