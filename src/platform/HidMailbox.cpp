#include "platform/HidMailbox.h"

#include "platform/Log.h"

#include <algorithm>
#include <cerrno>

void HidMailbox::write(std::span<const uint8_t> report, double now)
{
    // To a lost adapter only probes go, the report of rest first; the program learns of the loss by and by.
    if (!m_isLost && !m_isClosed)
        put({Direction::Write, {report.begin(), report.end()}, now});
}

void HidMailbox::read(std::span<const uint8_t> report, double now)
{
    m_readLengths[report[0]] = report.size();
    if (!m_isLost && !m_isClosed)
        put({Direction::Read, {report.begin(), report.end()}, now});
}

void HidMailbox::put(Transfer transfer)
{
    Queue& queue = queueOf(transfer.direction);
    const auto older = std::find_if(
        queue.begin(), queue.end(), [&](const Transfer& other) { return keyOf(other) == keyOf(transfer); });
    if (older == queue.end())
        queue.push_back(std::move(transfer));
    else if (transfer.direction == Direction::Write)
        *older = std::move(transfer); // A question that waits stays the same question, and grows older.
}

bool HidMailbox::isUnderWay(Direction direction, uint8_t reportId) const
{
    const auto isIt = [&](const Transfer& transfer) { return keyOf(transfer) == Key {direction, reportId}; };
    const Queue& queue = direction == Direction::Write ? m_writes : m_reads;
    return (m_outstanding && isIt(*m_outstanding)) || std::any_of(queue.begin(), queue.end(), isIt);
}

HidStatus HidMailbox::takeAnswer(std::span<uint8_t> report, double now)
{
    if (isUnderWay(Direction::Read, report[0]))
        m_late.insert(report[0]);
    const auto answer = m_answers.find(report[0]);
    // An adapter that was not asked for a while (another one was) may have been moved meanwhile.
    if (answer == m_answers.end() || now - answer->second.askedAt > kPatienceSeconds)
        return EINPROGRESS;
    const std::vector<uint8_t>& bytes = answer->second.bytes;
    std::copy_n(bytes.begin(), std::min(bytes.size(), report.size()), report.begin());
    return 0;
}

void HidMailbox::close()
{
    m_isClosed = true;
    m_reads.clear();
    std::erase_if(m_writes, [this](const Transfer& transfer) { return transfer.bytes != m_restReport; });
}

bool HidMailbox::hasNext() const
{
    return !m_outstanding && (!m_writes.empty() || !m_reads.empty());
}

const HidMailbox::Transfer* HidMailbox::begin(double now)
{
    if (!hasNext())
        return nullptr;
    Queue& queue = m_writes.empty() || hasStarvingRead(now) ? m_reads : m_writes;
    m_outstanding = std::move(queue.front());
    queue.erase(queue.begin());
    // Nobody may hold the button any more, and the stop before this movement may have given way to it.
    if (isMovement(*m_outstanding) && now - m_outstanding->askedAt > kMovementLifeSeconds)
        m_outstanding->bytes = m_restReport;
    m_begunAt = now;
    return &*m_outstanding;
}

HidMailbox::News HidMailbox::end(HidStatus status, std::vector<uint8_t> bytes)
{
    Transfer transfer = std::move(*m_outstanding);
    m_outstanding.reset();
    if (m_isLost)
        return transfer.isProbe ? endProbe(status) : News {};
    if (status != 0)
        return failed(std::move(transfer), status);
    m_failedOnce.erase(keyOf(transfer));
    if (transfer.direction == Direction::Write)
        return {};
    const uint8_t reportId = transfer.bytes[0];
    m_answers[reportId] = {std::move(bytes), m_begunAt};
    if (!m_late.contains(reportId))
        return {};
    if (!isUnderWay(Direction::Read, reportId))
        m_late.erase(reportId);
    return {News::Kind::LateAnswer, m_answers[reportId].bytes};
}

HidMailbox::News HidMailbox::endProbe(HidStatus status)
{
    if (status != 0) {
        m_reads.clear(); // The report of rest goes first, so nothing else waits.
    } else if (m_writes.empty() && m_reads.empty() && !m_isClosed) {
        m_isLost = false;
        return {News::Kind::Found, {}};
    }
    return {};
}

HidMailbox::News HidMailbox::failed(Transfer transfer, HidStatus status)
{
    // In the words in which a transfer that fails at once is logged, so that one search finds both.
    const char* const call = transfer.direction == Direction::Write ? "Set" : "Get";
    Log::line(QString::asprintf("IOHIDDevice%sReport return value: %08x", call, unsigned(status)));
    if (!m_failedOnce.insert(keyOf(transfer)).second)
        return lose();
    // A newer report of its kind is the second try.
    const bool isWanted = !m_isClosed || transfer.bytes == m_restReport;
    if (isWanted && !isUnderWay(transfer.direction, transfer.bytes[0])) {
        Queue& queue = queueOf(transfer.direction);
        queue.insert(queue.begin(), std::move(transfer));
    }
    return {};
}

std::optional<double> HidMailbox::overdueAt() const
{
    return m_outstanding && !m_isLost ? std::optional(m_begunAt + kPatienceSeconds) : std::nullopt;
}

HidMailbox::News HidMailbox::giveUpOverdue(double now)
{
    const auto due = overdueAt();
    return due && now >= *due ? lose() : News {};
}

HidMailbox::News HidMailbox::lose()
{
    m_isLost = true;
    m_writes.clear();
    m_reads.clear();
    m_failedOnce.clear();
    m_answers.clear();
    m_late.clear();
    putRest(m_begunAt, false);
    return {News::Kind::Lost, {}};
}

void HidMailbox::probe(double now)
{
    if (!m_isLost || m_isClosed || hasNext() || (m_outstanding && m_outstanding->isProbe))
        return;
    putRest(now, true);
    for (const auto& [reportId, length] : m_readLengths) {
        Transfer question {Direction::Read, std::vector<uint8_t>(length), now, true};
        question.bytes[0] = reportId;
        put(std::move(question));
    }
}

void HidMailbox::putRest(double now, bool isProbe)
{
    if (!m_restReport.empty())
        put({Direction::Write, m_restReport, now, isProbe});
}

HidMailbox::Key HidMailbox::keyOf(const Transfer& transfer)
{
    return {transfer.direction, transfer.bytes[0]};
}

HidMailbox::Queue& HidMailbox::queueOf(Direction direction)
{
    return direction == Direction::Write ? m_writes : m_reads;
}

bool HidMailbox::hasStarvingRead(double now) const
{
    const bool onlyMovementsWait = std::all_of(
        m_writes.begin(), m_writes.end(), [this](const Transfer& transfer) { return isMovement(transfer); });
    return onlyMovementsWait && !m_reads.empty() && now - m_reads.front().askedAt > kReadPatienceSeconds;
}

bool HidMailbox::isMovement(const Transfer& transfer) const
{
    return transfer.direction == Direction::Write && !m_restReport.empty()
        && transfer.bytes[0] == m_restReport[0] && transfer.bytes != m_restReport;
}
