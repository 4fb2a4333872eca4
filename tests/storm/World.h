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
    World(const Script& script, Figures& figures);
    ~World() override;

    /// Plays the script; in the end everything is let go, well and quiet, and the program ends.
    /// @return what was wrong; empty for nothing
    std::string play(const Script& script);

    // For those who play a step.

    void start();
    void end(bool killed);
    void pass(double seconds);
    /// Until so many thousandths of a second after a tenth. Each kind of deed has a number of its own,
    /// because what happens at one and the same moment nobody could put in an order.
    void passUntil(int thousandths);
    void look();
    void plug(int number, bool in);
    void letGo(const std::string& how);
    /// As things stand now.
    [[nodiscard]] Oracle& oracle();
    [[nodiscard]] VirtualRunLoop& loop() { return platform.runLoop; }
    [[nodiscard]] SimulatedHidManager& desks() { return *m_desks; }
    /// The desk that is driven, or would be.
    [[nodiscard]] int desk() { return std::max(oracle().driven(), 0); }

    TestPlatform platform;
    std::unique_ptr<AppDelegate> app; ///< while it runs
    QPointer<QWidget> held, main, reminder;
    std::map<HidDeviceRef, int> numbers; ///< of the adapters
    bool isSlow = false; ///< on the cables
    double busyUntil = 0; ///< at the latest, with what began while answers were late or none came
    static inline bool s_isDiskFull = false;

private:
    void play(const Step& step);
    bool eventFilter(QObject* receiver, QEvent* event) override;

    Oracle m_oracle;
    std::unique_ptr<SimulatedHidManager> m_desks;
    std::unique_ptr<SleepAwareEventSource> m_events;
    const QAbstractButton* m_memory = nullptr;
    const QLabel *m_height = nullptr, *m_status = nullptr, *m_error = nullptr;
    bool m_hasNews = false; ///< for the event loop
};
}
