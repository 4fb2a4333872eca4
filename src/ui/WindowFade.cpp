#include "ui/WindowFade.h"

#include "ui/WindowSystem.h"

#include <QWidget>

namespace {
constexpr double kFrameSeconds = 0.025;
}

WindowFade::WindowFade(QWidget& window)
    : m_window(window)
{
}

void WindowFade::fadeIn()
{
    setOpacity(0.0);
    if (m_window.isMinimized())
        m_window.hide(); // Desktops give the keyboard to an open window that is taken back.
    WindowSystem::restore(m_window);
    m_window.show();
    m_window.raise();
    start(Direction::In);
}

void WindowFade::fadeOut()
{
    // A window that is leaving goes on: from the start again it would flash up once more.
    if (m_window.isVisible() && !isFadingOut())
        start(Direction::Out);
}

bool WindowFade::isFadingOut() const
{
    return m_direction == Direction::Out && m_timer && m_timer->isValid();
}

void WindowFade::start(Direction direction)
{
    invalidate(m_timer);
    m_direction = direction;
    m_startedAt = RunLoop::main().monotonicNow();
    m_startedFrom = m_window.windowOpacity();
    m_timer = m_timers.schedule(
        kFrameSeconds, RunLoop::Repeat::Yes, [this](Timer&) { step(); }, {}, RunLoop::Precision::Precise);
}

void WindowFade::step()
{
    const double elapsed = RunLoop::main().monotonicNow() - m_startedAt;
    const bool isLastFrame = elapsed > kSeconds - kFrameSeconds / 2;
    const double done = isLastFrame ? 1.0 : elapsed / kSeconds;
    setOpacity(m_direction == Direction::In ? done : m_startedFrom * (1.0 - done));
    if (!isLastFrame)
        return;
    invalidate(m_timer);
    if (m_direction == Direction::Out) {
        m_window.hide();
        setOpacity(1.0);
    }
}

void WindowFade::setOpacity(double opacity)
{
    if (!WindowSystem::isWayland()) // It only warns there.
        m_window.setWindowOpacity(opacity);
}
