#include "desk/ZelvoHIDManager.h"

#include "desk/DeskTest.h"
#include "desk/ZelvoHIDDevice.h"

namespace {
class ZelvoHIDManagerTest : public DeskTest, public ZelvoHIDManagerDelegate {
protected:
    ZelvoHIDManagerTest() { manager->setDelegate(this); }

    void deviceAdded(const Device& device) override
    {
        added.push_back(device);
        EXPECT_FALSE(isListed(device)) << "told first";
        EXPECT_TRUE(added.size() > 1 || first->written.empty()) << "and before the first report";
    }
    void deviceRemoved(const Device& device) override
    {
        removed.push_back(device);
        EXPECT_TRUE(device->isConnected() && isListed(device)) << "told first";
    }

    [[nodiscard]] bool isListed(const Device& device) const
    {
        return std::count(manager->devices().begin(), manager->devices().end(), device) == 1;
    }
    template <typename Action>
    static void expectLog(const QStringList& parts, Action&& action)
    {
        testing::internal::CaptureStderr();
        action();
        const QString log = QString::fromStdString(testing::internal::GetCapturedStderr());
        for (const QString& part : parts)
            EXPECT_TRUE(log.contains(part)) << qPrintable(part) << qPrintable(log);
        EXPECT_EQ(log.isEmpty(), parts.isEmpty()) << qPrintable(log);
    }
    static QString address(const HidDeviceRef& reference)
    {
        return QStringLiteral("0x%1").arg(quintptr(reference.get()), 0, 16);
    }

    std::unique_ptr<ZelvoHIDManager> manager = std::make_unique<ZelvoHIDManager>(hid);
    std::shared_ptr<FakeHidDevice> first = makeAdapter();
    std::shared_ptr<FakeHidDevice> second = makeAdapter();
    std::vector<Device> added;
    std::vector<Device> removed;
};
}

TEST_F(ZelvoHIDManagerTest, followsAnAdapterInAndOut)
{
    EXPECT_EQ(hid.matching(),
        (HidManager::Matching {{QStringLiteral("Manufacturer"), QStringLiteral("Zelvo Ardenta A/S")}}));
    expectLog(
        {QStringLiteral("\nDevice added: %1\nModel: Desk adapter\nDevice count: 1\n").arg(address(first))},
        [&] { hid.plug(first); });
    ASSERT_EQ(added.size(), 1u);
    EXPECT_TRUE(added[0]->isConnected());
    EXPECT_EQ(manager->devices(), added);
    EXPECT_TRUE(manager->isDeviceConneced());
    EXPECT_EQ(manager->connectedDevice()->ownNode(), added[0]->ownNode());

    expectLog({QStringLiteral("\nDevice removed: %1\nDevice count: 0\n").arg(address(first))},
        [&] { hid.unplug(first); });
    EXPECT_EQ(removed, added);
    EXPECT_FALSE(removed[0]->isConnected());
    EXPECT_TRUE(manager->devices().empty());
    EXPECT_EQ(manager->connectedDevice(), nullptr);
    expectLog({}, [&] {
        ZelvoHIDDevice::Report report {5};
        EXPECT_FALSE(ZelvoHIDManager::writeBuffer(report, *removed[0])) << "not even tried";
        EXPECT_FALSE(ZelvoHIDManager::readBuffer(report, *removed[0]));
    });
}

TEST_F(ZelvoHIDManagerTest, namesWhatFails)
{
    FakeHidManager closed;
    closed.openStatus = EACCES;
    expectLog({"IOHIDManagerOpen failed.\n"}, [&] { const ZelvoHIDManager other(closed); });
    first->openStatus = EBUSY;
    expectLog({"Open failed\n"}, [&] { hid.plug(first); });
    hid.unplug(first);
    EXPECT_TRUE(added.empty() && removed.empty());

    second->writeStatus = EPIPE;
    expectLog({"IOHIDDeviceSetReport return value: 00000020\n", "Could not init device\n"},
        [&] { hid.plug(second); });
    ZelvoHIDDevice::Report report {};
    second->readStatus = ETIMEDOUT;
    expectLog({"IOHIDDeviceGetReport return value: 0000006e\n"},
        [&] { EXPECT_FALSE(ZelvoHIDManager::readBuffer(report, *added.at(0))); });
    second->readStatus = EINPROGRESS; // The answer is only late.
    expectLog({}, [&] { EXPECT_FALSE(ZelvoHIDManager::readBuffer(report, *added.at(0))); });
}

TEST_F(ZelvoHIDManagerTest, transfersEightBytesOutAndSixtyFourIn)
{
    hid.plug(first);
    ZelvoHIDDevice::Report report {};
    report.fill(0xAA);
    first->written.clear();
    EXPECT_TRUE(ZelvoHIDManager::writeBuffer(report, *added[0]));
    EXPECT_EQ(first->written, (std::vector<FakeHidDevice::Report> {FakeHidDevice::Report(8, 0xAA)}));
    first->status.fill(0x55);
    EXPECT_TRUE(ZelvoHIDManager::readBuffer(report, *added[0]));
    EXPECT_EQ(std::count(report.begin(), report.end(), 0x55), 63);
}

TEST_F(ZelvoHIDManagerTest, logsALongProductStringOnOneLine)
{
    const QString product = QStringLiteral("høj 机\n%s%n\nDevice count: 99") + QString(20000, u'x');
    first->strings.insert(QStringLiteral("Product"), product);
    const QString shown = QStringLiteral("høj 机 %s%n Device count: 99") + QString(53, u'x');
    expectLog({QStringLiteral("\nModel: %1\nDevice count: 1\n").arg(shown)}, [&] { hid.plug(first); });
    EXPECT_EQ(added.back()->ownNode()->model, product.toStdString());
}

TEST_F(ZelvoHIDManagerTest, listsTheFirstAdapterAndTransfersThroughTheNewest)
{
    hid.plug(first);
    hid.plug(second);
    EXPECT_EQ(manager->devices(), added);
    EXPECT_EQ(ZelvoHIDDevice::node(), added.at(1)->ownNode()) << "the newest device defines the node";
    EXPECT_EQ(manager->deviceNodeByReference(first), added[0]->ownNode());
    EXPECT_EQ(manager->deviceNodeByReference(second), nullptr);
    EXPECT_FALSE(manager->killDeviceReference(second));
    hid.unplug(second);
    EXPECT_EQ(removed, (std::vector {added[1]}));
    EXPECT_EQ(ZelvoHIDDevice::node(), added[0]->ownNode()) << "the first adapter is driven again";

    manager.reset();
    hid.unplug(first);
    hid.plug(second);
    EXPECT_EQ(added.size(), 2u) << "nothing comes of it after the manager's end";
    EXPECT_EQ(ZelvoHIDDevice::node(), nullptr);
}
