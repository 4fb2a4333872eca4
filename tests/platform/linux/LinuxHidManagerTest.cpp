#include "platform/linux/LinuxHidManager.h"

#include "HidTestbed.h"
#include "platform/linux/HidrawDevice.h"
#include "platform/qt/QtRunLoop.h"

#include <QCoreApplication>

#include <array>
#include <cerrno>
#include <chrono>
#include <fcntl.h>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <numeric>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace {
using Clock = std::chrono::steady_clock;
using Report = TestAdapter::Report;

/// Below the deadline, and far above what a busy machine adds.
constexpr double kAtOnceSeconds = 0.2;
constexpr uid_t kNobody = 65534;

double secondsOf(const std::function<void()>& action)
{
    const auto start = Clock::now();
    action();
    return std::chrono::duration<double>(Clock::now() - start).count();
}

/// Runs the event loop until the condition holds; false when it does not come true.
bool waitFor(
    const std::function<bool()>& condition, std::chrono::milliseconds limit = std::chrono::seconds(5))
{
    const auto end = Clock::now() + limit;
    while (!condition()) {
        if (Clock::now() > end)
            return false;
        QCoreApplication::processEvents();
        usleep(1000);
    }
    return true;
}

/// Lets everything that is under way arrive, to show that nothing does.
void settle()
{
    waitFor([] { return false; }, std::chrono::milliseconds(80));
}

/// Another program that wants the adapter for itself.
class OtherHolder {
public:
    explicit OtherHolder(const QByteArray& file)
        : m_file(open(file.constData(), O_RDWR | O_CLOEXEC))
        , m_holds(flock(m_file, LOCK_EX | LOCK_NB) == 0)
    {
    }
    ~OtherHolder() { close(m_file); }
    OtherHolder(const OtherHolder&) = delete;
    OtherHolder& operator=(const OtherHolder&) = delete;
    [[nodiscard]] bool holds() const { return m_holds; }

private:
    int m_file;
    bool m_holds;
};

bool isHeld(const QByteArray& file)
{
    return !OtherHolder(file).holds();
}

/// The rights of an ordinary user for as long as it lives: root is never refused.
class OrdinaryUser {
public:
    OrdinaryUser()
    {
        if (m_user == 0) {
            EXPECT_EQ(seteuid(kNobody), 0);
        }
    }
    ~OrdinaryUser() { EXPECT_EQ(seteuid(m_user), 0); }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;

private:
    uid_t m_user = geteuid();
};

class LinuxHid : public testing::Test {
protected:
    LinuxHid() { RunLoop::setMain(&m_runLoop); }
    ~LinuxHid() override
    {
        m_manager.reset();
        RunLoop::setMain(nullptr);
    }

    void start()
    {
        m_manager = std::make_unique<LinuxHidManager>();
        m_manager->setDeviceMatching({{QStringLiteral("Manufacturer"), QStringLiteral("Zelvo Ardenta A/S")}});
        m_manager->registerDeviceMatchingCallback(
            [this](const HidDeviceRef& device) { m_added.push_back(device); });
        m_manager->registerDeviceRemovalCallback(
            [this](const HidDeviceRef& device) { m_removed.push_back(device); });
        ASSERT_EQ(m_manager->open(), 0);
        EXPECT_TRUE(m_added.empty()) << "announced before open() returned";
    }
    bool waitForAdded(size_t count)
    {
        return waitFor([&] { return m_added.size() >= count; }) && m_added.size() == count;
    }
    bool waitForRemoved(size_t count)
    {
        return waitFor([&] { return m_removed.size() >= count; }) && m_removed.size() == count;
    }
    /// One adapter, plugged in and opened.
    std::unique_ptr<TestAdapter> plugAndStart()
    {
        auto adapter = m_testbed.plug();
        start();
        EXPECT_TRUE(waitForAdded(1));
        EXPECT_EQ(m_added.front()->openExclusively(), 0);
        return adapter;
    }
    HidStatus read(size_t device = 0)
    {
        m_buffer.fill(0xEE);
        m_buffer[0] = 4;
        return m_added.at(device)->getFeatureReport(m_buffer);
    }

    QtRunLoop m_runLoop;
    HidTestbed m_testbed;
    std::unique_ptr<LinuxHidManager> m_manager;
    std::vector<HidDeviceRef> m_added;
    std::vector<HidDeviceRef> m_removed;
    std::array<uint8_t, 64> m_buffer {};
};
}

TEST_F(LinuxHid, announcesEachMatchingAdapterOnce)
{
    const auto first = m_testbed.plug();
    const auto stranger = m_testbed.plug({"Zelvo Ardenta", "Desk adapter"});
    const auto nameless = m_testbed.plug({std::nullopt, "Zelvo Ardenta A/S"});
    start();
    first->report("add");
    first->report("change");
    ASSERT_TRUE(waitForAdded(1));

    const auto second = m_testbed.plug();
    const auto lateStranger = m_testbed.plug({"Zelvo Ardenta A/S ", "Desk adapter"});
    second->report("change");
    ASSERT_TRUE(waitForAdded(2));
    settle();
    EXPECT_EQ(m_added.size(), 2U);
    EXPECT_EQ(m_manager->copyDevices(), m_added);
    EXPECT_TRUE(isHeld(first->file()));
    EXPECT_TRUE(isHeld(second->file()));
    EXPECT_FALSE(isHeld(stranger->file()));
}

TEST_F(LinuxHid, tellsTheProductWhateverItIs)
{
    const struct TestCase {
        std::optional<QByteArray> attribute;
        std::optional<QString> property;
    } kTestCases[] = {
        {"Desk adapter", QStringLiteral("Desk adapter")},
        {"Hæve-/sænkebord ⇅", QStringLiteral("Hæve-/sænkebord ⇅")},
        {"Desk \xff\xfe", QStringLiteral("Desk \uFFFD\uFFFD")},
        {"", QString()},
        {QByteArray(4000, 'x'), QString(4000, QLatin1Char('x'))},
        {std::nullopt, std::nullopt},
    };
    std::vector<std::unique_ptr<TestAdapter>> adapters;
    start();
    for (const TestCase& test : kTestCases) {
        SCOPED_TRACE(test.attribute.value_or("(none)").constData());
        adapters.push_back(m_testbed.plug({"Zelvo Ardenta A/S", test.attribute}));
        ASSERT_TRUE(waitForAdded(adapters.size()));
        EXPECT_EQ(m_added.back()->stringProperty(QStringLiteral("Product")), test.property);
    }
    EXPECT_EQ(
        m_added[0]->stringProperty(QStringLiteral("Manufacturer")), QStringLiteral("Zelvo Ardenta A/S"));
    EXPECT_FALSE(m_added[0]->stringProperty(QStringLiteral("Colour")));
}

TEST_F(LinuxHid, writesReportsAsTheyAre)
{
    const auto adapter = plugAndStart();
    const Report report {5, 0x01, 0x80, 0, 0xFF, 6, 7, 8};
    EXPECT_EQ(m_added[0]->setFeatureReport(report), 0);
    EXPECT_EQ(adapter->written(), std::vector<Report> {report});
}

TEST_F(LinuxHid, leavesTheBufferAloneBeyondAShortAnswer)
{
    const auto adapter = plugAndStart();
    for (const size_t length : {64U, 40U, 5U, 1U, 0U}) {
        SCOPED_TRACE(length);
        Report answer(length);
        std::iota(answer.begin(), answer.end(), uint8_t(4));
        adapter->setAnswer(answer);
        ASSERT_EQ(read(), 0);
        answer.resize(std::max<size_t>(length, 1), 4);
        answer.resize(m_buffer.size(), 0xEE);
        EXPECT_EQ(Report(m_buffer.begin(), m_buffer.end()), answer);
    }
}

TEST_F(LinuxHid, reportsWhatWentWrongAndGoesOn)
{
    const auto adapter = plugAndStart();
    adapter->setAnswer({4, 1});
    for (const int error : {EPIPE, EPROTO, ETIMEDOUT, ENODEV}) {
        adapter->setFailure(error);
        EXPECT_EQ(read(), error);
        EXPECT_EQ(m_buffer[1], 0xEE);
        EXPECT_EQ(m_added[0]->setFeatureReport(Report(8)), error);
    }
    adapter->setFailure(0);
    EXPECT_EQ(read(), 0);
    std::vector<uint8_t> endless(16384);
    EXPECT_EQ(m_added[0]->getFeatureReport(endless), EINVAL);
    EXPECT_EQ(m_added[0]->setFeatureReport(endless), EINVAL);
}

TEST_F(LinuxHid, waitsForASilentAdapterNoLongerThanTheDeadline)
{
    const auto adapter = plugAndStart();
    adapter->setAnswer({4, 1});
    adapter->setSilent(true);
    const double first = secondsOf([&] { EXPECT_EQ(read(), ETIMEDOUT); });
    EXPECT_GE(first, HidDevice::kDeadlineSeconds);
    EXPECT_LT(first, HidDevice::kDeadlineSeconds + kAtOnceSeconds);
    const double next = secondsOf([&] {
        EXPECT_EQ(read(), ETIMEDOUT);
        EXPECT_EQ(m_added[0]->setFeatureReport(Report(8)), ETIMEDOUT);
    });
    EXPECT_LT(next, kAtOnceSeconds);

    adapter->setSilent(false);
    ASSERT_TRUE(waitFor([&] { return read() == 0; }));
    EXPECT_EQ(m_buffer[1], 1);
    EXPECT_TRUE(adapter->written().empty()) << "a refused report went out later";
}

TEST_F(LinuxHid, aSilentAdapterDoesNotHoldUpAnother)
{
    const auto silent = plugAndStart();
    const auto other = m_testbed.plug();
    ASSERT_TRUE(waitForAdded(2));
    silent->setSilent(true);
    EXPECT_EQ(read(0), ETIMEDOUT);
    EXPECT_EQ(read(1), 0);
    EXPECT_TRUE(silent->isHolding());

    const auto third = m_testbed.plug();
    EXPECT_TRUE(waitForAdded(3));
}

TEST_F(LinuxHid, followsTheAdapterOutAndInAgain)
{
    const auto adapter = plugAndStart();
    EXPECT_EQ(read(), 0);
    adapter->unplug();
    // The program polls on until udev has spoken.
    EXPECT_EQ(read(), ENODEV);
    EXPECT_TRUE(m_removed.empty());
    ASSERT_TRUE(waitForRemoved(1));
    EXPECT_EQ(m_removed, m_added);
    EXPECT_TRUE(m_manager->copyDevices().empty());
    EXPECT_EQ(read(), ENODEV);
    EXPECT_EQ(m_added[0]->openExclusively(), ENODEV);

    const auto again = m_testbed.plug();
    ASSERT_TRUE(waitForAdded(2));
    EXPECT_NE(m_added[0], m_added[1]);
    EXPECT_EQ(read(1), 0);
}

TEST_F(LinuxHid, knowsAnAdapterThatComesBackUnderTheSameName)
{
    const auto adapter = plugAndStart();
    ASSERT_TRUE(isHeld(adapter->file()));
    adapter->report("add");
    settle();
    adapter->report("remove");
    ASSERT_TRUE(waitForRemoved(1));
    EXPECT_TRUE(waitFor([&] { return !isHeld(adapter->file()); })) << "the node stays open";

    adapter->report("add");
    ASSERT_TRUE(waitForAdded(2));
    EXPECT_NE(m_added[0], m_added[1]);
    EXPECT_EQ(m_added[1]->openExclusively(), 0);
}

TEST_F(LinuxHid, tellsOfARemovalDuringASilentTransferAtOnce)
{
    const auto adapter = plugAndStart();
    adapter->setSilent(true);
    EXPECT_EQ(read(), ETIMEDOUT);
    adapter->report("remove");
    EXPECT_LT(secondsOf([&] { EXPECT_TRUE(waitForRemoved(1)); }), kAtOnceSeconds);
    EXPECT_EQ(read(), ENODEV);
    EXPECT_TRUE(adapter->isHolding());
}

TEST_F(LinuxHid, saysNothingOfAnAdapterThatLeavesBeforeItWasOpened)
{
    start();
    const auto adapter = m_testbed.plug();
    adapter->report("remove");
    settle();
    EXPECT_TRUE(m_added.empty());
    EXPECT_TRUE(m_removed.empty());
}

TEST_F(LinuxHid, isRefusedAnAdapterInUse)
{
    const auto adapter = m_testbed.plug();
    const OtherHolder other(adapter->file());
    ASSERT_TRUE(other.holds());
    testing::internal::CaptureStderr();
    start();
    EXPECT_TRUE(waitForAdded(1));
    EXPECT_NE(testing::internal::GetCapturedStderr().find("/dev/hidraw0 is in use"), std::string::npos);
    EXPECT_EQ(m_added[0]->openExclusively(), EBUSY);
    EXPECT_NE(read(), 0);
}

TEST_F(LinuxHid, triesAgainWhenThePermissionsChange)
{
    const auto adapter = m_testbed.plug();
    chmod(adapter->file().constData(), 0);
    testing::internal::CaptureStderr();
    {
        const OrdinaryUser user;
        start();
        ASSERT_TRUE(waitForAdded(1));
    }
    const std::string log = testing::internal::GetCapturedStderr();
    EXPECT_EQ(m_added[0]->openExclusively(), EACCES);
    EXPECT_NE(log.find("70-zelvo-standup.rules"), std::string::npos);
    EXPECT_NE(log.find("udevadm trigger --subsystem-match=hidraw --action=change"), std::string::npos);
    EXPECT_EQ(std::count(log.begin(), log.end(), '\n'), 1);

    // Still not enough: no news.
    chmod(adapter->file().constData(), 0040);
    {
        const OrdinaryUser user;
        settle();
    }
    EXPECT_EQ(m_added.size(), 1U);

    chmod(adapter->file().constData(), 0600);
    ASSERT_TRUE(waitForAdded(2));
    EXPECT_EQ(m_added[0], m_added[1]);
    EXPECT_EQ(m_added[1]->openExclusively(), 0);
    EXPECT_EQ(read(), 0);
    EXPECT_EQ(m_manager->copyDevices().size(), 1U);

    chmod(adapter->file().constData(), 0660);
    settle();
    EXPECT_EQ(m_added.size(), 2U);
}

TEST_F(LinuxHid, endsWithoutWaitingForASilentAdapter)
{
    const auto adapter = plugAndStart();
    adapter->setSilent(true);
    EXPECT_EQ(read(), ETIMEDOUT);
    EXPECT_LT(secondsOf([&] { m_manager.reset(); }), kAtOnceSeconds);
    EXPECT_EQ(read(), ENODEV);
    EXPECT_TRUE(isHeld(adapter->file()));
    m_added.clear();
    adapter->setSilent(false);
    EXPECT_TRUE(waitFor([&] { return !isHeld(adapter->file()); }));
}

TEST_F(LinuxHid, announcesNothingAfterItsEnd)
{
    const auto adapter = m_testbed.plug();
    start();
    m_manager.reset();
    settle();
    EXPECT_TRUE(m_added.empty());
    EXPECT_TRUE(waitFor([&] { return !isHeld(adapter->file()); }));
}

TEST_F(LinuxHid, aDetachedDeviceKeepsItsNewsToItself)
{
    const auto device = std::make_shared<HidrawDevice>(HidrawAdapter {});
    bool called = false;
    device->beginOpening([&](HidStatus) { called = true; });
    usleep(50'000); // The opening has ended by now, its news waits in the loop.
    device->detach();
    settle();
    EXPECT_FALSE(called);
}

TEST_F(LinuxHid, mayBeDestroyedByItsOwnCallbacks)
{
    auto adapter = m_testbed.plug();
    start();
    m_manager->registerDeviceRemovalCallback([this](const HidDeviceRef&) { m_manager.reset(); });
    ASSERT_TRUE(waitForAdded(1));
    adapter.reset();
    EXPECT_TRUE(waitFor([&] { return !m_manager; }));

    m_added.clear();
    adapter = m_testbed.plug();
    start();
    m_manager->registerDeviceMatchingCallback([this](const HidDeviceRef&) { m_manager.reset(); });
    EXPECT_TRUE(waitFor([&] { return !m_manager; }));
}
