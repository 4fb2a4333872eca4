#pragma once

#include "platform/RunLoop.h"

class QWidget;

/// Fades a window in and out over 0.4 s. A fade that starts ends the one that runs. Where the window system
/// cannot fade, the window comes at once and goes at the end.
class WindowFade {
public:
    static constexpr double kSeconds = 0.4;

    explicit WindowFade(QWidget& window);

    void fadeIn();
    /// Hides the window at the end and leaves it opaque, so that the next fadeIn() starts from a clean state.
    void fadeOut();
    [[nodiscard]] bool isFadingOut() const;

private:
    enum class Direction { In, Out };

    void start(Direction direction);
    void step();
    void setOpacity(double opacity);

    QWidget& m_window;
    Direction m_direction = Direction::In;
    double m_startedAt = 0;
    double m_startedFrom = 0; ///< the opacity then; a window that still comes goes from there
    TimerRef m_timer;
    TimerScope m_timers;
};
