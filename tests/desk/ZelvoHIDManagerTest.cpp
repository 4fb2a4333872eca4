#include "desk/ZelvoHIDManager.h"

#include "desk/DeskTest.h"
#include "desk/ZelvoHIDDevice.h"

namespace {
using Device = std::shared_ptr<ZelvoHIDDevice>;

class ZelvoHIDManagerTest : public DeskTest, public ZelvoHIDManagerDelegate {
protected:
    ZelvoHIDManagerTest()
        : manager(std::make_unique<ZelvoHIDManager>(hid))
    {
        manager->setDelegate(this);
    }

    void deviceAdded(const Device& device) override
    {
        added.push_back(device);
        wasListedWhenAdded = isListed(device);
        writtenBefore = ZelvoHIDDevice::node()
            ? static_cast<const FakeHidDevice&>(*ZelvoHIDDevice::node()->deviceRef).written.size()
            : 0;
    }

    void deviceRemoved(const Device& device) override
    {
        removed.push_back(device);
        wasConnectedWhenRemoved = device->isConnected();
        wasListedWhenRemoved = isListed(device);
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

    std::unique_ptr<ZelvoHIDManager> manager;
    std::vector<Device> added;
    std::vector<Device> removed;
    size_t writtenBefore = 0;
    bool wasListedWhenAdded = false;
    bool wasConnectedWhenRemoved = false;
    bool wasListedWhenRemoved = false;
};
}

TEST_F(ZelvoHIDManagerTest, MatchesTheManufacturerAlone)
{
    EXPECT_EQ(hid.matching(),
        (HidManager::Matching {{QStringLiteral("Manufacturer"), QStringLiteral("Zelvo Ardenta A/S")}}));

    FakeHidManager closed;
    closed.openStatus = EACCES;
    EXPECT_TRUE(logOf([&] {
        const ZelvoHIDManager other(closed);
    }).contains(QStringLiteral("IOHIDManagerOpen failed.")));
}

TEST_F(ZelvoHIDManagerTest, AnnouncesAnAdapterBeforeInitialisingIt)
{
    const auto adapter = makeAdapter();
    const QString log = logOf([&] { hid.plug(adapter); });

    ASSERT_EQ(added.size(), 1u);
    EXPECT_FALSE(wasListedWhenAdded);
    EXPECT_EQ(writtenBefore, 0u) << "the delegate hears of it before the first report";
    EXPECT_EQ(adapter->written.size(), 2u) << "init and stop";
    EXPECT_TRUE(added[0]->isConnected());
    EXPECT_EQ(manager->devices(), added);
    EXPECT_TRUE(manager->isDeviceConneced());
    EXPECT_EQ(manager->connectedDevice()->ownNode(), added[0]->ownNode());
    EXPECT_TRUE(log.contains(
        QStringLiteral("\nDevice added: %1\nModel: Desk adapter\nDevice count: 1\n").arg(address(adapter))))
        << log.toStdString();
}

TEST_F(ZelvoHIDManagerTest, NamesWhatFailedAtArrival)
{
    const auto held = makeAdapter();
    held->openStatus = EBUSY;
    EXPECT_TRUE(logOf([&] { hid.plug(held); }).contains(QStringLiteral("Open failed\n")));
    EXPECT_TRUE(added.empty());
    EXPECT_TRUE(held->written.empty());
    EXPECT_FALSE(manager->isDeviceConneced());
    hid.unplug(held);
    EXPECT_TRUE(removed.empty());

    const auto mute = makeAdapter();
    mute->writeStatus = EPIPE;
    const QString log = logOf([&] { hid.plug(mute); });
    EXPECT_TRUE(log.contains(QStringLiteral("IOHIDDeviceSetReport return value: 00000020\n")));
    EXPECT_TRUE(log.contains(QStringLiteral("Could not init device\n")));
    EXPECT_FALSE(log.contains(QStringLiteral("Device added")));
    EXPECT_EQ(manager->devices().size(), 1u);
}

TEST_F(ZelvoHIDManagerTest, TellsOfARemovalBeforeTheDeviceIsDisconnected)
{
    const auto adapter = makeAdapter();
    hid.plug(adapter);
    platform.runLoop.advance(5);
    const int reads = adapter->reads;
    const size_t written = adapter->written.size();
    const QString log = logOf([&] { hid.unplug(adapter); });

    EXPECT_EQ(removed, added);
    EXPECT_TRUE(wasConnectedWhenRemoved);
    EXPECT_TRUE(wasListedWhenRemoved);
    EXPECT_FALSE(removed[0]->isConnected());
    EXPECT_TRUE(manager->devices().empty());
    EXPECT_FALSE(manager->isDeviceConneced());
    EXPECT_EQ(manager->connectedDevice(), nullptr);
    EXPECT_TRUE(
        log.contains(QStringLiteral("\nDevice removed: %1\nDevice count: 0\n").arg(address(adapter))));

    EXPECT_EQ(logOf([&] {
        ZelvoHIDDevice::Report report {5};
        EXPECT_FALSE(ZelvoHIDManager::writeBuffer(report, *removed[0]));
        EXPECT_FALSE(ZelvoHIDManager::readBuffer(report, *removed[0]));
    }),
        QString())
        << "a device that is gone is not even tried";
    EXPECT_EQ(adapter->reads, reads);
    EXPECT_EQ(adapter->written.size(), written);
}

TEST_F(ZelvoHIDManagerTest, LetsGoOfARemovedAdapter)
{
    auto adapter = makeAdapter();
    const std::weak_ptr watched = adapter;
    hid.plug(adapter);
    platform.runLoop.advance(5);
    hid.unplug(adapter);
    adapter.reset();
    EXPECT_FALSE(watched.expired()) << "the test still holds the device";
    added.clear();
    removed.clear();
    EXPECT_TRUE(watched.expired());
    EXPECT_EQ(platform.runLoop.pendingTimerCount(), 0u) << "the polling ended with the device";
}

TEST_F(ZelvoHIDManagerTest, TransfersEightBytesOutAndSixtyFourIn)
{
    const auto adapter = makeAdapter();
    hid.plug(adapter);
    ZelvoHIDDevice::Report report {};
    report.fill(0xAA);
    adapter->written.clear();
    EXPECT_TRUE(ZelvoHIDManager::writeBuffer(report, *added[0]));
    EXPECT_EQ(adapter->written, (std::vector<FakeHidDevice::Report> {FakeHidDevice::Report(8, 0xAA)}));

    adapter->status.fill(0x55);
    report[0] = 4;
    EXPECT_TRUE(ZelvoHIDManager::readBuffer(report, *added[0]));
    EXPECT_EQ(report[0], 4);
    EXPECT_EQ(std::count(report.begin(), report.end(), 0x55), 63);

    adapter->readStatus = ETIMEDOUT;
    EXPECT_TRUE(logOf([&] {
        EXPECT_FALSE(ZelvoHIDManager::readBuffer(report, *added[0]));
    }).contains(QStringLiteral("IOHIDDeviceGetReport return value: 0000006e\n")));
}

TEST_F(ZelvoHIDManagerTest, TakesProductStringsAsTheyCome)
{
    const std::optional<QString> products[] = {
        std::nullopt,
        QString(),
        QString(20000, QLatin1Char('x')),
        QStringLiteral("høj 机 \U0001F6AA"),
        QStringLiteral("%s%n\nDevice count: 99"),
        QString(QChar(0xD800)),
    };
    for (const auto& product : products) {
        const auto adapter = makeAdapter();
        adapter->strings.remove(QStringLiteral("Product"));
        if (product)
            adapter->strings.insert(QStringLiteral("Product"), *product);
        const QString log = logOf([&] { hid.plug(adapter); });
        EXPECT_EQ(added.back()->ownNode()->model, product.value_or(QString()).toStdString());
        EXPECT_LT(log.size(), 400);
        EXPECT_EQ(log.count(QStringLiteral("\nDevice count: ")), 1) << "a product string stays on its line";
        hid.unplug(adapter);
    }
}

TEST_F(ZelvoHIDManagerTest, GivesASecondAdapterADeviceButNoPlaceInTheList)
{
    const auto first = makeAdapter();
    const auto second = makeAdapter();
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
    EXPECT_EQ(manager->devices(), (std::vector {added[0]}));
    EXPECT_TRUE(manager->isDeviceConneced());
    platform.runLoop.advance(5);
    first->written.clear();
    EXPECT_TRUE(added[0]->moveUpSingle());
    EXPECT_EQ(first->written.size(), 1u) << "the first adapter is driven again";
    EXPECT_EQ(added.size(), 2u);
}

TEST_F(ZelvoHIDManagerTest, BringsInTheWaitingAdapterWhenTheListedOneLeaves)
{
    const auto first = makeAdapter();
    const auto second = makeAdapter();
    hid.plug(first);
    hid.plug(second);
    platform.runLoop.advance(5);
    second->written.clear();

    hid.unplug(first);
    EXPECT_EQ(removed, (std::vector {added[0]}));
    EXPECT_FALSE(manager->isDeviceConneced()) << "the removal empties the list";

    platform.runLoop.advance(0.1);
    ASSERT_EQ(added.size(), 3u);
    EXPECT_EQ(removed, (std::vector {added[0], added[1]}));
    EXPECT_EQ(manager->devices(), (std::vector {added[2]}));
    EXPECT_EQ(manager->deviceNodeByReference(second), added[2]->ownNode());
    EXPECT_EQ(second->written.size(), 2u) << "initialised anew";
    EXPECT_FALSE(added[0]->moveUpSingle());
    EXPECT_FALSE(added[1]->moveUpSingle());

    hid.unplug(second);
    platform.runLoop.advance(5);
    EXPECT_EQ(removed.size(), 3u);
    EXPECT_EQ(added.size(), 3u);
    EXPECT_FALSE(manager->isDeviceConneced());
    EXPECT_EQ(ZelvoHIDDevice::node(), nullptr);
}

TEST_F(ZelvoHIDManagerTest, SurvivesBothAdaptersLeavingAndTheManagerEndingMeanwhile)
{
    const auto first = makeAdapter();
    const auto second = makeAdapter();
    hid.plug(first);
    hid.plug(second);
    hid.unplug(first);
    hid.unplug(second); // Before the waiting one could be brought in.
    platform.runLoop.advance(1);
    EXPECT_EQ(added.size(), 2u);
    EXPECT_EQ(removed.size(), 2u);

    hid.plug(first);
    hid.plug(second);
    hid.unplug(first);
    manager.reset();
    platform.runLoop.advance(5);
    hid.unplug(second);
    hid.plug(first);
    EXPECT_EQ(added.size(), 4u);
}
