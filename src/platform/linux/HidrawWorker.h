#pragma once

#include "platform/linux/HidrawNode.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>

/// The thread of one hidraw node. The node is born, used and closed on it; the main thread hands it one job
/// at a time and waits no longer than it wishes.
///
/// Each adapter has a thread of its own. The kernel lets transfers to different adapters run side by side,
/// but a silent one holds its caller for five seconds in a wait that nothing ends: on a shared thread every
/// other adapter would stand still behind it. Only opening and closing a node wait for all transfers under
/// way, and these too wait here, where nobody waits for them.
///
/// Nobody joins the thread. It owns what it touches and ends by itself once its last job has returned, so
/// that neither pulling out a silent adapter nor ending the program takes any time.
class HidrawWorker {
public:
    using Job = std::function<HidStatus(HidrawNode&)>;
    using Completion = std::function<void(HidStatus)>;

    explicit HidrawWorker(std::string path);
    /// Drops the jobs not begun; the node is closed once the running one has returned.
    ~HidrawWorker();
    HidrawWorker(const HidrawWorker&) = delete;
    HidrawWorker& operator=(const HidrawWorker&) = delete;

    /// Runs the job after those already waiting, then the completion on the main run loop, unless the worker
    /// is gone when the job returns.
    void perform(Job job, Completion completion);

    /// Runs the job and waits for its result. Nothing when it has not returned in time, and at once when the
    /// thread is still busy with another one. A job that has not begun in time never begins: a command to
    /// move must not go out after its button was let go.
    [[nodiscard]] std::optional<HidStatus> performWithin(double seconds, Job job);

private:
    struct State;
    static void run(const std::shared_ptr<State>& state, std::string path);

    std::shared_ptr<State> m_state;
    HidStatus m_startStatus = 0;
};
