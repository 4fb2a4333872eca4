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
    void listen()
    {
        manager->registerDeviceMatchingCallback(
            [this](const HidDeviceRef& device) { arrived.push_back(device); });
        manager->registerDeviceRemovalCallback(
            [this](const HidDeviceRef& device) { removed.push_back(device); });
    }

    /// The announced adapter, opened and initialised.
    HidDeviceRef attach()
    {
        listen();
        EXPECT_EQ(manager->open(), 0);
        platform.runLoop.advance(0);
        EXPECT_EQ(arrived.size(), 1u);
        EXPECT_EQ(arrived.back()->openExclusively(), 0);
        EXPECT_EQ(arrived.back()->setFeatureReport(kInit), 0);
        return arrived.back();
    }

    static int height(HidDevice& device)
    {
        std::array<uint8_t, 64> report {0x04};
        EXPECT_EQ(device.getFeatureReport(report), 0);
        return report[4] | report[5] << 8;
    }

    TestPlatform platform;
    std::unique_ptr<SimulatedHidManager> manager = std::make_unique<SimulatedHidManager>();
    std::vector<HidDeviceRef> arrived;
    std::vector<HidDeviceRef> removed;
};

TEST_F(SimulatedHidManagerTest, announcesThePluggedAdapterAfterOpenHasReturned)
{
    listen();
    manager->setDeviceMatching({{QStringLiteral("Manufacturer"), QStringLiteral("Zelvo Ardenta A/S")}});
    ASSERT_EQ(manager->open(), 0);
    EXPECT_TRUE(arrived.empty());
    platform.runLoop.advance(0);
    ASSERT_EQ(arrived.size(), 1u);
    EXPECT_EQ(arrived[0]->stringProperty(QStringLiteral("Product")), QStringLiteral("Simulated desk"));
    EXPECT_EQ(arrived[0]->stringProperty(QStringLiteral("SerialNumber")), std::nullopt);
    EXPECT_EQ(manager->copyDevices(), arrived);
}

TEST_F(SimulatedHidManagerTest, announcesNothingThatDoesNotMatchOrBeforeItIsOpened)
{
    listen();
    manager->setDeviceMatching({{QStringLiteral("Manufacturer"), QStringLiteral("Somebody else")}});
    manager->unplug();
    manager->plug();
    platform.runLoop.advance(1);
    ASSERT_EQ(manager->open(), 0);
    platform.runLoop.advance(1);
    manager->unplug();
    platform.runLoop.advance(1);
    EXPECT_TRUE(arrived.empty());
    EXPECT_TRUE(removed.empty());
    EXPECT_TRUE(manager->copyDevices().empty());
}

TEST_F(SimulatedHidManagerTest, movesWithTheRunLoopsTimeAndWithoutATimer)
{
    const HidDeviceRef device = attach();
    EXPECT_EQ(height(*device), 900);
    for (int tick = 0; tick < 10; ++tick) {
        EXPECT_EQ(device->setFeatureReport(kUp), 0);
        platform.runLoop.advance(0.2);
    }
    EXPECT_EQ(platform.runLoop.pendingTimerCount(), 0u);
    EXPECT_NEAR(height(*device), 900 + 380 * 2.0 - 47.5, 1.01);
    platform.runLoop.advance(3600);
    EXPECT_NEAR(height(*device), 900 + 380 * 2.3, 1.01) << "0.3 s more until the command dies, then the ramp";
}

TEST_F(SimulatedHidManagerTest, standsStillWhileTheMachineSleeps)
{
    const HidDeviceRef device = attach();
    EXPECT_EQ(device->setFeatureReport(kUp), 0);
    platform.runLoop.advance(0.3);
    const int before = height(*device);
    platform.runLoop.sleepMachine(3600);
    platform.runLoop.setWallClock(0);
    EXPECT_EQ(height(*device), before);
}

TEST_F(SimulatedHidManagerTest, theDeskIsHandedOutAsItStandsNow)
{
    const HidDeviceRef device = attach();
    EXPECT_EQ(device->setFeatureReport(kUp), 0);
    platform.runLoop.advance(0.4);
    // Had the time not come first, the error would have stopped the desk before it moved.
    manager->desk().setError(DeskModel::ErrorKind::OverloadUp, true);
    EXPECT_NEAR(height(*device), 900 + 47.5 + 380 * 0.15, 1.01);
}

TEST_F(SimulatedHidManagerTest, opensForOneHolderAtATime)
{
    const HidDeviceRef device = attach();
    EXPECT_EQ(device->openExclusively(), EBUSY);
}

TEST_F(SimulatedHidManagerTest, transfersNeedAnOpenAdapter)
{
    ASSERT_EQ(manager->open(), 0);
    const HidDeviceRef device = manager->copyDevices().at(0);
    std::array<uint8_t, 64> report {0x04};
    EXPECT_EQ(device->getFeatureReport(report), EBADF);
    EXPECT_EQ(device->setFeatureReport(kInit), EBADF);
    EXPECT_FALSE(manager->desk().isInitialised());
}

TEST_F(SimulatedHidManagerTest, faultsBecomeErrorNumbersWithoutAnyWait)
{
    const HidDeviceRef device = attach();
    const struct {
        const char* name;
        void (*spoil)(DeskModel&);
        HidStatus write;
        HidStatus read;
    } kCases[] = {
        {"none", [](DeskModel&) {}, 0, 0},
        {"reads", [](DeskModel& desk) { desk.faults().failingReads = true; }, 0, EPROTO},
        {"writes", [](DeskModel& desk) { desk.faults().failingWrites = true; }, EPROTO, 0},
        {"silence", [](DeskModel& desk) { desk.faults().noAnswer = true; }, ETIMEDOUT, ETIMEDOUT},
        {"cable pulled, not noticed yet", [](DeskModel& desk) { desk.setPlugged(false); }, ENODEV, ENODEV},
    };
    for (const auto& testCase : kCases) {
        SCOPED_TRACE(testCase.name);
        manager->desk().faults() = {};
        testCase.spoil(manager->desk());
        const double before = platform.runLoop.monotonicNow();
        std::array<uint8_t, 64> report {0x04};
        EXPECT_EQ(device->getFeatureReport(report), testCase.read);
        EXPECT_EQ(device->setFeatureReport(kUp), testCase.write);
        EXPECT_EQ(platform.runLoop.monotonicNow(), before);
    }
}

TEST_F(SimulatedHidManagerTest, refusedReportsAreEPIPE)
{
    const HidDeviceRef device = attach();
    std::array<uint8_t, 64> report {0x09};
    EXPECT_EQ(device->getFeatureReport(report), EPIPE);
    EXPECT_EQ(device->setFeatureReport(report), EPIPE);
    EXPECT_EQ(device->setFeatureReport(std::span(kInit).first(1)), EINVAL);
}

TEST_F(SimulatedHidManagerTest, unplugAndReplugBringANewDevice)
{
    const HidDeviceRef first = attach();
    EXPECT_EQ(first->setFeatureReport(kUp), 0);
    platform.runLoop.advance(0.4);
    manager->unplug();
    EXPECT_FALSE(manager->isPlugged());
    EXPECT_GT(manager->desk().height(), 1000) << "it moved until the cable was pulled";
    std::array<uint8_t, 64> report {0x04};
    EXPECT_EQ(first->getFeatureReport(report), ENODEV);
    EXPECT_TRUE(removed.empty()) << "told on the run loop";
    platform.runLoop.advance(0);
    EXPECT_EQ(removed, std::vector {first});

    manager->plug();
    platform.runLoop.advance(0);
    ASSERT_EQ(arrived.size(), 2u);
    EXPECT_NE(arrived[1], first);
    EXPECT_EQ(first->openExclusively(), ENODEV);
    EXPECT_EQ(arrived[1]->openExclusively(), 0);
    EXPECT_EQ(arrived[1]->getFeatureReport(report), 0);
    EXPECT_EQ(report[2], 0) << "the new adapter wants its init report";
    EXPECT_EQ(first->setFeatureReport(kInit), ENODEV);
}

TEST_F(SimulatedHidManagerTest, quickPluggingIsAnnouncedAsWhatCameOfIt)
{
    const HidDeviceRef first = attach();
    manager->unplug();
    manager->plug();
    platform.runLoop.advance(0);
    EXPECT_EQ(removed, std::vector {first});
    EXPECT_EQ(arrived.size(), 2u);

    manager->unplug();
    platform.runLoop.advance(0);
    manager->plug();
    manager->unplug();
    platform.runLoop.advance(0);
    EXPECT_EQ(arrived.size(), 2u);
    EXPECT_EQ(removed.size(), 2u);
}

TEST_F(SimulatedHidManagerTest, openingAnewAnnouncesTheAdapterToItsNewUser)
{
    attach();
    arrived.clear(); // The user before lets go of the device, which closes it.
    ASSERT_EQ(manager->open(), 0);
    platform.runLoop.advance(0);
    ASSERT_EQ(arrived.size(), 1u);
    EXPECT_EQ(arrived[0]->openExclusively(), 0);
    EXPECT_TRUE(removed.empty());
}

TEST_F(SimulatedHidManagerTest, devicesAndAnnouncementsOutliveTheManager)
{
    const HidDeviceRef device = attach();
    manager->unplug();
    manager->plug();
    manager.reset();
    platform.runLoop.advance(1);
    EXPECT_TRUE(removed.empty());
    std::array<uint8_t, 64> report {0x04};
    EXPECT_EQ(device->getFeatureReport(report), ENODEV);
}

TEST_F(SimulatedHidManagerTest, aCallbackMayEndTheManager)
{
    attach();
    manager->registerDeviceRemovalCallback([this](const HidDeviceRef&) { manager.reset(); });
    manager->unplug();
    manager->plug();
    platform.runLoop.advance(1);
    EXPECT_EQ(manager, nullptr);
    EXPECT_EQ(arrived.size(), 1u);
}
}
