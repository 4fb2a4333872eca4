#pragma once

#include <QUrl>

#include <functional>

/// The desktop session: its screens and the machine going to sleep and waking. Callbacks run on the main run
/// loop.
class Workspace {
public:
    using Callback = std::function<void()>;

    virtual ~Workspace() = default;
    Workspace(const Workspace&) = delete;
    Workspace& operator=(const Workspace&) = delete;

    /// The screens went dark or were locked.
    void onScreensDidSleep(Callback callback) { m_screensDidSleep = std::move(callback); }
    /// The machine is awake again after a sleep.
    void onDidWake(Callback callback) { m_didWake = std::move(callback); }
    /// The machine is about to sleep; what must be safe on disk is written before this returns.
    void onWillSleep(Callback callback) { m_willSleep = std::move(callback); }

    /// The machine is about to be switched off, which nothing stops any more.
    void onWillShutDown(Callback callback) { m_willShutDown = std::move(callback); }

    /// Opens an address in the user's browser. False when nothing opened it.
    virtual bool openUrl(const QUrl& url) = 0;

protected:
    Workspace() = default;
    /// Who listened may have gone.
    static void tell(const Callback& callback)
    {
        if (callback)
            callback();
    }

    Callback m_screensDidSleep;
    Callback m_didWake;
    Callback m_willSleep;
    Callback m_willShutDown;
};
