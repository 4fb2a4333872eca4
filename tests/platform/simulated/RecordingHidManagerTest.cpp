#include "platform/simulated/RecordingHidManager.h"

#include "fakes/FakeHid.h"
#include "fakes/TestPlatform.h"

#include <array>
#include <cerrno>
#include <gtest/gtest.h>

namespace {
class RecordingHidManagerTest : public testing::Test {
protected:
    void listen()
    {
        manager->setDeviceMatching({{QStringLiteral("Manufacturer"), QStringLiteral("Zelvo Ardenta A/S")}});
        manager->registerDeviceMatchingCallback(
            [this](const HidDeviceRef& device) { arrived.push_back(device); });
        manager->registerDeviceRemovalCallback(
            [this](const HidDeviceRef& device) { removed.push_back(device); });
    }

    TestPlatform platform;
    FakeHidManager recorded;
    std::shared_ptr<FakeHidDevice> desk = std::make_shared<FakeHidDevice>();
    std::vector<HidTransfer> transfers;
    std::unique_ptr<RecordingHidManager> manager = std::make_unique<RecordingHidManager>(
        recorded, [this](const HidTransfer& transfer) { transfers.push_back(transfer); });
    std::vector<HidDeviceRef> arrived;
    std::vector<HidDeviceRef> removed;
};

TEST_F(RecordingHidManagerTest, passesMatchingAnnouncementsAndPropertiesOn)
{
    listen();
    recorded.openStatus = EIO;
    EXPECT_EQ(manager->open(), EIO);
    recorded.openStatus = 0;
    EXPECT_EQ(manager->open(), 0);
    EXPECT_EQ(recorded.matching().size(), 1);
    recorded.plug(desk);
    ASSERT_EQ(arrived.size(), 1u);
    EXPECT_EQ(manager->copyDevices(), arrived) << "one object for one device";
    EXPECT_EQ(arrived[0]->stringProperty(QStringLiteral("Product")), QStringLiteral("Desk adapter"));
    desk->openStatus = EBUSY;
    EXPECT_EQ(arrived[0]->openExclusively(), EBUSY);
    recorded.unplug(desk);
    EXPECT_EQ(removed, arrived);
    EXPECT_TRUE(transfers.empty());
}

TEST_F(RecordingHidManagerTest, reportsEachTransferWithTimeBytesAndStatus)
{
    listen();
    EXPECT_EQ(manager->open(), 0);
    recorded.plug(desk);
    platform.runLoop.advance(1.5);

    const std::vector<uint8_t> written {0x05, 0x00, 0x80, 0x00, 0x80, 0x00, 0x80, 0x00};
    EXPECT_EQ(arrived[0]->setFeatureReport(written), 0);
    EXPECT_EQ(desk->written, std::vector<FakeHidDevice::Report> {written});
    desk->setHeight(0x0384);
    std::array<uint8_t, 64> report {0x04};
    EXPECT_EQ(arrived[0]->getFeatureReport(report), 0);
    EXPECT_EQ(report[4], 0x84);
    desk->readStatus = ETIMEDOUT;
    std::array<uint8_t, 64> silent {0x04};
    EXPECT_EQ(arrived[0]->getFeatureReport(silent), ETIMEDOUT);

    ASSERT_EQ(transfers.size(), 3u);
    EXPECT_EQ(transfers[0].seconds, TestPlatform::kStart + 1.5);
    EXPECT_EQ(transfers[0].text(), QStringLiteral("write 05 00 80 00 80 00 80 00"));
    EXPECT_EQ(transfers[1].bytes.size(), 64u);
    EXPECT_EQ(transfers[1].text(), QStringLiteral("read  04 00 00 00 84 03 00 00"));
    EXPECT_EQ(transfers[2].status, ETIMEDOUT);
    EXPECT_TRUE(transfers[2].text().startsWith(QStringLiteral("read  04 ")));
    EXPECT_TRUE(transfers[2].text().endsWith(QStringLiteral(": Connection timed out")));
}

TEST_F(RecordingHidManagerTest, textShowsAnAnswerToItsLastByteThatSaysSomething)
{
    HidTransfer transfer {0, HidTransfer::Direction::Read, std::vector<uint8_t>(64), 0};
    transfer.bytes[0] = 0x04;
    transfer.bytes[9] = 0x05;
    EXPECT_EQ(transfer.text(), QStringLiteral("read  04 00 00 00 00 00 00 00 00 05"));
    transfer.bytes.resize(2);
    EXPECT_EQ(transfer.text(), QStringLiteral("read  04 00"));
}

TEST_F(RecordingHidManagerTest, holdsNoDeviceThatItsUserLetGoOf)
{
    listen();
    EXPECT_EQ(manager->open(), 0);
    recorded.plug(desk);
    EXPECT_EQ(manager->copyDevices().size(), 1u);
    recorded.unplug(desk);
    arrived.clear();
    removed.clear();
    EXPECT_EQ(desk.use_count(), 1);
}

TEST_F(RecordingHidManagerTest, devicesAndCallbacksOutliveTheManager)
{
    listen();
    EXPECT_EQ(manager->open(), 0);
    recorded.plug(desk);
    manager.reset();
    recorded.unplug(desk);
    recorded.plug(desk);
    EXPECT_EQ(arrived.size(), 1u);
    EXPECT_TRUE(removed.empty());
    std::array<uint8_t, 64> report {0x04};
    EXPECT_EQ(arrived[0]->getFeatureReport(report), 0);
    EXPECT_EQ(transfers.size(), 1u);
}
}
