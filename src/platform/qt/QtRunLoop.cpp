#include "platform/qt/QtRunLoop.h"

#include <QTimer>

#include <algorithm>
#include <cmath>
#include <ctime>
#include <utility>

namespace {
constexpr double kMillisecondsPerSecond = 1000;
/// QTimer counts milliseconds in an int, which holds a little more.
constexpr double kLongestSeconds = 24.0 * 86400;
/// Qt itself sees to it that longer coarse timers wake on full seconds.
constexpr int kLongestSoughtMilliseconds = 5000;

double clockSeconds(clockid_t clock)
{
    timespec time {};
    clock_gettime(clock, &time);
    return double(time.tv_sec) + double(time.tv_nsec) * 1e-9;
}

Qt::TimerType timerType(RunLoop::Precision precision)
{
    // Not a very coarse one: that may end its first second after 0.6 s.
    return precision == RunLoop::Precision::Precise ? Qt::PreciseTimer : Qt::CoarseTimer;
}
}

class QtRunLoop::QtTimer final : public Timer, public std::enable_shared_from_this<QtTimer> {
public:
    QtTimer(QtRunLoop& loop, double seconds, Repeat repeats, TimerCallback callback, QVariant userInfo,
        Precision precision)
        : Timer(std::move(userInfo))
        , m_loop(loop)
        , m_callback(std::move(callback))
        , m_milliseconds(int(std::ceil(std::min(seconds, kLongestSeconds) * kMillisecondsPerSecond)))
        , m_isSeekingFullSecond(precision == Precision::Coarse && m_milliseconds % 1000 == 0
              && m_milliseconds < kLongestSoughtMilliseconds)
    {
        m_timer.setTimerType(timerType(precision));
        m_timer.setSingleShot(repeats == Repeat::No);
        m_timer.setInterval(m_milliseconds);
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { fire(); });
        m_timer.start();
    }

protected:
    void stop() override
    {
        const TimerRef keepAlive = shared_from_this();
        m_timer.stop();
        m_loop.m_liveTimers.erase(keepAlive);
    }

private:
    void fire()
    {
        const TimerRef keepAlive = shared_from_this();
        if (m_timer.isSingleShot())
            invalidate();
        else if (m_isSeekingFullSecond)
            seekFullSecond();
        m_callback(*this);
    }

    /// Left alone, a coarse timer of a second comes to rest on half seconds as readily as on full ones, and
    /// then shares no wake-up with the longer timers. A twentieth late each time, it is among them soon.
    void seekFullSecond()
    {
        constexpr double kNearHalf = 0.25;
        const double now = m_loop.monotonicNow();
        const bool isNearHalf = std::abs(now - std::floor(now) - 0.5) < kNearHalf;
        const int interval = isNearHalf ? m_milliseconds + m_milliseconds / 20 : m_milliseconds;
        if (m_timer.interval() != interval)
            m_timer.setInterval(interval);
    }

    QtRunLoop& m_loop;
    QTimer m_timer;
    TimerCallback m_callback;
    const int m_milliseconds;
    const bool m_isSeekingFullSecond;
};

QtRunLoop::~QtRunLoop()
{
    while (!m_liveTimers.empty())
        (*m_liveTimers.begin())->invalidate();
}

double QtRunLoop::now() const
{
    return clockSeconds(CLOCK_REALTIME);
}

double QtRunLoop::monotonicNow() const
{
    return clockSeconds(CLOCK_MONOTONIC);
}

double QtRunLoop::bootTimeNow() const
{
    return clockSeconds(CLOCK_BOOTTIME);
}

void QtRunLoop::performSoon(std::function<void()> callable)
{
    QMetaObject::invokeMethod(&m_context, std::move(callable), Qt::QueuedConnection);
}

TimerRef QtRunLoop::platformScheduleTimer(
    double seconds, Repeat repeats, TimerCallback callback, QVariant userInfo, Precision precision)
{
    auto timer = std::make_shared<QtTimer>(
        *this, seconds, repeats, std::move(callback), std::move(userInfo), precision);
    m_liveTimers.insert(timer);
    return timer;
}
