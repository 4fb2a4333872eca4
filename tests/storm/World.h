#pragma once

#include "fakes/TestPlatform.h"
#include "platform/SleepAwareEventSource.h"
#include "platform/qt/QtUserDefaults.h"
#include "platform/simulated/SimulatedHidManager.h"
#include "shell/AppDelegate.h"
#include "storm/Oracle.h"

#include <QPointer>

#include <memory>
#include <optional>

namespace storm {
/// The whole program on the virtual run loop, with the simulated desks, a user and a disk around it. Plays a
/// script and tells the oracle what happens.
class World final : public QObject {
public:
    explicit World(const Script& script);
    ~World() override;

    /// Plays the script; in the end everything is let go, well and quiet, and the program ends.
    void play();
    [[nodiscard]] const Oracle& oracle() const { return m_oracle; }
    /// Timers that run when all is quiet.
    [[nodiscard]] size_t quietTimers() const { return m_quietTimers; }

    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    void start();
    void end(bool killed);
    void pass(double seconds);
    void look();
    void play(const Step& step);
    void open();
    static void close(const char* name);
    void leave();
    void comeBack();
    void darken();
    void announceSleep();
    void tellOfWake();
    void setClock(double by);
    void press(int variant);
    void letGo(int variant);
    void sleep(const Step& step);
    void freeze(double seconds);
    void set(int variant, double value);
    void setDisk(bool full);
    void setWire(const std::string& how, double value);
    void setError(int variant);
    void answer(const std::string& how);
    void plug(int adapter);
    void unplug(int adapter);
    void tellOfError();
    void quiet();
    [[nodiscard]] double now() const { return m_platform.runLoop.bootTimeNow(); }
    [[nodiscard]] static QWidget* window(const char* name);

    const Script& m_script;
    TestPlatform m_platform;
    Oracle m_oracle;
    class User;
    std::unique_ptr<User> m_user;
    FakeWorkspace m_workspace;
    FakeLoginItems m_loginItems;
    FakeDialogs m_dialogs;
    SimulatedHidManager m_hid;
    std::unique_ptr<QtUserDefaults> m_defaults;
    std::optional<ProcessServices> m_process;
    std::unique_ptr<SleepAwareEventSource> m_events;
    std::unique_ptr<AppDelegate> m_app;
    QPointer<QWidget> m_held;
    QPointer<QWidget> m_errorLine; ///< of the main window, once there is one
    double m_lastMotion = 0, m_rowsWaitUntil = 0;
    struct Slept {
        double at, seconds; ///< on the clock that stands still meanwhile
    };
    std::vector<Slept> m_sleeps;
    size_t m_quietTimers = 0;
    int m_shownWindows = 0;
    bool m_ended = false;
    double m_lostUntil = 0; ///< adapters may be gone and come back
};
}
