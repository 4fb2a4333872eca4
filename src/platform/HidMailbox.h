#pragma once

#include "platform/HidManager.h"

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <span>
#include <utility>
#include <vector>

/// Decides what goes over the wire to one adapter, and in which order. It knows neither threads nor clocks:
/// whoever works the wire asks begin() for the next transfer and tells end() what came of it. Times are the
/// run loop's monotonic seconds.
///
/// One transfer is outstanding at most. Written reports wait in order, before reads, one for each report ID:
/// a newer one takes the place of one that has not begun. A read that has waited for a second goes before a
/// movement, or a slow adapter's height would not be known while a button is held. A movement that has waited
/// too long is not sent any more; the report that puts the adapter to rest goes out in its place, and never
/// grows old.
///
/// A transfer that failed is tried once more. When that fails too, or after five seconds without an answer,
/// the adapter is lost: what waits is dropped, the report of rest is sent as soon as the wire is free, and
/// probe() finds out when the adapter answers again.
class HidMailbox {
public:
    static constexpr double kPatienceSeconds = 5.0;
    static constexpr double kMovementLifeSeconds = 0.25;
    static constexpr double kReadPatienceSeconds = 1.0;

    enum class Direction { Write, Read };
    struct Transfer {
        Direction direction;
        std::vector<uint8_t> bytes; ///< byte 0 is the report ID
        double askedAt;
        bool isProbe = false;
    };

    /// What the end of a transfer means to the program.
    struct News {
        enum class Kind { None, LateAnswer, Lost, Found };
        Kind kind = Kind::None;
        std::vector<uint8_t> answer; ///< the report of a LateAnswer
    };

    /// Reports with this one's ID move something, and this one stops it. It is also the first probe.
    void setRestReport(std::vector<uint8_t> report) { m_restReport = std::move(report); }

    // The program's side.
    void write(std::span<const uint8_t> report, double now);
    void read(std::span<const uint8_t> report, double now);
    /// Whether such a transfer waits or is outstanding.
    [[nodiscard]] bool isUnderWay(Direction direction, uint8_t reportId) const;
    /// Copies the last answer into the buffer. An answer that is still under way is told of by end() later;
    /// EINPROGRESS when there has been none before it either, or only one that nobody would believe any more.
    [[nodiscard]] HidStatus takeAnswer(std::span<uint8_t> report, double now);
    /// Nothing but a report of rest that waits goes out from now on.
    void close();

    // The wire's side.
    [[nodiscard]] bool hasNext() const;
    /// The next transfer, outstanding from now on; null when there is none or one is outstanding.
    [[nodiscard]] const Transfer* begin(double now);
    /// Ends the outstanding transfer.
    [[nodiscard]] News end(HidStatus status, std::vector<uint8_t> bytes);

    // The watch.
    /// When the outstanding transfer has lasted too long; nothing without one or while the adapter is lost.
    [[nodiscard]] std::optional<double> overdueAt() const;
    [[nodiscard]] News giveUpOverdue(double now);
    /// Asks a lost adapter to answer: the report of rest, and each report that was ever read.
    void probe(double now);
    [[nodiscard]] bool isLost() const { return m_isLost; }

private:
    struct Answer {
        std::vector<uint8_t> bytes;
        double askedAt; ///< when its transfer began
    };
    using Key = std::pair<Direction, uint8_t>;
    using Queue = std::vector<Transfer>;

    [[nodiscard]] static Key keyOf(const Transfer& transfer);
    [[nodiscard]] Queue& queueOf(Direction direction);
    [[nodiscard]] bool hasStarvingRead(double now) const;
    [[nodiscard]] bool isMovement(const Transfer& transfer) const;
    void put(Transfer transfer);
    [[nodiscard]] News endProbe(HidStatus status);
    [[nodiscard]] News failed(Transfer transfer, HidStatus status);
    [[nodiscard]] News lose();
    void putRest(double now, bool isProbe);

    std::vector<uint8_t> m_restReport;
    Queue m_writes;
    Queue m_reads;
    std::optional<Transfer> m_outstanding;
    double m_begunAt = 0;
    std::set<Key> m_failedOnce;
    std::map<uint8_t, Answer> m_answers;
    std::map<uint8_t, size_t> m_readLengths; ///< of the reports ever read
    std::set<uint8_t> m_late; ///< reports whose reader went on without an answer
    bool m_isLost = false;
    bool m_isClosed = false;
};
