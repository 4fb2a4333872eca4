#include "platform/linux/LinuxHidManager.h"

#include "HidTestbed.h"
#include "TestBus.h"
#include "platform/ProcessServices.h"
#include "platform/qt/QtRunLoop.h"

#include <array>
#include <cerrno>
#include <chrono>
#include <fcntl.h>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <mutex>
#include <sys/file.h>
#include <sys/inotify.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace {
using Clock = std::chrono::steady_clock;
using Report = TestAdapter::Report;

/// Far above what a busy machine adds to a call that does not wait.
constexpr double kAtOnceSeconds = 0.2;
constexpr uid_t kNobody = 65534;
const Report kUp {5, 0, 0x80, 0, 0x80, 0, 0x80, 0};
const Report kStop {5, 1, 0x80, 1, 0x80, 1, 0x80, 1};

/// Time runs thirty times as fast, so that nobody waits for real seconds.
class HurriedRunLoop final : public RunLoop {
public:
    static constexpr double kHurry = 30;

    [[nodiscard]] double now() const override { return m_loop.now() * kHurry; }
    [[nodiscard]] double monotonicNow() const override { return m_loop.monotonicNow() * kHurry; }
    [[nodiscard]] double bootTimeNow() const override { return m_loop.bootTimeNow() * kHurry; }
    /// What is handed over passes a lock here, because the thread sanitizer does not see those within Qt.
    void performSoon(std::function<void()> callable) override
    {
        std::function<void()> handedOver = [this, callable = std::move(callable)] {
            m_handOver.lock();
            m_handOver.unlock();
            callable();
        };
        m_handOver.lock();
        m_handOver.unlock();
        m_loop.performSoon(std::move(handedOver));
    }

protected:
    TimerRef platformScheduleTimer(
        double seconds, Repeat repeats, TimerCallback callback, QVariant userInfo, Precision) override
    {
        return m_loop.scheduleTimer(
            seconds / kHurry, repeats, std::move(callback), std::move(userInfo), Precision::Precise);
    }

private:
    QtRunLoop m_loop;
    std::mutex m_handOver;
};

double secondsOf(const std::function<void()>& action)
{
    const auto start = Clock::now();
    action();
    return std::chrono::duration<double>(Clock::now() - start).count();
}

/// Lets everything that is under way arrive, to show that nothing does.
void settle()
{
    waitFor([] { return false; }, std::chrono::milliseconds(80));
}

/// Whether somebody has the adapter for itself.
bool isHeld(const QByteArray& path)
{
    const int file = open(path.constData(), O_RDWR | O_CLOEXEC);
    const bool isOurs = flock(file, LOCK_EX | LOCK_NB) == 0;
    close(file);
    return !isOurs;
}

/// Acts with the rights of an ordinary user: root is never refused.
template <typename Action>
void asOrdinaryUser(const Action& action)
{
    const uid_t user = geteuid();
    EXPECT_TRUE(user != 0 || seteuid(kNobody) == 0);
    action();
    EXPECT_EQ(seteuid(user), 0);
}

/// A user has few of them, and other programs take their share.
bool hasInotify()
{
    const int file = inotify_init1(IN_CLOEXEC);
    close(file);
    return file >= 0;
}

class LinuxHid : public testing::Test {
protected:
    ~LinuxHid() override { m_manager.reset(); }

    void start()
    {
        m_manager = std::make_unique<LinuxHidManager>();
        m_manager->setDeviceMatching({{QStringLiteral("Manufacturer"), QStringLiteral("Zelvo Ardenta A/S")}});
        m_manager->setRestReport(kStop);
        m_manager->registerDeviceMatchingCallback(
            [this](const HidDeviceRef& device) { m_added.push_back(device); });
        m_manager->registerDeviceRemovalCallback(
            [this](const HidDeviceRef& device) { m_removed.push_back(device); });
        m_manager->registerLateReportCallback([this](const HidDeviceRef& device, std::span<const uint8_t>) {
            EXPECT_EQ(device, m_added.back());
            ++m_late;
        });
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
        adapter->setAnswer({4, 1});
        start();
        EXPECT_TRUE(waitForAdded(1));
        EXPECT_EQ(m_added.front()->openExclusively(), 0);
        return adapter;
    }
    /// A busy machine may answer later than a read waits.
    bool readsSoon(size_t device = 0)
    {
        return waitFor([&] { return read(device) == 0; });
    }
    HidStatus read(size_t device = 0)
    {
        m_buffer.fill(0xEE);
        m_buffer[0] = 4;
        return m_added.at(device)->getFeatureReport(m_buffer);
    }
    /// A write is never waited for to its end.
    void write(const Report& report) { EXPECT_EQ(m_added.at(0)->setFeatureReport(report), 0); }

    HurriedRunLoop m_runLoop;
    ProcessServices m_services {{&m_runLoop}};
    HidTestbed m_testbed;
    std::unique_ptr<LinuxHidManager> m_manager;
    std::vector<HidDeviceRef> m_added;
    std::vector<HidDeviceRef> m_removed;
    int m_late = 0;
    std::array<uint8_t, 64> m_buffer {};
};
}

TEST_F(LinuxHid, announcesEachMatchingAdapterOnceAndFollowsItOutAndInAgain)
{
    const auto first = m_testbed.plug();
    const auto stranger = m_testbed.plug({"Zelvo Ardenta", "Desk adapter"});
    const auto nameless = m_testbed.plug({std::nullopt, "Zelvo Ardenta A/S"});
    start();
    first->report("add");
    first->report("change");
    ASSERT_TRUE(waitForAdded(1));
    const auto second = m_testbed.plug({"Zelvo Ardenta A/S", "Hæve-/sænkebord \xff"});
    ASSERT_TRUE(waitForAdded(2));
    EXPECT_EQ(m_manager->copyDevices(), m_added);
    EXPECT_TRUE(isHeld(first->file()) && isHeld(second->file()) && !isHeld(stranger->file()));
    EXPECT_EQ(
        m_added[1]->stringProperty(QStringLiteral("Product")), QStringLiteral("Hæve-/sænkebord \uFFFD"));
    EXPECT_EQ(m_added[1]->stringProperty(QStringLiteral("Serial")), std::nullopt);

    first->report("remove");
    ASSERT_TRUE(waitForRemoved(1));
    EXPECT_EQ(m_removed[0], m_added[0]);
    EXPECT_EQ(m_manager->copyDevices(), std::vector {m_added[1]});
    EXPECT_EQ(read(), ENODEV);
    EXPECT_EQ(m_added[0]->openExclusively(), ENODEV);
    EXPECT_TRUE(waitFor([&] { return !isHeld(first->file()); })) << "the node stays open";
    first->report("add");
    ASSERT_TRUE(waitForAdded(3));
    EXPECT_TRUE(readsSoon(2));
    const auto brief = m_testbed.plug();
    brief->report("remove");
    settle();
    EXPECT_EQ(m_added.size(), 3U) << "it left before it was opened";
    EXPECT_EQ(m_removed.size(), 1U);
}

TEST_F(LinuxHid, carriesReportsBothWaysAndAStopAsSoonAsTheAdapterIsFree)
{
    const auto adapter = plugAndStart();
    EXPECT_TRUE(waitFor([&] {
        write(kUp); // A busy machine sends a stop in place of one that has grown old.
        return !adapter->written().empty() && adapter->written().back() == kUp;
    }));
    adapter->setAnswer({4, 5, 6});
    ASSERT_TRUE(waitFor([&] { return read() == 0 && m_buffer[2] == 6; })); // Behind all that was written.
    std::vector<Report> written = adapter->written();
    EXPECT_EQ(m_buffer[3], 0xEE) << "a short answer leaves the rest";
    m_late = 0;

    adapter->setSilent(true);
    EXPECT_LT(secondsOf([&] {
        write(kUp);
        EXPECT_EQ(read(), 0) << "the last answer";
        write(kStop);
    }),
        kAtOnceSeconds);
    ASSERT_TRUE(waitFor([&] { return adapter->isHolding(); }));
    adapter->setSilent(false);
    ASSERT_TRUE(waitFor([&] { return m_late > 0; }));
    written.push_back(kStop);
    EXPECT_EQ(adapter->written(), written) << "what was held up has timed out";
    EXPECT_TRUE(m_removed.empty());
}

TEST_F(LinuxHid, losesASilentAdapterAndFindsItAgain)
{
    const auto adapter = plugAndStart();
    const auto other = m_testbed.plug();
    ASSERT_TRUE(waitForAdded(2));
    adapter->setSilent(true);
    EXPECT_EQ(read(0), EINPROGRESS);
    EXPECT_TRUE(readsSoon(1)) << "nobody stands in the queue of another adapter";
    write(kUp);
    ASSERT_TRUE(waitForRemoved(1));
    EXPECT_EQ(m_manager->copyDevices(), std::vector {m_added[1]});
    adapter->setSilent(false);
    ASSERT_TRUE(waitForAdded(3));
    EXPECT_EQ(m_added[2], m_added[0]);
    EXPECT_EQ(adapter->written().front(), kStop);

    adapter->setFailure(EPIPE);
    EXPECT_EQ(read(), EINPROGRESS);
    ASSERT_TRUE(waitForRemoved(2));
    adapter->report("remove");
    settle();
    EXPECT_EQ(m_removed.size(), 2U) << "its leaving is told once";
}

TEST_F(LinuxHid, triesAgainWhenThePermissionsChangeAndEachHalfMinute)
{
    if (!hasInotify())
        GTEST_SKIP() << "no inotify instance is left";
    const auto adapter = m_testbed.plug();
    const char* const file = adapter->file().constData();
    chmod(file, 0);
    testing::internal::CaptureStderr();
    asOrdinaryUser([this] {
        start();
        EXPECT_TRUE(waitForAdded(1));
    });
    const std::string log = testing::internal::GetCapturedStderr();
    EXPECT_EQ(std::count(log.begin(), log.end(), '\n'), 1);
    EXPECT_NE(
        log.find("put the rule file 70-zelvo-standup.rules into /etc/udev/rules.d and run \"sudo udevadm "
                 "trigger --subsystem-match=hidraw --action=change\""),
        std::string::npos);
    EXPECT_EQ(m_added[0]->openExclusively(), EACCES);
    EXPECT_EQ(read(), EACCES);

    chmod(file, 0040);
    asOrdinaryUser(settle);
    EXPECT_EQ(m_added.size(), 1U) << "still not enough";
    const int other = open(file, O_RDWR | O_CLOEXEC); // Of another program, which takes the adapter.
    flock(other, LOCK_EX);
    chmod(file, 0600);
    EXPECT_TRUE(waitFor([&] { return m_added[0]->openExclusively() == EBUSY; }));
    flock(other, LOCK_UN); // Nothing tells of it.
    EXPECT_TRUE(waitForAdded(2));
    EXPECT_EQ(m_added[0], m_added[1]);
    EXPECT_TRUE(readsSoon());
    close(other);
    settle();
    EXPECT_EQ(m_added.size(), 2U);
}

TEST_F(LinuxHid, endsWithAStopButNotInsideASilentAdapter)
{
    for (const bool isSilent : {false, true}) {
        const auto adapter = plugAndStart();
        adapter->setSilent(true);
        write(kUp);
        write(kStop);
        ASSERT_TRUE(waitFor([&] { return adapter->isHolding(); }));
        if (!isSilent)
            adapter->setSilent(false);
        EXPECT_LT(secondsOf([&] { m_manager.reset(); }), 0.5 + kAtOnceSeconds);
        EXPECT_EQ(read(), ENODEV);
        EXPECT_EQ(adapter->written(), std::vector<Report>(isSilent ? 0 : 1, kStop));
        m_added.clear();
        adapter->setSilent(false);
        EXPECT_TRUE(waitFor([&] { return !isHeld(adapter->file()); }));
        EXPECT_EQ(adapter->written(), std::vector<Report> {kStop});
    }
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
