#pragma once

#include <optional>

/// Finds out whether somebody counts idle time in seconds or in milliseconds, by how fast it grows.
class IdleUnit {
public:
    /// @param reading an idle time in the unknown unit. @param at when it was read, in seconds.
    /// The reading in seconds; nothing while it could mean either.
    [[nodiscard]] std::optional<double> seconds(double reading, double at);

private:
    void compare(double grown, double passed);

    struct Reading {
        double value;
        double at;
    };
    std::optional<Reading> m_last;
    std::optional<double> m_perSecond; ///< counts in a second
    int m_stepsWithTime = 0;
};
