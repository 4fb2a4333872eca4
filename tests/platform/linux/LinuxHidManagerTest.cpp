#include "platform/linux/LinuxHidManager.h"

#include "HidTestbed.h"
#include "fakes/Files.h"
#include "platform/ProcessServices.h"
#include "platform/qt/QtRunLoop.h"

#include <QTemporaryDir>
#include <QtCore/qtestsupport_core.h>

#include <array>
#include <cstdarg>
#include <future>
#include <sys/file.h>
#include <sys/syscall.h>

namespace {
using Devices = std::vector<HidDeviceRef>;
using Report = TestWire::Report;

constexpr int kSettleMs = 80; ///< shows that nothing happens
const Report kUp {5, 0, 0x80, 0, 0x80, 0, 0x80, 0};
const Report kStop {5, 1, 0x80, 1, 0x80, 1, 0x80, 1};

/// Time runs fifteen times as fast, so that nobody waits for real seconds.
struct HurriedRunLoop final : QtRunLoop {
    static constexpr double kHurry = 15;

    [[nodiscard]] double monotonicNow() const override { return QtRunLoop::monotonicNow() * kHurry; }
    /// What is handed over passes a lock here, because the thread sanitizer does not see those within Qt.
    void performSoon(std::function<void()> callable) override
    {
        const std::scoped_lock lock(handOver);
        QtRunLoop::performSoon([this, callable = std::move(callable)] {
            handOver.lock();
            handOver.unlock();
            callable();
        });
    }
    TimerRef platformScheduleTimer(
        double seconds, Repeat repeats, TimerCallback callback, QVariant userInfo, Precision) override
    {
        return QtRunLoop::platformScheduleTimer(
            seconds / kHurry, repeats, std::move(callback), std::move(userInfo), Precision::Precise);
    }

    std::mutex handOver;
};

/// How much each new thread asks for.
void setStackSize(size_t bytes)
{
    pthread_attr_t attributes {};
    pthread_attr_init(&attributes);
    pthread_attr_setstacksize(&attributes, bytes);
    pthread_setattr_default_np(&attributes);
}

/// Whether somebody has the adapter for itself.
bool isHeld(const TestAdapter& adapter)
{
    const int file = open(adapter.file(), O_RDWR | O_CLOEXEC);
    const bool isOurs = flock(file, LOCK_EX | LOCK_NB) == 0;
    close(file);
    return !isOurs;
}

struct LinuxHid : testing::Test {
    void start()
    {
        m_manager = std::make_unique<LinuxHidManager>();
        m_manager->setDeviceMatching({{"Manufacturer", "Zelvo Ardenta A/S"}});
        m_manager->setRestReport(kStop);
        m_manager->registerDeviceMatchingCallback([this](auto& device) { m_added.push_back(device); });
        m_manager->registerDeviceRemovalCallback([this](auto& device) { m_removed.push_back(device); });
        m_manager->registerLateReportCallback([this](auto& device, auto report) {
            m_late += device == m_added.back() && Report(report.begin(), report.end()) == m_answer;
        });
        m_added.clear();
        EXPECT_EQ(m_manager->open(), 0);
        EXPECT_TRUE(m_added.empty() && m_manager->copyDevices().empty()) << "announced before it is open";
    }
    static bool reaches(const Devices& devices, size_t count)
    {
        return QTest::qWaitFor([&] { return devices.size() >= count; }) && devices.size() == count;
    }
    /// With that adapter, which is announced and opened.
    void start(TestAdapter& adapter)
    {
        adapter.change([this](TestWire& wire) { wire.answer = m_answer; });
        start();
        EXPECT_TRUE(reaches(m_added, 1));
        EXPECT_EQ(m_added.front()->openExclusively(), 0);
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
    Devices m_added;
    Devices m_removed;
    Report m_answer = Report(64, 7);
    int m_late = 0;
    std::array<uint8_t, 64> m_buffer {};
    std::unique_ptr<LinuxHidManager> m_manager;
};
}

/// Takes the place of the C library's for the whole test program.
extern "C" int ioctl(int file, unsigned long request, ...) noexcept
{
    va_list arguments;
    va_start(arguments, request);
    void* const argument = va_arg(arguments, void*);
    va_end(arguments);
    return _IOC_TYPE(request) == 'H' ? TestAdapter::transfer(file, request, static_cast<uint8_t*>(argument))
                                     : int(syscall(SYS_ioctl, file, request, argument));
}

TEST_F(LinuxHid, announcesEachMatchingAdapterOnceAndFollowsItOutAndInAgain)
{
    TestAdapter first;
    const TestAdapter stranger("Zelvo Ardenta");
    start();
    first.report("add");
    first.report("change");
    ASSERT_TRUE(reaches(m_added, 1));
    TestAdapter second("Zelvo Ardenta A/S", "Hæve-/sænkebord \xff");
    ASSERT_TRUE(reaches(m_added, 2));
    EXPECT_EQ(m_manager->copyDevices(), m_added);
    EXPECT_TRUE(isHeld(first) && isHeld(second) && !isHeld(stranger));
    EXPECT_EQ(m_added[1]->stringProperty("Product"), "Hæve-/sænkebord \uFFFD");
    EXPECT_FALSE(m_added[1]->stringProperty("Serial"));

    first.report("remove");
    ASSERT_TRUE(reaches(m_removed, 1));
    EXPECT_EQ(m_removed[0], m_added[0]);
    EXPECT_EQ(m_manager->copyDevices(), Devices {m_added[1]});
    EXPECT_TRUE(read() == ENODEV && m_added[0]->openExclusively() == ENODEV);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !isHeld(first); })) << "the node stays open";
    first.report("add");
    ASSERT_TRUE(reaches(m_added, 3));
    EXPECT_TRUE(QTest::qWaitFor([&] { return read(2) == 0; })) << "though a busy machine answers late";
    TestAdapter().report("remove");
    QTest::qWait(kSettleMs);
    EXPECT_EQ(m_added.size(), 3U) << "it left before it was opened";
    m_manager->registerDeviceRemovalCallback([this](const HidDeviceRef&) { m_manager.reset(); });
    second.report("remove");
    EXPECT_TRUE(QTest::qWaitFor([&] { return !m_manager; }));
    start();
    m_manager->registerDeviceMatchingCallback([this](const HidDeviceRef&) { m_manager.reset(); });
    EXPECT_TRUE(QTest::qWaitFor([&] { return !m_manager; }));
}

TEST_F(LinuxHid, carriesReportsBothWaysWhenTheAdapterIsFreeLosesItAndFindsItAgain)
{
    TestAdapter adapter;
    start(adapter);
    adapter.change([](TestWire& wire) { wire.answer = {4, 5, 6}; });
    // A short answer leaves the rest.
    ASSERT_TRUE(QTest::qWaitFor([&] { return read() == 0 && m_buffer[2] == 6 && m_buffer[3] == 0xEE; }));

    m_answer = Report(64, 9);
    adapter.change([&](TestWire& wire) { wire.answer = m_answer; });
    adapter.setSilent(true);
    write(kUp);
    EXPECT_EQ(read(), 0) << "the last answer";
    write(kStop);
    ASSERT_TRUE(QTest::qWaitFor([&] { return adapter.wire().isHolding; }));
    adapter.setSilent(false);
    ASSERT_TRUE(QTest::qWaitFor([&] { return m_late > 0; }));
    EXPECT_EQ(adapter.wire().written, std::vector<Report> {kStop}) << "what was held up has timed out";

    const QString log = logOf([&] {
        adapter.setSilent(true);
        write(kUp);
        ASSERT_TRUE(reaches(m_removed, 1));
        EXPECT_TRUE(m_manager->copyDevices().empty());
        adapter.setSilent(false);
        ASSERT_TRUE(reaches(m_added, 2));
        EXPECT_EQ(m_manager->copyDevices(), Devices {m_added[0]});
        adapter.change([](TestWire& wire) { wire.isShort = true; });
        write(kStop);
        ASSERT_TRUE(reaches(m_removed, 2));
    });
    EXPECT_TRUE(log.count("does not answer.") == 2 && log.count("answers again.") == 1) << qPrintable(log);
    adapter.report("remove");
    QTest::qWait(kSettleMs);
    EXPECT_EQ(m_removed.size(), 2U) << "its leaving is told once";
}

TEST_F(LinuxHid, endsWithAStopButNotInsideASilentAdapter)
{
    for (const bool isSilent : {false, true}) {
        TestAdapter adapter;
        start(adapter);
        adapter.setSilent(true);
        write(isSilent ? kStop : kUp);
        ASSERT_TRUE(QTest::qWaitFor([&] { return adapter.wire().isHolding; }));
        write(isSilent ? kUp : kStop); // The movement goes out no more.
        auto later = std::async(std::launch::async, [&] {
            std::this_thread::sleep_for(std::chrono::milliseconds(20)); // The end waits for the stop.
            adapter.setSilent(isSilent);
        });
        const double end = m_runLoop.monotonicNow() + 3 * HurriedRunLoop::kHurry;
        m_manager.reset();
        EXPECT_LT(m_runLoop.monotonicNow(), end) << "half a second at most, and some for a busy machine";
        EXPECT_EQ(adapter.wire().written, std::vector<Report>(isSilent ? 0 : 1, kStop));
        EXPECT_EQ(read(), ENODEV);
        later.wait();
        adapter.setSilent(false);
        EXPECT_TRUE(QTest::qWaitFor([&] { return !isHeld(adapter); }));
        EXPECT_EQ(adapter.wire().written, std::vector<Report> {kStop});
    }
}

TEST_F(LinuxHid, triesAgainByAndByWhatCannotBeOpened)
{
    const TestAdapter adapter;
    unlink(adapter.file());
    mkdir(adapter.file(), 0700);
    setStackSize(size_t(1) << 60); // No machine has so much.
    start();
    ASSERT_TRUE(reaches(m_added, 1));
    EXPECT_EQ(m_added[0]->openExclusively(), EAGAIN);
    setStackSize(size_t(8) << 20);
    EXPECT_TRUE(
        logOf([&] { ASSERT_TRUE(reaches(m_added, 2)); }).contains("cannot be opened: Is a directory"));
    EXPECT_EQ(m_added[1]->openExclusively(), EISDIR);
    rmdir(adapter.file());
    close(open(adapter.file(), O_RDWR | O_CREAT | O_CLOEXEC, 0600));
    ASSERT_TRUE(reaches(m_added, 3));
    EXPECT_EQ(m_added[2]->openExclusively(), 0);
}

TEST(AccessRuleTest, isWrittenWhereTheDesktopHasNoneAndReadAnewWhereItHas)
{
    const QTemporaryDir folder;
    EXPECT_TRUE(AccessRule::commands({folder.path()})[0].startsWith(QStringLiteral("echo '")));
    write(folder.filePath("70-zelvo-standup.rules"), {});
    EXPECT_EQ(AccessRule::commands({QStringLiteral("/none"), folder.path()})[0],
        QStringLiteral("sudo udevadm control --reload"));
}

TEST(AccessWatcherTest, tellsOfEachChangeAndClosingOfWhatIsWatchedAlsoOnceMore)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("node");
    int told = 0;
    AccessWatcher watcher([&](const QString& changed) { told += changed == path ? 1 : 100; });
    write(path, {});
    for (const bool isWatched : {true, false, true}) {
        const auto hears = [&] {
            return QTest::qWaitFor([&] { return std::exchange(told, 0) == 1; }, isWatched ? 5000 : kSettleMs);
        };
        QFile node(path);
        EXPECT_TRUE(node.open(QIODevice::ReadOnly) && (!isWatched || watcher.watch(path)));
        QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner);
        EXPECT_EQ(hears(), isWatched);
        node.close();
        EXPECT_EQ(hears(), isWatched);
        watcher.unwatch(path);
    }
}
