#include "platform/qt/QtRunLoop.h"

#include <QTimer>

#include <algorithm>
#include <cmath>
#include <ctime>
#include <utility>

namespace {
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
        : Timer(seconds, std::move(userInfo))
        , m_loop(loop)
        , m_callback(std::move(callback))
        , m_repeats(repeats)
        , m_remaining(seconds)
    {
        m_timer.setTimerType(timerType(precision));
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { legEnded(); });
    }

    void start()
    {
        const double leg = std::min(m_remaining, m_loop.m_longestLegSeconds);
        m_remaining -= leg;
        const bool whole = m_remaining <= 0 && leg == intervalSeconds();
        m_timer.setSingleShot(m_repeats == Repeat::No || !whole);
        m_timer.start(int(std::ceil(leg * 1000.0)));
    }

protected:
    void stop() override
    {
        const TimerRef keepAlive = shared_from_this();
        m_timer.stop();
        m_loop.m_liveTimers.erase(keepAlive);
    }

private:
    void legEnded()
    {
        const TimerRef keepAlive = shared_from_this();
        if (m_remaining > 0) {
            start();
            return;
        }
        if (m_repeats == Repeat::No)
            invalidate();
        else if (m_timer.isSingleShot())
            restart();
        m_callback(*this);
    }

    void restart()
    {
        m_remaining = intervalSeconds();
        start();
    }

    QtRunLoop& m_loop;
    QTimer m_timer;
    TimerCallback m_callback;
    Repeat m_repeats;
    double m_remaining;
};

QtRunLoop::QtRunLoop(double longestLegSeconds)
    : m_longestLegSeconds(longestLegSeconds)
{
}

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
    timer->start();
    return timer;
}
