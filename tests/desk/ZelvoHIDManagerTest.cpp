#include "desk/ZelvoHIDManager.h"

#include "desk/DeskTest.h"
#include "desk/ZelvoHIDDevice.h"

namespace {
using Device = std::shared_ptr<ZelvoHIDDevice>;

class ZelvoHIDManagerTest : public DeskTest, public ZelvoHIDManagerDelegate {
protected:
    ZelvoHIDManagerTest() { manager->setDelegate(this); }

    void deviceAdded(const Device& device) override
    {
        added.push_back(device);
        EXPECT_FALSE(isListed(device)) << "told first";
        EXPECT_TRUE(added.size() > 1 || first->written.empty())
            << "the delegate hears of it before the first report";
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
    static QString logOf(Action&& action)
    {
        testing::internal::CaptureStderr();
        action();
        return QString::fromStdString(testing::internal::GetCapturedStderr());
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

TEST_F(ZelvoHIDManagerTest, FollowsAnAdapterInAndOut)
{
    EXPECT_EQ(hid.matching(),
        (HidManager::Matching {{QStringLiteral("Manufacturer"), QStringLiteral("Zelvo Ardenta A/S")}}));
    EXPECT_TRUE(logOf([&] { hid.plug(first); })
                    .contains(QStringLiteral("\nDevice added: %1\nModel: Desk adapter\nDevice count: 1\n")
                                  .arg(address(first))));
    ASSERT_EQ(added.size(), 1u);
    EXPECT_EQ(first->written.size(), 2u) << "init and stop";
    EXPECT_TRUE(added[0]->isConnected());
    EXPECT_EQ(manager->devices(), added);
    EXPECT_TRUE(manager->isDeviceConneced());
    EXPECT_EQ(manager->connectedDevice()->ownNode(), added[0]->ownNode());

    EXPECT_TRUE(logOf([&] {
        hid.unplug(first);
    }).contains(QStringLiteral("\nDevice removed: %1\nDevice count: 0\n").arg(address(first))));
    EXPECT_EQ(removed, added);
    EXPECT_FALSE(removed[0]->isConnected());
    EXPECT_TRUE(manager->devices().empty());
    EXPECT_EQ(manager->connectedDevice(), nullptr);
    EXPECT_EQ(logOf([&] {
        ZelvoHIDDevice::Report report {5};
        EXPECT_FALSE(ZelvoHIDManager::writeBuffer(report, *removed[0]));
        EXPECT_FALSE(ZelvoHIDManager::readBuffer(report, *removed[0]));
    }),
        QString())
        << "a device that is gone is not even tried";
}

TEST_F(ZelvoHIDManagerTest, NamesWhatFails)
{
    const auto expectLog = [](std::initializer_list<const char*> words, const std::function<void()>& action) {
        const QString log = logOf(action);
        for (const char* word : words)
            EXPECT_TRUE(log.contains(QLatin1String(word))) << word;
        EXPECT_FALSE(log.contains(QStringLiteral("Device added")));
    };
    FakeHidManager closed;
    closed.openStatus = EACCES;
    expectLog({"IOHIDManagerOpen failed.\n"}, [&] { const ZelvoHIDManager other(closed); });
    first->openStatus = EBUSY;
    expectLog({"Open failed\n"}, [&] { hid.plug(first); });
    EXPECT_TRUE(added.empty());
    hid.unplug(first);
    EXPECT_TRUE(removed.empty());

    second->writeStatus = EPIPE;
    expectLog({"IOHIDDeviceSetReport return value: 00000020\n", "Could not init device\n"},
        [&] { hid.plug(second); });
    ASSERT_EQ(manager->devices().size(), 1u);
    ZelvoHIDDevice::Report report {};
    second->readStatus = ETIMEDOUT;
    expectLog({"IOHIDDeviceGetReport return value: 0000006e\n"},
        [&] { EXPECT_FALSE(ZelvoHIDManager::readBuffer(report, *added[0])); });
    second->readStatus = EINPROGRESS;
    EXPECT_EQ(logOf([&] { EXPECT_FALSE(ZelvoHIDManager::readBuffer(report, *added[0])); }), QString());
}

TEST_F(ZelvoHIDManagerTest, TransfersEightBytesOutAndSixtyFourIn)
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

TEST_F(ZelvoHIDManagerTest, LogsALongProductStringOnOneLine)
{
    const QString product = QStringLiteral("høj 机\n%s%n\nDevice count: 99") + QString(20000, u'x');
    first->strings.insert(QStringLiteral("Product"), product);
    const QString log = logOf([&] { hid.plug(first); });
    EXPECT_EQ(added.back()->ownNode()->model, product.toStdString());
    EXPECT_LT(log.size(), 400);
    EXPECT_EQ(log.count(QStringLiteral("\nDevice count: ")), 1);
}

TEST_F(ZelvoHIDManagerTest, ListsTheFirstAdapterAndBringsInTheNextWhenItLeaves)
{
    hid.plug(first);
    hid.plug(second);
    ASSERT_EQ(added.size(), 2u);
    EXPECT_EQ(manager->devices(), added);
    EXPECT_EQ(ZelvoHIDDevice::node(), added[1]->ownNode()) << "the newest device defines the node";
    EXPECT_EQ(manager->deviceNodeByReference(first), added[0]->ownNode());
    EXPECT_EQ(manager->deviceNodeByReference(second), nullptr);
    EXPECT_FALSE(manager->killDeviceReference(second));
    hid.unplug(second);
    EXPECT_EQ(removed, (std::vector {added[1]}));
    EXPECT_EQ(ZelvoHIDDevice::node(), added[0]->ownNode()) << "the first adapter is driven again";

    hid.plug(second);
    platform.runLoop.advance(5);
    second->written.clear();
    hid.unplug(first);
    EXPECT_EQ(removed, (std::vector {added[1], added[0]}));
    EXPECT_FALSE(manager->isDeviceConneced()) << "the removal empties the list";
    platform.runLoop.advance(0.1);
    ASSERT_EQ(added.size(), 4u);
    EXPECT_EQ(removed.back(), added[2]) << "a new object in its place";
    EXPECT_EQ(manager->devices(), (std::vector {added[3]}));
    EXPECT_EQ(manager->deviceNodeByReference(second), added[3]->ownNode());
    EXPECT_EQ(second->written.size(), 2u) << "initialised anew";

    hid.plug(first);
    hid.unplug(second);
    hid.unplug(first); // Before the waiting one could be brought in.
    platform.runLoop.advance(1);
    EXPECT_EQ(added.size(), 5u);
    EXPECT_EQ(ZelvoHIDDevice::node(), nullptr);

    hid.plug(first);
    hid.plug(second);
    hid.unplug(first);
    manager.reset();
    platform.runLoop.advance(5);
    hid.unplug(second);
    hid.plug(first);
    EXPECT_EQ(added.size(), 7u) << "nothing comes of it after the manager's end";
}
