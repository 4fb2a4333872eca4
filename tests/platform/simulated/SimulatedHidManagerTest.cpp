#include "platform/simulated/SimulatedHidManager.h"

#include "fakes/TestPlatform.h"

#include <array>
#include <cerrno>
#include <gtest/gtest.h>

namespace {
const std::vector<uint8_t> kInit {0x03, 0x04, 0x00, 0xFB, 0x00, 0x00, 0x00, 0x00};
const std::vector<uint8_t> kUp {0x05, 0x00, 0x80, 0x00, 0x80, 0x00, 0x80, 0x00};
const std::vector<uint8_t> kStop {0x05, 0x01, 0x80, 0x01, 0x80, 0x01, 0x80, 0x01};

class SimulatedHidManagerTest : public testing::Test {
protected:
    SimulatedHidManagerTest()
    {
        manager->setDeviceMatching({{QStringLiteral("Manufacturer"), QStringLiteral("Zelvo Ardenta A/S")}});
        manager->setRestReport(kStop);
        manager->registerDeviceMatchingCallback(
            [this](const HidDeviceRef& device) { arrived.push_back(device); });
        manager->registerDeviceRemovalCallback(
            [this](const HidDeviceRef& device) { removed.push_back(device); });
    }

    /// The announced adapter, opened and initialised.
    HidDeviceRef attach()
    {
        EXPECT_EQ(manager->open(), 0);
        EXPECT_TRUE(arrived.empty()) << "told on the run loop";
        platform.runLoop.advance(0);
        EXPECT_EQ(arrived.size(), 1u);
        EXPECT_EQ(arrived.back()->openExclusively(), 0);
        EXPECT_EQ(arrived.back()->setFeatureReport(kInit), 0);
        return arrived.back();
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

TEST_F(SimulatedHidManagerTest, announcesWhatMatchesToWhoeverOpensIt)
{
    manager->unplug();
    manager->plug();
    platform.runLoop.advance(1);
    EXPECT_TRUE(arrived.empty());
    const HidDeviceRef device = attach();
    EXPECT_EQ(device->stringProperty(QStringLiteral("Product")), QStringLiteral("Simulated desk"));
    EXPECT_EQ(device->stringProperty(QStringLiteral("SerialNumber")), std::nullopt);

    manager->plug(1);
    platform.runLoop.advance(0);
    EXPECT_EQ(manager->copyDevices(), arrived);
    for (const QString& maker : {QStringLiteral("Zelvo Ardenta A/S"), QStringLiteral("Somebody else")}) {
        manager->setDeviceMatching({{QStringLiteral("Manufacturer"), maker}});
        ASSERT_EQ(manager->open(), 0);
        platform.runLoop.advance(1);
        ASSERT_EQ(arrived.size(), 4u) << "devices of their own for the new user";
        EXPECT_EQ(arrived[3]->openExclusively(), maker.startsWith(u'Z') ? 0 : ENODEV);
    }
    EXPECT_EQ(height(*device), -ENODEV);
    EXPECT_TRUE(removed.empty() && manager->copyDevices().empty());
}

TEST_F(SimulatedHidManagerTest, refusesTransfersThatNeverReachTheWire)
{
    manager->adapter().onTransfer([](const HidTransfer&) { ADD_FAILURE() << "it did"; });
    ASSERT_EQ(manager->open(), 0);
    const HidDeviceRef device = manager->copyDevices().at(0);
    EXPECT_EQ(height(*device), -EBADF) << "not open";
    EXPECT_EQ(device->openExclusively(), 0);
    std::array<uint8_t, 1> tooShort {4};
    EXPECT_EQ(device->setFeatureReport(tooShort), EINVAL);
    EXPECT_EQ(device->getFeatureReport(tooShort), EINVAL);
    manager->unplug();
    EXPECT_EQ(height(*device), -ENODEV);
    EXPECT_EQ(device->setFeatureReport(std::span(kInit).first(2)), ENODEV);
    EXPECT_EQ(device->openExclusively(), ENODEV);
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
    platform.runLoop.sleepMachine(3600);
    EXPECT_NEAR(manager->desk().height(), 900 + 380 * 2.0 - 47.5, 1.01) << "asleep with the machine";
    platform.runLoop.advance(3600);
    EXPECT_NEAR(height(*device), 900 + 380 * 2.3, 1.01) << "0.3 s more until the command dies, then the ramp";
}

TEST_F(SimulatedHidManagerTest, pluggingIsAnnouncedAsWhatCameOfIt)
{
    const HidDeviceRef first = attach();
    manager->unplug();
    manager->plug();
    platform.runLoop.advance(0);
    EXPECT_EQ(removed, std::vector {first});
    ASSERT_EQ(arrived.size(), 2u);
    EXPECT_NE(arrived[1], first);
    EXPECT_EQ(arrived[1]->openExclusively(), 0);
    EXPECT_FALSE(manager->desk().isInitialised()) << "the new adapter wants its init report";

    manager->unplug();
    platform.runLoop.advance(0);
    manager->plug();
    manager->unplug();
    platform.runLoop.advance(0);
    EXPECT_EQ(arrived.size(), 2u);
    EXPECT_EQ(removed.size(), 2u);
    EXPECT_FALSE(manager->isPlugged());
}

TEST_F(SimulatedHidManagerTest, aLostAdapterThatIsUnpluggedIsForgottenAndACallbackMayEndAll)
{
    const HidDeviceRef device = attach();
    manager->adapter().setStalled(true);
    EXPECT_EQ(height(*device), -EINPROGRESS);
    platform.runLoop.advance(7);
    EXPECT_EQ(removed, std::vector {device});
    manager->unplug();
    EXPECT_EQ(platform.runLoop.pendingTimerCount(), 0u);
    manager->adapter().setStalled(false);
    platform.runLoop.advance(7);
    EXPECT_EQ(removed.size(), 1u) << "its leaving is told once";

    manager->plug();
    platform.runLoop.advance(0);
    manager->registerDeviceRemovalCallback([this](const HidDeviceRef&) { manager.reset(); });
    manager->unplug();
    manager->plug();
    platform.runLoop.advance(1);
    EXPECT_EQ(manager, nullptr);
    EXPECT_EQ(arrived.size(), 2u);
    EXPECT_EQ(height(*arrived[1]), -ENODEV);
}
}
