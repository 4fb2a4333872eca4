#pragma once

#include <QString>

/// Tells the tour: prints each step with the virtual time of day, and counts what did not hold.
class Narrator {
public:
    void chapter(const QString& title);
    void say(const QString& text);
    /// Prints whether it held; a failure is counted and named on standard output.
    bool check(bool holds, const QString& what);

    [[nodiscard]] int checks() const { return m_checks; }
    [[nodiscard]] int failures() const { return m_failures; }
    /// The virtual time of day as hh:mm:ss.t.
    [[nodiscard]] static QString timeOfDay();

private:
    int m_checks = 0;
    int m_failures = 0;
};
