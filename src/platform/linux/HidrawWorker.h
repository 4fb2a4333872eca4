#pragma once

#include "platform/HidMailbox.h"

#include <functional>
#include <memory>
#include <string>

/// The thread of one hidraw node, which opens it, works its mailbox and closes it. The main thread only puts
/// things into the mailbox and waits no longer than it wishes.
///
/// Each adapter has a thread of its own. The kernel lets transfers to different adapters run side by side,
/// but a silent one holds its caller for five seconds in a wait that cannot be interrupted: on a shared
/// thread every other adapter would stand still behind it. Only opening and closing a node wait for all
/// transfers under way, and these too wait here, where nobody waits for them.
///
/// Nobody joins the thread. It owns what it touches and ends by itself once its last transfer has returned,
/// so that neither pulling out a silent adapter nor ending the program takes any time.
class HidrawWorker {
public:
    using OpeningEnded = std::function<void(HidStatus)>;
    using NewsCallback = std::function<void(const HidMailbox::News&)>;

    /// The callbacks come on the main run loop, unless the worker is gone by then.
    HidrawWorker(std::string path, std::vector<uint8_t> restReport, NewsCallback onNews);
    /// A report of rest that waits still goes out, nothing else does.
    ~HidrawWorker();
    HidrawWorker(const HidrawWorker&) = delete;
    HidrawWorker& operator=(const HidrawWorker&) = delete;

    /// False where the system had no thread to give; each opening then fails.
    [[nodiscard]] bool isRunning() const { return m_startStatus == 0; }
    void open(OpeningEnded ended);
    /// Runs the request with the mailbox locked and begins what then waits in it.
    void post(const std::function<void(HidMailbox&)>& request);
    /// Waits until no such transfer is under way, but no longer than that.
    void await(HidMailbox::Direction direction, uint8_t reportId, double seconds);

private:
    struct State;
    static void run(const std::shared_ptr<State>& state, std::string path);

    std::shared_ptr<State> m_state;
    HidStatus m_startStatus = 0;
};
