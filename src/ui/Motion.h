#pragma once

/// Whether things on the screen move to their new places or just stand there, as the desktop's user prefers.
class Motion {
public:
    [[nodiscard]] static bool isReduced() { return s_isReduced; }
    static void setReduced(bool reduced) { s_isReduced = reduced; }

private:
    static inline bool s_isReduced = false;
};
