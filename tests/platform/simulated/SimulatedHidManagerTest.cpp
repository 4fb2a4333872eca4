#include "platform/simulated/SimulatedHidManager.h"

#include "fakes/TestPlatform.h"

#include <array>
#include <cerrno>
#include <gtest/gtest.h>

/// What the wire does to the desk and the program is played in desk/WireTest.
TEST(SimulatedHidManagerTest, announcesWhatMatchesToWhoeverOpensItAndEndsInACallback)
{
    TestPlatform platform;
    auto manager = std::make_unique<SimulatedHidManager>();
    std::vector<HidDeviceRef> arrived;
    int removed = 0;
    manager->registerDeviceMatchingCallback([&](auto& device) { arrived.push_back(device); });
    manager->registerDeviceRemovalCallback([&](const HidDeviceRef&) { ++removed; });
    manager->unplug();
    manager->plug();
    platform.runLoop.advance(1);
    EXPECT_TRUE(arrived.empty()) << "not open yet";
    const auto open = [&](const char* maker) {
        manager->setDeviceMatching({{"Manufacturer", maker}});
        EXPECT_EQ(manager->open(), 0);
        platform.runLoop.advance(0);
    };
    open("Zelvo Ardenta A/S");
    const HidDeviceRef first = arrived.at(0);
    EXPECT_EQ(first->stringProperty("Product"), "Simulated desk");
    EXPECT_FALSE(first->stringProperty("SerialNumber"));
    std::array<uint8_t, 2> report {4};
    EXPECT_EQ(first->getFeatureReport(report), EBADF) << "not open";
    EXPECT_TRUE(first->openExclusively() == 0 && first->getFeatureReport(report) == 0);
    const auto tooShort = std::span(report).first(1);
    EXPECT_TRUE(first->getFeatureReport(tooShort) == EINVAL && first->setFeatureReport(tooShort) == EINVAL);
    open("Somebody else");
    EXPECT_TRUE(manager->copyDevices().empty() && arrived.size() == 1);
    EXPECT_EQ(first->getFeatureReport(report), ENODEV) << "another user has come";
    EXPECT_EQ(removed, 0);

    manager->plug(1);
    platform.runLoop.advance(0);
    open("Zelvo Ardenta A/S");
    manager->plug();
    manager->plug(2);
    manager->unplug(2);
    platform.runLoop.advance(0);
    EXPECT_EQ(arrived.size(), 3u) << "a brief visit is not worth a word";
    EXPECT_EQ(manager->copyDevices(), std::vector(arrived.begin() + 1, arrived.end()));
    EXPECT_TRUE(manager->isPlugged(1) && !manager->isPlugged(2));
    manager->registerDeviceRemovalCallback([&](const HidDeviceRef&) { manager.reset(); });
    manager->unplug();
    manager->plug();
    platform.runLoop.advance(1);
    EXPECT_TRUE(!manager && arrived.size() == 3);
    EXPECT_EQ(arrived[2]->openExclusively(), ENODEV);
}
