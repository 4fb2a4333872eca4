#include "platform/linux/IdleTimeSource.h"

#include "platform/Log.h"
#include "platform/NotificationCenter.h"
#include "platform/RunLoop.h"
#include "platform/SleepAwareEventSource.h"
#include "platform/linux/DisplayServer.h"
#include "platform/linux/ExtIdleBackend.h"
#include "platform/linux/GnomeIdleBackend.h"
#include "platform/linux/KdeIdleBackend.h"
#include "platform/linux/ScreenSaverIdleBackend.h"
#include "platform/linux/X11IdleBackend.h"

#include <algorithm>
#include <utility>

namespace {
/// A compositor that crashed is back sooner.
constexpr double kRestartSeconds = 25.0;
/// A program that was held up itself looks late, and once is no sign of anything.
constexpr int kLooksInVain = 2;
}

IdleTimeSource::IdleTimeSource(std::function<Backends()> makeBackends)
    : m_makeBackends(std::move(makeBackends))
{
}

double IdleTimeSource::secondsSinceLastEventType(EventType)
{
    return m_lastInputAt ? std::max(0.0, RunLoop::main().monotonicNow() - *m_lastInputAt) : 0;
}

void IdleTimeSource::refresh(std::function<void()> ready)
{
    if (m_looks++ == 0)
        m_backends = m_makeBackends();
    askFrom(0, ready);
}

void IdleTimeSource::askFrom(std::size_t rank, const std::function<void()>& ready)
{
    if (rank == m_backends.size()) {
        nobodyAnswered();
        ready();
        return;
    }
    m_backends[rank]->ask([this, rank, ready, look = m_looks](std::optional<double> lastInputAt) {
        if (look != m_looks)
            return; // It came too late for its look.
        if (!lastInputAt)
            return askFrom(rank + 1, ready);
        learn(rank, *lastInputAt);
        ready();
    });
}

void IdleTimeSource::learn(std::size_t rank, double lastInputAt)
{
    if (m_chosen != rank)
        m_knownBefore = m_lastInputAt;
    choose(rank);
    m_lastInputAt = std::max(lastInputAt, m_knownBefore.value_or(lastInputAt));
    m_answeredAt = RunLoop::main().monotonicNow();
    m_looksInVain = 0;
}

void IdleTimeSource::nobodyAnswered()
{
    const double now = RunLoop::main().monotonicNow();
    ++m_looksInVain;
    if (m_answeredAt && (now - *m_answeredAt <= kRestartSeconds || m_looksInVain < kLooksInVain))
        return;
    choose(m_backends.size());
    m_lastInputAt = now;
}

void IdleTimeSource::choose(std::size_t rank)
{
    const bool couldTell = canTell();
    if (std::exchange(m_chosen, rank) == rank)
        return;
    Log::line(QStringLiteral("Idle time comes from: %1").arg(name()));
    if (canTell() != couldTell)
        NotificationCenter::defaultCenter().post(kCanTellDidChange);
}

QString IdleTimeSource::name() const
{
    if (!m_chosen)
        return {};
    return canTell() ? m_backends[*m_chosen]->name() : QStringLiteral("none, absences go unnoticed");
}

namespace {
IdleTimeSource::Backends makeBackends(const QDBusConnection& sessionBus)
{
    IdleTimeSource::Backends backends;
    if (isWaylandSession()) {
        backends.push_back(std::make_unique<ExtIdleBackend>());
        backends.push_back(std::make_unique<KdeIdleBackend>());
    }
    backends.push_back(std::make_unique<GnomeIdleBackend>(sessionBus));
    if (!isWaylandSession())
        backends.push_back(std::make_unique<X11IdleBackend>());
    backends.push_back(std::make_unique<ScreenSaverIdleBackend>(sessionBus));
    return backends;
}
}

std::unique_ptr<EventSource> makeIdleTimeSource(const QDBusConnection& sessionBus)
{
    return std::make_unique<SleepAwareEventSource>(
        std::make_unique<IdleTimeSource>([sessionBus] { return makeBackends(sessionBus); }));
}
