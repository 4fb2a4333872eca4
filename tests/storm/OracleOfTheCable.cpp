#include "storm/Oracle.h"

#include <utility>

namespace storm {
constexpr uint8_t kMovementReport = 5;

// Adapters, their reports, and what a held button sends.

void Oracle::plugged(int adapter, bool in)
{
    m_isPlugged[size_t(adapter)] = in;
    m_goodSince = std::max(m_goodSince, m_now);
}

void Oracle::wire(bool isHeard, bool isGood, double seconds)
{
    if (m_latency > 0 && m_latency < kNever) // What is under way takes what it took when it began.
        m_quickSince = m_now + kPoll + std::max(4 * kSlowest, m_latency);
    if (!m_isGood)
        m_goodSince = m_now + 2 * kPatience;
    m_isHoldExact = false;
    m_deafSince = isHeard ? kNever : std::min(m_deafSince, m_now);
    m_isHeard = isHeard;
    m_isGood = isGood;
    m_latency = seconds;
}

void Oracle::matched(int adapter)
{
    if (!m_isPlugged[size_t(adapter)])
        fail("an adapter is taken up that is not there");
    endHold();
    adopt(adapter);
    if (m_latency == 0)
        m_quickSince = std::min(m_quickSince, m_now); // Nothing slow is under way to one that was lost.
}

void Oracle::adopt(int adapter)
{
    m_adapters.push_back(adapter);
    m_drivenSince = m_now;
    m_readAt = m_now + kCheck;
    if (m_adapters.size() == 1)
        m_nextPoll = m_checkedAt = m_now + kCheck;
    m_hadTwo = m_hadTwo || m_adapters.size() > 1;
}

void Oracle::removed(int adapter)
{
    if (m_isPlugged[size_t(adapter)] && m_isGood && m_now > m_goodSince)
        fail("an adapter that answers is given up");
    m_lastCommand.erase(adapter);
    m_answers.erase(adapter);
    m_readAt = m_drivenSince = m_errorOverAt = m_now;
    const bool wasFirst = m_adapters.front() == adapter;
    m_isHeld = m_isHeld && !wasFirst;
    std::erase(m_adapters, adapter);
    if (!wasFirst)
        return endHold(); // Its stop goes to the one that is driven now, and asks that one's height.
    m_polledSince = m_nextPoll = kNever;
    m_height = 0;
    m_posture = None;
    m_hasError = false;
    endHold();
    close();
    if (const std::vector<int> waiting = std::exchange(m_adapters, {}); !waiting.empty())
        adopt(waiting.front()); // It is taken up anew.
}

void Oracle::transferred(const Transfer& transfer)
{
    if (!m_running)
        return;
    if (transfer.duration > kWait && isTakenUp(transfer.adapter))
        m_lateAt = m_now; // And what has waited behind it is late as well.
    if (!transfer.isRead) {
        m_writtenAt = m_now;
        return transfer.bytes[0] == kMovementReport ? commanded(transfer) : void();
    }
    if (std::exchange(m_remindedAt, -1) >= 0)
        runTimers(m_now); // A question is late by a standstill, and so are those that are due before it.
    // What is not taken up is only tried, to find out whether it answers again.
    if (!transfer.isOk || !isTakenUp(transfer.adapter))
        return;
    m_answers[transfer.adapter] = {transfer.bytes, m_now - transfer.duration};
    // Only the stop of a hold that another adapter ends is heard of through the one before.
    if (transfer.adapter != driven() && !isNear(m_now, m_drivenSince))
        return;
    const bool isLate = isNear(m_now, m_lateAt);
    m_readAt = m_now;
    if (!isLate && isNear(m_now, std::max(m_nextPoll, m_frozenUntil)))
        m_nextPoll = next(m_nextPoll, kPoll);
    if (isLate || isItsTurn())
        hear(transfer.bytes);
}

/// Each of two adapters is asked for in a rhythm of its own, through the same cable; only the first one is
/// listened to.
bool Oracle::isItsTurn() const
{
    const bool isNewCable = isNear(m_now, m_drivenSince);
    const bool isWritten = isNear(m_now, m_writtenAt);
    if (isNear(m_now, m_polledSince)) // Nobody looks at the height in the check.
        return isWritten && !isNewCable;
    if (isWritten || m_adapters.size() == 1)
        return true;
    const double from = isNear(m_now, m_frozenUntil) ? m_frozenFrom : m_now - kMoment;
    const auto polls = [&](double at) { return std::floor((at - m_polledSince) / kPoll + kRounding); };
    if (isAsking())
        return polls(m_now) > polls(from);
    return isNewCable || (m_checkedAt > from && m_checkedAt < m_now + kRounding);
}

/// The standing point lies in the middle between the first two memory positions; the height is judged when it
/// changes, and not when they do.
void Oracle::hear(const std::vector<uint8_t>& report)
{
    if (!isAsking()) {
        if (m_now >= m_checkedAt - kRounding && report[2] & 1)
            m_nextPoll = kPoll + (m_polledSince = m_now);
        return;
    }
    const bool hadError = std::exchange(m_hasError, report[3] & 2);
    if (m_hasError || hadError)
        (m_hasError ? m_errorAt : m_errorOverAt) = m_now;
    const int height = report[4] | report[5] << 8;
    if (std::exchange(m_height, height) == height)
        return;
    const int middle = (int(setting("DevicePosition1")) + int(setting("DevicePosition2"))) / 2;
    const Posture posture = height >= middle ? Standing : Sitting;
    if (std::exchange(m_posture, posture) != posture)
        open();
}

/// Whoever asks while the answer is on its way gets the one before, unless nobody would believe it any more.
void Oracle::hearAgain()
{
    const auto answer = m_answers.find(driven());
    const bool isSlow = m_latency > 0 || m_now < m_quickSince;
    // Questions are whole seconds apart: rounded as clocks are, five of them have one length.
    const auto rounded = [](double time) { return std::round(time * 1e6) / 1e6; };
    if (isSlow && answer != m_answers.end() && rounded(m_now) - rounded(answer->second.askedAt) <= kBelieved
        && (isAsking() || isNear(m_now, m_checkedAt)))
        hear(answer->second.bytes);
}

void Oracle::commanded(const Transfer& transfer)
{
    const auto& bytes = transfer.bytes;
    const int adapter = transfer.adapter;
    const uint8_t low = bytes[1], high = bytes[2];
    if (bytes != std::vector<uint8_t> {kMovementReport, low, high, low, high, low, high, low})
        fail("a report of no kind");
    const auto command = uint16_t(low | high << 8);
    if (isTakenUp(adapter) && (transfer.isOk || command != kStopCommand))
        m_lastCommand[adapter] = command;
    // A stalled report is told of late: it belongs to the hold in which it began.
    const double begun = m_now - transfer.duration;
    // A movement that goes out in the moment of a press is the last one of the hold before.
    const double since = begun + (command == kStopCommand ? kRounding : -kRounding);
    const auto hold =
        std::find_if(m_holds.rbegin(), m_holds.rend(), [=](const Hold& one) { return one.from <= since; });
    const bool isKnown = hold != m_holds.rend() && hold->adapter == adapter;
    if (command == kStopCommand) {
        m_stoppedAt = m_now;
        if (isKnown && hold->to <= begun)
            hold->stopped = true;
        return;
    }
    if (!isKnown || hold->command != command || hold->stopped || begun > hold->to + kOverrun)
        return fail("movement report " + std::to_string(command) + " outside a hold");
    hold->moves += transfer.isOk ? 1 : 0;
    m_figures.longestOverrun = std::max(m_figures.longestOverrun, begun - hold->to);
}

/// What must be true of adapters and their reports whenever time has passed.
void Oracle::judgePresence()
{
    if (!m_running || m_now < m_frozenUntil + kRounding)
        return;
    if (m_isGood && m_now > m_goodSince + kPoll) {
        for (const int adapter : {0, 1}) {
            if (isTakenUp(adapter) != m_isPlugged[size_t(adapter)])
                fail("an adapter is not taken up, or is kept");
        }
        // On a slow cable stops go first, as many as there are.
        const double asked =
            isQuick() ? m_readAt : std::max(m_readAt, m_stoppedAt) + 2 * kPoll + 4 * kSlowest;
        if (!m_adapters.empty() && m_now > asked + kPoll + kWait)
            fail("the height is not asked");
    }
    if (isAsking() && m_now > std::max(m_deafSince, m_readAt) + kPoll + 2 * kPatience)
        fail("an adapter that does not answer is kept");
    if (m_holds.empty() || !m_isGood)
        return;
    const Hold& hold = m_holds.back();
    const auto last = m_lastCommand.find(hold.adapter);
    const double by =
        std::max({hold.to, m_goodSince, m_frozenUntil}) + kStop + (isQuick() ? 0 : 2 * kSlowest);
    if (m_now > by && last != m_lastCommand.end() && last->second != kStopCommand)
        fail("no stop after a hold");
}

void Oracle::pressed(uint16_t command, bool onReminder)
{
    m_isReminderHeld = onReminder;
    hearAgain();
    m_isHeld = driven() >= 0;
    if (!m_isHeld)
        return;
    m_nextResend = m_now + kResend;
    m_holds.push_back({m_now, kNever, driven(), command});
    m_isHoldExact = isQuick();
}

void Oracle::letGo(bool onReminder)
{
    endHold();
    if (std::exchange(m_isHeld, false))
        hearAgain(); // It is stopped once more where the hold was over, and asked for its height.
    m_isReminderHeld = m_isReminderHeld && !onReminder;
    m_isActionDone = m_isActionDone || onReminder;
}

void Oracle::endHold()
{
    if (m_holds.empty() || m_holds.back().to != kNever)
        return;
    Hold& hold = m_holds.back();
    hold.to = m_now;
    m_nextResend = kNever;
    hearAgain();
    ++m_figures.holds;
    if (m_isHoldExact && hold.moves != int((hold.to - hold.from) / kResend + kRounding))
        fail("a hold of " + std::to_string(hold.to - hold.from) + " s gave " + std::to_string(hold.moves)
            + " movement reports");
}

}
