#include "platform/linux/HidrawWorker.h"

#include "platform/qt/QtRunLoop.h"

#include <future>
#include <gtest/gtest.h>
#include <memory>
#include <unistd.h>

namespace {
/// A job that hangs as a silent adapter does, until the test lets it go.
class Hang {
public:
    [[nodiscard]] HidrawWorker::Job job()
    {
        return [this, released = m_release.get_future().share()](HidrawNode&) {
            m_begun.set_value();
            released.wait();
            return 0;
        };
    }
    void waitUntilBegun() { m_begun.get_future().wait(); }
    void release() { m_release.set_value(); }

private:
    std::promise<void> m_begun;
    std::promise<void> m_release;
};
}

TEST(HidrawWorker, beginsNoJobThatItsCallerGaveUp)
{
    QtRunLoop runLoop;
    RunLoop::setMain(&runLoop);
    Hang hang;
    HidrawWorker worker("/nowhere");
    worker.perform(hang.job(), [](HidStatus) {});
    hang.waitUntilBegun();
    bool ran = false;
    EXPECT_FALSE(worker.performWithin(0.01, [&](HidrawNode&) {
        ran = true;
        return 0;
    }));
    hang.release();
    while (worker.performWithin(1, [](HidrawNode&) { return 7; }) != 7)
        usleep(1000);
    EXPECT_FALSE(ran);
    RunLoop::setMain(nullptr);
}

TEST(HidrawWorker, leavesARunLoopAloneThatItMayHaveOutlived)
{
    auto runLoop = std::make_unique<QtRunLoop>();
    RunLoop::setMain(runLoop.get());
    Hang hang;
    auto token = std::make_shared<int>();
    const std::weak_ptr<int> thread = token;
    auto worker = std::make_unique<HidrawWorker>("/nowhere");
    worker->perform(
        hang.job(), [token = std::move(token)](HidStatus) { FAIL() << "called back after its end"; });
    hang.waitUntilBegun();
    worker.reset();
    RunLoop::setMain(nullptr);
    runLoop.reset();
    hang.release();
    while (!thread.expired())
        usleep(1000);
}
