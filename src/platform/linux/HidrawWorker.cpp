#include "platform/linux/HidrawWorker.h"

#include "platform/RunLoop.h"
#include "platform/linux/HidrawNode.h"

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <system_error>
#include <thread>
#include <utility>

struct HidrawWorker::State {
    void openNode(HidrawNode& node, std::unique_lock<std::mutex>& lock);
    void transfer(HidrawNode& node, HidMailbox::Transfer transfer, std::unique_lock<std::mutex>& lock);
    void tell(std::function<void()> callable);

    RunLoop& runLoop = RunLoop::main();
    std::mutex mutex;
    std::condition_variable wake;
    std::condition_variable ended;
    HidMailbox mailbox;
    NewsCallback onNews;
    OpeningEnded opening; // Set while the node is to be opened.
    bool isStopping = false;
};

HidrawWorker::HidrawWorker(std::string path, std::vector<uint8_t> restReport, NewsCallback onNews)
    : m_state(std::make_shared<State>())
{
    m_state->mailbox.setRestReport(std::move(restReport));
    m_state->onNews = std::move(onNews);
    try {
        std::thread(run, m_state, std::move(path)).detach();
    } catch (const std::system_error& error) {
        m_startStatus = error.code().value();
    }
}

HidrawWorker::~HidrawWorker()
{
    const std::lock_guard lock(m_state->mutex);
    m_state->isStopping = true;
    m_state->mailbox.close();
    m_state->wake.notify_one();
}

void HidrawWorker::open(OpeningEnded ended)
{
    if (!isRunning()) {
        m_state->runLoop.performSoon([ended = std::move(ended), status = m_startStatus] { ended(status); });
        return;
    }
    const std::lock_guard lock(m_state->mutex);
    m_state->opening = std::move(ended);
    m_state->wake.notify_one();
}

void HidrawWorker::post(const std::function<void(HidMailbox&)>& request)
{
    std::unique_lock lock(m_state->mutex);
    request(m_state->mailbox);
    const bool hasWork = m_state->mailbox.hasNext();
    lock.unlock();
    if (hasWork) // Most requests only look: a thread that sleeps goes on sleeping.
        m_state->wake.notify_one();
}

void HidrawWorker::await(HidMailbox::Direction direction, uint8_t reportId, double seconds)
{
    std::unique_lock lock(m_state->mutex);
    m_state->ended.wait_for(lock, std::chrono::duration<double>(seconds),
        [&] { return !m_state->mailbox.isUnderWay(direction, reportId); });
}

void HidrawWorker::run(const std::shared_ptr<State>& state, std::string path)
{
    HidrawNode node(std::move(path));
    std::unique_lock lock(state->mutex);
    while (true) {
        state->wake.wait(
            lock, [&] { return state->isStopping || state->opening || state->mailbox.hasNext(); });
        if (state->opening && !state->isStopping) {
            state->openNode(node, lock);
            continue;
        }
        // What goes out at the end does not grow old, and the run loop may be gone by then.
        const double now = state->isStopping ? 0 : state->runLoop.monotonicNow();
        const HidMailbox::Transfer* next = state->mailbox.begin(now);
        if (next)
            state->transfer(node, *next, lock);
        else if (state->isStopping)
            return;
    }
}

void HidrawWorker::State::openNode(HidrawNode& node, std::unique_lock<std::mutex>& lock)
{
    const OpeningEnded openingEnded = std::exchange(opening, {});
    lock.unlock();
    const HidStatus status = node.open();
    lock.lock();
    tell([openingEnded, status] { openingEnded(status); });
}

void HidrawWorker::State::transfer(
    HidrawNode& node, HidMailbox::Transfer transfer, std::unique_lock<std::mutex>& lock)
{
    lock.unlock();
    const bool isWrite = transfer.direction == HidMailbox::Direction::Write;
    const HidStatus status = isWrite ? node.setFeature(transfer.bytes) : node.getFeature(transfer.bytes);
    lock.lock();
    const HidMailbox::News news = mailbox.end(status, std::move(transfer.bytes));
    ended.notify_all();
    if (news.kind != HidMailbox::News::Kind::None)
        tell([callback = onNews, news] { callback(news); });
}

/// The run loop outlives the worker but not this thread, so it may be called only while the lock shows that
/// the worker is there.
void HidrawWorker::State::tell(std::function<void()> callable)
{
    if (!isStopping)
        runLoop.performSoon(std::move(callable));
}
