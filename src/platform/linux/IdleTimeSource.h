#pragma once

#include "platform/EventSource.h"
#include "platform/linux/IdleBackend.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

class QDBusConnection;

/// The desktop's idle time from the best backend that answers. Each refresh asks them in their order, so one
/// that is gone is replaced by the next, and by a better one as soon as that is back. The log names the
/// backend that is in use, at the start and when it changes.
///
/// Another backend may know nothing of the time before it began. It never takes back input that was known
/// already, and while one restarts the absence that went on goes on: for some seconds without any answer the
/// last input stays where it was. After that nothing can tell, and the user counts as active.
class IdleTimeSource final : public EventSource {
public:
    using Backends = std::vector<std::unique_ptr<IdleBackend>>;

    /// @param makeBackends makes them, best first, when they are asked for the first time.
    explicit IdleTimeSource(std::function<Backends()> makeBackends);

    [[nodiscard]] double secondsSinceLastEventType(EventType eventType) override;
    void refresh(std::function<void()> ready) override;
    [[nodiscard]] bool canTell() const override { return m_chosen != m_backends.size(); }
    [[nodiscard]] QString name() const override;

private:
    void askFrom(std::size_t rank, const std::function<void()>& ready);
    void learn(std::size_t rank, double lastInputAt);
    void nobodyAnswered();
    void choose(std::size_t rank);

    std::function<Backends()> m_makeBackends;
    Backends m_backends; ///< none until the first question
    std::optional<std::size_t> m_chosen; ///< one past the last for none
    unsigned m_looks = 0; ///< so many times the backends were asked
    // Instants on the monotonic clock.
    std::optional<double> m_lastInputAt;
    std::optional<double> m_knownBefore; ///< the last input that was known when the backend was chosen
    std::optional<double> m_answeredAt;
    int m_looksInVain = 0; ///< since then
};

/// The idle time of this session, time asleep included.
std::unique_ptr<EventSource> makeIdleTimeSource(const QDBusConnection& sessionBus);
