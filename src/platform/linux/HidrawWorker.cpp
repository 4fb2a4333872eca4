#include "platform/linux/HidrawWorker.h"

#include "platform/RunLoop.h"

#include <cerrno>
#include <chrono>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <system_error>
#include <thread>
#include <utility>

struct HidrawWorker::State {
    struct Task {
        Job job;
        Completion completion;
    };

    [[nodiscard]] bool isIdle() const { return tasks.empty() && !isRunning; }

    RunLoop& runLoop = RunLoop::main();
    std::mutex mutex;
    std::condition_variable wake;
    std::condition_variable idle;
    std::deque<Task> tasks;
    bool isRunning = false;
    bool isStopping = false;
    HidStatus lastResult = 0;
};

HidrawWorker::HidrawWorker(std::string path)
    : m_state(std::make_shared<State>())
{
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
    m_state->tasks.clear();
    m_state->wake.notify_one();
}

void HidrawWorker::perform(Job job, Completion completion)
{
    if (m_startStatus != 0) {
        m_state->runLoop.performSoon(
            [completion = std::move(completion), status = m_startStatus] { completion(status); });
        return;
    }
    const std::lock_guard lock(m_state->mutex);
    m_state->tasks.push_back({std::move(job), std::move(completion)});
    m_state->wake.notify_one();
}

std::optional<HidStatus> HidrawWorker::performWithin(double seconds, Job job)
{
    if (m_startStatus != 0)
        return m_startStatus;
    std::unique_lock lock(m_state->mutex);
    if (!m_state->isIdle())
        return std::nullopt;
    m_state->tasks.push_back({std::move(job), {}});
    m_state->wake.notify_one();
    const bool ended = m_state->idle.wait_for(
        lock, std::chrono::duration<double>(seconds), [this] { return m_state->isIdle(); });
    m_state->tasks.clear();
    return ended ? std::optional(m_state->lastResult) : std::nullopt;
}

void HidrawWorker::run(const std::shared_ptr<State>& state, std::string path)
{
    HidrawNode node(std::move(path));
    std::unique_lock lock(state->mutex);
    while (true) {
        state->wake.wait(lock, [&] { return state->isStopping || !state->tasks.empty(); });
        if (state->isStopping)
            break;
        const State::Task task = std::move(state->tasks.front());
        state->tasks.pop_front();
        state->isRunning = true;
        lock.unlock();
        const HidStatus result = task.job(node);
        lock.lock();
        state->isRunning = false;
        state->lastResult = result;
        state->idle.notify_one();
        // The run loop outlives the worker but not this thread, so it may be called only while the lock shows
        // that the worker is there.
        if (task.completion && !state->isStopping)
            state->runLoop.performSoon([completion = task.completion, result] { completion(result); });
    }
}
