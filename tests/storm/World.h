#pragma once

#include "fakes/TestPlatform.h"
#include "shell/AppDelegate.h"
#include "storm/Oracle.h"

#include <QAbstractButton>
#include <QLabel>
#include <QPointer>

#include <memory>

namespace storm {
/// The whole program on a simulated desktop with two desks. Plays a script and tells the oracle what happens.
class World final : public QObject {
public:
    World(const Script& script, Oracle::Figures& figures);
    ~World() override;

    /// Plays the script; in the end everything is let go, well and quiet, and the program ends.
    void play();
    /// As things stand now.
    [[nodiscard]] Oracle& oracle();

    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    /// The cables: tells the oracle which adapters are taken up and given up.
    class Bus;

    void start();
    void end(bool killed);
    void pass(double seconds);
    /// Until so many thousandths of a second after a tenth. Each kind of deed has a number of its own,
    /// because what happens at one and the same moment nobody could put in an order.
    void passUntil(int thousandths);
    void look();
    void play(const Step& step);
    void wait(const Step&) { }
    void press(const Step& step);
    void letGo(const Step& step);
    void openOrClose(const Step& step);
    void answer(const Step& step);
    void setUser(const Step& step);
    void darken(const Step& step);
    void signal(const Step& step);
    void sleep(const Step& step);
    void freeze(const Step& step);
    void setClock(const Step& step);
    void travel(const Step& step);
    void set(const Step& step);
    void setWire(const Step& step);
    void setError(const Step& step);
    void moveByHandset(const Step& step);
    void plug(const Step& step);
    void unplug(const Step& step);
    void restart(const Step& step);
    [[nodiscard]] VirtualRunLoop& loop() { return m_platform.runLoop; }
    [[nodiscard]] SimulatedHidManager& desks() { return m_platform.hid; }
    /// The desk that is driven, or would be.
    [[nodiscard]] int desk() const { return std::max(m_oracle.driven(), 0); }

    const Script& m_script;
    TestPlatform m_platform;
    Oracle m_oracle;
    std::unique_ptr<Bus> m_bus;
    std::unique_ptr<SleepAwareEventSource> m_events;
    std::unique_ptr<AppDelegate> m_app; ///< while it runs
    QPointer<QWidget> m_held, m_main, m_reminder;
    double m_startedAt = 0;
    const QAbstractButton* m_memory = nullptr;
    const QLabel *m_height = nullptr, *m_status = nullptr, *m_error = nullptr;
    bool m_isSlow = false;
    bool m_hasNews = false; ///< for the event loop
};
}
