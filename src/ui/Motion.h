#pragma once

#include <functional>
#include <utility>

/// Whether things on the screen move to their new places or just stand there, as the desktop's user prefers.
class Motion {
public:
    [[nodiscard]] static bool isReduced() { return s_isReduced; }
    static void setReduced(bool reduced) { s_isReduced = reduced; }

    /// Called when something that moves is shown for the first time, to find out what the desktop prefers.
    static void whenNeeded(std::function<void()> ask) { s_ask = std::move(ask); }
    static void need()
    {
        if (const auto ask = std::exchange(s_ask, nullptr))
            ask();
    }

private:
    static inline std::function<void()> s_ask;
    static inline bool s_isReduced = false;
};
