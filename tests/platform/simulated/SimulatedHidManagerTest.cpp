#include "platform/simulated/SimulatedHidManager.h"

#include "fakes/TestPlatform.h"

#include <array>
#include <cerrno>
#include <functional>
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
        manager->registerLateReportCallback([this](const HidDeviceRef&, std::span<const uint8_t> report) {
            late.push_back(report[4] | report[5] << 8);
        });
        manager->adapter().onTransfer(
            [this](const HidTransfer& transfer) { wire.append(transfer.text().left(11)); });
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
    std::vector<int> late;
    QStringList wire;
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
    EXPECT_EQ(manager->copyDevices(), arrived);

    manager->plug(1);
    platform.runLoop.advance(0);
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
    platform.runLoop.sleepMachine(3600);
    EXPECT_NEAR(manager->desk().height(), 900 + 380 * 2.0 - 47.5, 1.01) << "asleep with the machine";
    platform.runLoop.advance(3600);
    EXPECT_NEAR(height(*device), 900 + 380 * 2.3, 1.01) << "0.3 s more until the command dies, then the ramp";
}

TEST_F(SimulatedHidManagerTest, refusesTransfersThatNeverReachTheWire)
{
    ASSERT_EQ(manager->open(), 0);
    const HidDeviceRef device = manager->copyDevices().at(0);
    EXPECT_EQ(height(*device), -EBADF) << "not open";
    EXPECT_EQ(device->openExclusively(), 0);
    EXPECT_EQ(device->setFeatureReport(std::span(kInit).first(1)), EINVAL);
    manager->unplug();
    EXPECT_EQ(height(*device), -ENODEV);
    EXPECT_EQ(device->setFeatureReport(kInit), ENODEV);
    EXPECT_EQ(device->openExclusively(), ENODEV);
    EXPECT_TRUE(wire.isEmpty());
}

TEST_F(SimulatedHidManagerTest, takesTheTimeItIsToldTo)
{
    const HidDeviceRef device = attach();
    manager->adapter().setLatency(0.3);
    EXPECT_EQ(device->setFeatureReport(kUp), 0);
    EXPECT_EQ(height(*device), -EINPROGRESS) << "no answer yet";
    EXPECT_FALSE(manager->desk().goal()) << "on its way";
    platform.runLoop.advance(0.3);
    EXPECT_TRUE(manager->desk().goal());
    platform.runLoop.advance(0.3);
    ASSERT_EQ(late.size(), 1u);
    EXPECT_GT(late[0], 900);
    EXPECT_EQ(height(*device), late[0]) << "the last answer";
    EXPECT_EQ(platform.runLoop.pendingTimerCount(), 2u) << "the transfer and the watch over it";
    platform.runLoop.advance(10);
    EXPECT_EQ(late.size(), 2u);
    EXPECT_EQ(platform.runLoop.pendingTimerCount(), 0u);
}

TEST_F(SimulatedHidManagerTest, sendsAStopInPlaceOfAMovementThatGrewOld)
{
    const HidDeviceRef device = attach();
    for (const auto& [askedAfter, expected] :
        {std::pair(0.24, "write 05 00,write 05 01"), {0.26, "write 05 00,write 05 00"}}) {
        wire.clear();
        manager->adapter().setLatency(0.5);
        EXPECT_EQ(device->setFeatureReport(kUp), 0);
        platform.runLoop.advance(askedAfter);
        EXPECT_EQ(device->setFeatureReport(kUp), 0);
        platform.runLoop.advance(3);
        EXPECT_EQ(wire.join(u','), QString::fromLatin1(expected));
    }
}

TEST_F(SimulatedHidManagerTest, losesAnAdapterAndFindsItAgain)
{
    const struct {
        std::function<void()> spoil;
        double lostAfter;
        const char* wire;
    } kCases[] = {
        {[&] { manager->adapter().failNext(2, EPIPE); }, 0,
            "read  04 00,read  04 00,write 05 01,write 05 01,read  04 00"},
        {[&] { manager->desk().faults().failingReads = true; }, 0,
            "read  04 00,read  04 00,write 05 01,write 05 01,read  04 00,write 05 01,read  04 00"},
        {[&] { manager->desk().faults().noAnswer = true; }, 5,
            "read  04 00,write 05 01,write 05 01,read  04 00"},
    };
    attach();
    const HidDeviceRef device = arrived[0];
    for (const auto& testCase : kCases) {
        SCOPED_TRACE(testCase.wire);
        arrived.clear();
        removed.clear();
        wire.clear();
        testCase.spoil();
        EXPECT_EQ(height(*device), testCase.lostAfter > 0 ? 900 : -EINPROGRESS);
        EXPECT_TRUE(removed.empty()) << "never inside a call";
        platform.runLoop.advance(testCase.lostAfter);
        EXPECT_EQ(removed, std::vector {device});
        EXPECT_TRUE(manager->copyDevices().empty());
        platform.runLoop.advance(1.5);
        manager->desk().faults() = {};
        platform.runLoop.advance(6);
        EXPECT_EQ(arrived, std::vector {device});
        EXPECT_EQ(device->openExclusively(), 0);
        EXPECT_EQ(wire.join(u','), QString::fromLatin1(testCase.wire));
        EXPECT_EQ(height(*device), 900);
    }
}

TEST_F(SimulatedHidManagerTest, forgetsAnAdapterThatIsUnpluggedWhileItIsLost)
{
    const HidDeviceRef device = attach();
    manager->adapter().setStalled(true);
    EXPECT_EQ(height(*device), -EINPROGRESS);
    platform.runLoop.advance(7);
    EXPECT_EQ(removed, std::vector {device});
    wire.clear();
    manager->unplug();
    EXPECT_EQ(platform.runLoop.pendingTimerCount(), 0u);
    manager->adapter().setStalled(false);
    platform.runLoop.advance(7);
    EXPECT_EQ(removed.size(), 1u) << "its leaving is told once";
    EXPECT_TRUE(wire.isEmpty());
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

TEST_F(SimulatedHidManagerTest, devicesOutliveTheManagerWhichACallbackMayEnd)
{
    const HidDeviceRef device = attach();
    manager->registerDeviceRemovalCallback([this](const HidDeviceRef&) { manager.reset(); });
    manager->unplug();
    manager->plug();
    platform.runLoop.advance(1);
    EXPECT_EQ(manager, nullptr);
    EXPECT_EQ(arrived.size(), 1u);
    EXPECT_EQ(height(*device), -ENODEV);
}
}
