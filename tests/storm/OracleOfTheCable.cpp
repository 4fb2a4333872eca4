#include "storm/Oracle.h"

#include <utility>

namespace storm {
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
    blurHold();
    m_deafSince = isHeard ? kNever : std::min(m_deafSince, m_now);
    m_isHeard = isHeard;
    m_isGood = isGood;
    m_latency = seconds;
}

bool Oracle::isAnsweredAtOnce() const
{
    return m_isGood && m_latency == 0 && m_now > m_quickSince;
}

bool Oracle::isQuick() const
{
    return isAnsweredAtOnce() && m_now > m_goodSince;
}

bool Oracle::isActive() const
{
    return !m_devices.empty() && m_devices.front().communicates() && m_devices.front().posture != None;
}

bool Oracle::isTakenUp(int adapter) const
{
    return std::any_of(
        m_devices.begin(), m_devices.end(), [=](const Device& device) { return device.adapter == adapter; });
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
    m_devices.push_back({adapter, m_now + kCheck});
    m_isInitOwed[size_t(adapter)] = true;
    m_drivenSince = m_now;
    m_readAt = m_now + kCheck;
    if (m_devices.size() == 1)
        m_nextPoll = m_now + kCheck;
}

void Oracle::removed(int adapter)
{
    if (m_isPlugged[size_t(adapter)] && m_isGood && m_now > m_goodSince)
        fail("an adapter that answers is given up");
    m_lastCommand.erase(adapter);
    m_answers.erase(adapter);
    m_readAt = m_drivenSince = m_now;
    const bool wasFirst = m_devices.front().adapter == adapter;
    if (wasFirst)
        endHold();
    for (Device& device : m_devices) {
        if (device.adapter == adapter || wasFirst)
            errorIs(device, false);
    }
    std::erase_if(m_devices, [=](const Device& device) { return device.adapter == adapter; });
    endHold(); // Its stop goes to the one that is driven now, and asks that one's height.
    if (!wasFirst)
        return;
    m_posture = None;
    m_nextPoll = kNever;
    close();
    if (m_devices.empty())
        return;
    const int waiting = m_devices.front().adapter; // It is taken up anew.
    m_devices.clear();
    adopt(waiting);
}

void Oracle::transferred(const Transfer& transfer)
{
    if (!m_running)
        return;
    if (!transfer.isRead)
        return transfer.bytes[0] == 3 ? initialised(transfer) : commanded(transfer);
    // What is not taken up is only tried, to find out whether it answers again.
    if (!transfer.isOk || !isTakenUp(transfer.adapter))
        return;
    m_answers[transfer.adapter] = {transfer.bytes, m_now - transfer.duration};
    // Only the stop of a hold that another adapter ends is heard of through the one before.
    if (transfer.adapter != driven() && !isNear(m_now, m_drivenSince))
        return;
    const bool isLate = transfer.duration > kWait;
    m_readAt = m_now;
    if (!isLate && isNear(m_now, std::max(m_nextPoll, m_frozenUntil)))
        m_nextPoll = next(m_nextPoll, kPoll);
    for (Device& device : m_devices) {
        if (isLate || isItsTurn(device))
            hear(device, transfer.bytes);
    }
}

/// Of two devices each asks in a rhythm of its own, through the same cable; only the first one drives.
bool Oracle::isItsTurn(const Device& device) const
{
    const double from = isNear(m_now, m_frozenUntil) ? m_frozenFrom : m_now - 1e-3;
    const auto polls = [&](double at) { return std::floor((at - device.polledSince) / kPoll + kRounding); };
    const bool isNewCable = isNear(m_now, m_drivenSince);
    const bool isCheck = isNear(m_now, device.polledSince); // Nobody looks at the height in it.
    const bool isDriving =
        &device == &m_devices.front() && isNear(m_now, m_writtenAt) && !(isCheck && isNewCable);
    const bool isDue = device.communicates()
        ? polls(m_now) > polls(from)
        : isNewCable || (device.checkedAt > from && device.checkedAt < m_now + kRounding);
    return isDriving || (!isCheck && (m_devices.size() == 1 || isDue));
}

void Oracle::hear(Device& device, const std::vector<uint8_t>& report)
{
    if (!device.communicates()) {
        if (m_now < device.checkedAt - kRounding || !(report[2] & 1))
            return;
        device.polledSince = m_now;
        if (&device == &m_devices.front()) {
            m_nextPoll = m_now + kPoll;
            open();
        }
        return;
    }
    errorIs(device, report[3] & 2);
    takeHeight(device, report[4] | report[5] << 8);
}

void Oracle::errorIs(Device& device, bool isThere)
{
    const bool wasThere = std::exchange(device.hasError, isThere);
    (isThere ? m_errorAt : wasThere ? m_errorOverAt : m_readAt) = m_now;
}

/// Whoever asks while the answer is on its way gets the one before, unless nobody would believe it any more.
void Oracle::hearAgain()
{
    const auto answer = m_answers.find(driven());
    const bool isSlow = m_latency > 0 || (m_isHeard && m_now < m_quickSince);
    if (!isSlow || answer == m_answers.end() || m_now - answer->second.askedAt > kBelieved)
        return;
    Device& device = m_devices.front();
    if (device.communicates() || isNear(m_now, device.checkedAt))
        hear(device, answer->second.bytes);
}

/// The standing point lies in the middle between the first two memory positions; the height is judged when it
/// changes, and not when they do.
void Oracle::takeHeight(Device& device, int height)
{
    if (std::exchange(device.height, height) == height)
        return;
    const int middle = (int(setting("DevicePosition1")) + int(setting("DevicePosition2"))) / 2;
    device.posture = height >= middle ? Standing : Sitting;
    if (&device == &m_devices.front() && std::exchange(m_posture, device.posture) != device.posture)
        open();
}

void Oracle::initialised(const Transfer& transfer)
{
    m_writtenAt = m_now;
    // One that began before the adapter was taken up anew was owed to who waited with it.
    if (m_now - transfer.duration < m_drivenSince - kRounding)
        return;
    bool& isOwed = m_isInitOwed[size_t(transfer.adapter)];
    if (!isOwed || transfer.bytes != std::vector<uint8_t> {3, 4, 0, 0xFB, 0, 0, 0, 0})
        fail("an init report without need, or none");
    isOwed = !transfer.isOk; // Else it is tried again.
}

void Oracle::commanded(const Transfer& transfer)
{
    const auto& bytes = transfer.bytes;
    const int adapter = transfer.adapter;
    m_writtenAt = m_now;
    const uint8_t low = bytes[1], high = bytes[2];
    if (bytes != std::vector<uint8_t> {5, low, high, low, high, low, high, low})
        fail("a report of no kind");
    const auto command = uint16_t(low | high << 8);
    if (isTakenUp(adapter) && (transfer.isOk || command != kStopCommand))
        m_lastCommand[adapter] = command;
    // A stalled report is told of late: it belongs to the hold in which it began.
    const double begun = m_now - transfer.duration;
    const auto hold = std::find_if(
        m_holds.rbegin(), m_holds.rend(), [=](const Hold& one) { return one.from <= begun + kRounding; });
    const bool isKnown = hold != m_holds.rend() && hold->adapter == adapter;
    if (command == kStopCommand) {
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
    const bool isAsking = !m_devices.empty() && m_devices.front().communicates();
    if (m_isGood && m_now > m_goodSince + kPoll) {
        for (const int adapter : {0, 1}) {
            if (isTakenUp(adapter) != m_isPlugged[size_t(adapter)])
                fail("an adapter is not taken up, or is kept");
        }
        if (!m_devices.empty()
            && m_now > m_readAt + kPoll + kWait + (isQuick() ? 0 : 2 * kPoll + 4 * kSlowest))
            fail("the height is not asked");
    }
    if (isAsking && m_now > std::max(m_deafSince, m_readAt) + kPoll + 2 * kPatience)
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
    if (driven() < 0)
        return;
    m_nextResend = m_now + kResend;
    m_holds.push_back({m_now, kNever, driven(), command, isQuick()});
}

void Oracle::letGo(bool onReminder)
{
    endHold();
    if (isNear(m_now, m_frozenUntil) && !m_holds.empty() && m_holds.back().to > m_frozenFrom)
        hearAgain(); // The stop of a hold that ended in a standstill asks the height only now.
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
    if (hold.isExact && hold.moves != int((hold.to - hold.from) / kResend + kRounding))
        fail("a hold of " + std::to_string(hold.to - hold.from) + " s gave " + std::to_string(hold.moves)
            + " movement reports");
}

/// How many reports the hold gives is not known any more.
void Oracle::blurHold()
{
    if (!m_holds.empty())
        m_holds.back().isExact = false;
}
}
