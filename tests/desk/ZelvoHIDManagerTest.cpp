#include "desk/ZelvoHIDManager.h"

#include "desk/ZelvoHIDDevice.h"
#include "fakes/FakeHid.h"
#include "fakes/TestPlatform.h"

#include <QRegularExpression>

#include <gtest/gtest.h>

namespace {
class ZelvoHIDManagerTest : public testing::Test, public ZelvoHIDManagerDelegate {
protected:
    using Device = std::shared_ptr<ZelvoHIDDevice>;

    ZelvoHIDManagerTest() { manager.setDelegate(this); }

    void deviceAdded(const Device& device) override
    {
        added.push_back(device);
        EXPECT_EQ(manager.deviceByNode(device->ownNode()), nullptr) << "told first";
        EXPECT_TRUE(added.size() > 1 || first->written.empty()) << "and before the first report";
    }
    void deviceRemoved(const Device& device) override
    {
        removed.push_back(device);
        EXPECT_TRUE(device->isConnected()) << "told first";
        EXPECT_EQ(manager.deviceByNode(device->ownNode()), device);
    }

    /// What an action writes to the log, without the time stamps.
    static QString logOf(const std::function<void()>& action)
    {
        testing::internal::CaptureStderr();
        action();
        return QString::fromStdString(testing::internal::GetCapturedStderr())
            .remove(QRegularExpression(R"(20.* StandUp\[\d+\] )"));
    }

    TestPlatform platform;
    FakeHidManager hid;
    ZelvoHIDManager manager {hid};
    std::shared_ptr<FakeHidDevice> first = std::make_shared<FakeHidDevice>();
    std::shared_ptr<FakeHidDevice> second = std::make_shared<FakeHidDevice>();
    ZelvoHIDDevice::Report report {5};
    std::vector<Device> added, removed;
};
}

TEST_F(ZelvoHIDManagerTest, followsAnAdapterInAndOut)
{
    EXPECT_EQ(hid.matching(), (HidManager::Matching {{"Manufacturer", "Zelvo Ardenta A/S"}}));
    first->strings.insert("Product", "høj 机\n%s%n\nDevice count: 99" + QString(20000, 'x'));
    const QString shown = "høj 机 %s%n Device count: 99" + QString(53, 'x');
    const QString address = QString::number(quintptr(first.get()), 16);
    EXPECT_EQ(logOf([&] { hid.plug(first); }),
        "\nDevice added: 0x" + address + "\nModel: " + shown + "\nDevice count: 1\n");
    ASSERT_EQ(added.size(), 1u);
    EXPECT_TRUE(added[0]->isConnected());
    EXPECT_EQ(manager.devices(), added);
    EXPECT_TRUE(manager.isDeviceConneced());
    EXPECT_EQ(manager.connectedDevice()->ownNode(), added[0]->ownNode());
    EXPECT_EQ(QString::fromStdString(added[0]->ownNode()->model), first->strings["Product"]);

    first->written.clear();
    report.fill(0xAA);
    EXPECT_TRUE(ZelvoHIDManager::writeBuffer(report, *added[0]));
    EXPECT_EQ(first->written, (std::vector<FakeHidDevice::Report> {FakeHidDevice::Report(8, 0xAA)}));
    first->status.fill(0x55);
    EXPECT_TRUE(ZelvoHIDManager::readBuffer(report, *added[0]));
    EXPECT_EQ(std::count(report.begin(), report.end(), 0x55), 63);

    EXPECT_EQ(logOf([&] { hid.unplug(first); }), "\nDevice removed: 0x" + address + "\nDevice count: 0\n");
    EXPECT_EQ(removed, added);
    EXPECT_FALSE(removed[0]->isConnected());
    EXPECT_TRUE(manager.devices().empty());
    EXPECT_EQ(manager.connectedDevice(), nullptr);
    const auto transfer = [&] {
        EXPECT_FALSE(ZelvoHIDManager::writeBuffer(report, *removed[0]));
        EXPECT_FALSE(ZelvoHIDManager::readBuffer(report, *removed[0]));
    };
    EXPECT_EQ(logOf(transfer), "") << "not even tried";
}

TEST_F(ZelvoHIDManagerTest, namesWhatFails)
{
    first->openStatus = EBUSY;
    EXPECT_EQ(logOf([&] { hid.plug(first); }), "Open failed\n");
    EXPECT_EQ(manager.accessStatus(), EBUSY);

    second->writeStatus = EPIPE;
    const QString log = logOf([&] { hid.plug(second); });
    EXPECT_TRUE(log.startsWith("IOHIDDeviceSetReport return value: 00000020\n"));
    EXPECT_TRUE(log.endsWith("Could not init device\n"));
    EXPECT_EQ(manager.accessStatus(), 0) << "one is open";
    hid.unplug(first);
    EXPECT_TRUE(added.size() == 1 && removed.empty());
    const auto read = [&] { EXPECT_FALSE(ZelvoHIDManager::readBuffer(report, *added.at(0))); };
    second->readStatus = ETIMEDOUT;
    EXPECT_EQ(logOf(read), "IOHIDDeviceGetReport return value: 0000006e\n");
    second->readStatus = EINPROGRESS;
    EXPECT_EQ(logOf(read), "") << "the answer is only late";

    FakeHidManager closed;
    closed.openStatus = EACCES;
    const auto begin = [&] { EXPECT_FALSE(ZelvoHIDManager(closed).isDeviceConneced()); };
    EXPECT_EQ(logOf(begin), "IOHIDManagerOpen failed.\n") << "with a list of its own";
}
