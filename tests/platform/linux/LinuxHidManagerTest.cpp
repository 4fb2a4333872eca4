#include "platform/linux/LinuxHidManager.h"

#include "HidTestbed.h"
#include "platform/qt/QtRunLoop.h"

#include <QCoreApplication>
#include <QEventLoop>

#include <cerrno>
#include <chrono>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {
using Clock = std::chrono::steady_clock;
using Seconds = std::chrono::duration<double>;

double secondsOf(const std::function<void()>& action)
{
    const auto start = Clock::now();
    action();
    return Seconds(Clock::now() - start).count();
}

/// Runs the event loop until the condition holds; false after five seconds.
bool waitFor(const std::function<bool()>& condition)
{
    const auto end = Clock::now() + std::chrono::seconds(5);
    while (!condition()) {
        if (Clock::now() > end)
            return false;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::AllEvents, 10);
        usleep(1000);
    }
    return true;
}

/// Lets everything that is under way arrive, to show that nothing does.
void settle()
{
    const auto end = Clock::now() + std::chrono::milliseconds(150);
    waitFor([&] { return Clock::now() > end; });
}

class LinuxHidManager_ : public testing::Test {
protected:
    LinuxHidManager_() { RunLoop::setMain(&m_runLoop); }
    ~LinuxHidManager_() override
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
        EXPECT_TRUE(m_added.empty());
    }
    bool waitForAdded(size_t count)
    {
        return waitFor([&] { return m_added.size() >= count; });
    }

    QtRunLoop m_runLoop;
    HidTestbed m_testbed;
    std::unique_ptr<LinuxHidManager> m_manager;
    std::vector<HidDeviceRef> m_added;
    std::vector<HidDeviceRef> m_removed;
};
}

TEST_F(LinuxHidManager_, announcesAnAdapterThatWasThereBefore)
{
    const auto adapter = m_testbed.plug();
    start();
    ASSERT_TRUE(waitForAdded(1));
    EXPECT_EQ(m_added[0]->openExclusively(), 0);
}

TEST_F(LinuxHidManager_, silent)
{
    const auto adapter = m_testbed.plug();
    start();
    ASSERT_TRUE(waitForAdded(1));
    adapter->setSilent(true);
    uint8_t b[64] = {4};
    printf("%f\n", secondsOf([&] { EXPECT_EQ(m_added[0]->getFeatureReport(b), ETIMEDOUT); }));
    printf("%f\n", secondsOf([&] { EXPECT_EQ(m_added[0]->getFeatureReport(b), ETIMEDOUT); }));
    alarm(5);
    printf("close %f\n", secondsOf([&] { m_manager.reset(); }));
    adapter->setSilent(false);
    settle();
}
