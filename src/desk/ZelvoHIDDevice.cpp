#include "desk/ZelvoHIDDevice.h"

#include "data/AppProperties.h"
#include "desk/ErrorCodeHandler.h"
#include "desk/Posture.h"
#include "desk/ZelvoHIDManager.h"
#include "platform/Log.h"
#include "platform/NotificationCenter.h"

#include <cerrno>

namespace {
using Report = ZelvoHIDDevice::Report;

constexpr uint8_t kStatusReportId = 4;
constexpr uint8_t kMovementReportId = 5;
constexpr Report kInitReport {3, 4, 0, 0xFB};

// A movement report carries a target height or one of these in its place.
constexpr uint16_t kMoveUp = 0x8000;
constexpr uint16_t kMoveDown = 0x7FFF;
constexpr uint16_t kStop = 0x8001;

const QString kDirectionKey = QStringLiteral("direction");

constexpr double kPollInterval = 1.0;
constexpr double kMoveInterval = 0.2;
constexpr double kCommunicationCheckDelay = 0.2;
constexpr double kStandingPointWithoutMemory = 2540.0;

/// The value four times over, low byte first. A write ends before the last high byte, as the adapter expects.
Report movementReport(uint16_t value)
{
    Report report {kMovementReportId};
    for (size_t i = 1; i < 9; i += 2) {
        report[i] = uint8_t(value & 0xFF);
        report[i + 1] = uint8_t(value >> 8);
    }
    return report;
}

int32_t littleEndian(const Report& report, size_t at)
{
    return report[at] | report[at + 1] << 8;
}

}

ZelvoHIDDevice::ZelvoHIDDevice(const ZelvoDeviceNodeRef& deviceNode)
    : m_ownNode(deviceNode)
{
    setNode(deviceNode);
}

Report ZelvoHIDDevice::stopReport()
{
    return movementReport(kStop);
}

bool ZelvoHIDDevice::initHID()
{
    const bool written = repeatInit();
    stop();
    // Not bound to this object's timers: the check keeps the device alive until it has run.
    RunLoop::main().scheduleTimer(kCommunicationCheckDelay, RunLoop::Repeat::No,
        [self = shared_from_this()](Timer&) { self->updateCommunicating(); });
    return written;
}

bool ZelvoHIDDevice::repeatInit()
{
    return ZelvoHIDManager::writeBuffer(kInitReport, *this);
}

bool ZelvoHIDDevice::moveUpSingle()
{
    return sendSingle(movementReport(kMoveUp));
}

bool ZelvoHIDDevice::moveDownSingle()
{
    return sendSingle(movementReport(kMoveDown));
}

bool ZelvoHIDDevice::stop()
{
    ++m_stops;
    invalidate(m_moveTimer);
    return sendSingle(stopReport());
}

bool ZelvoHIDDevice::moveToPositionSingle(int32_t height)
{
    return sendSingle(movementReport(uint16_t(height & 0xFFFF)));
}

bool ZelvoHIDDevice::sendSingle(const Report& report)
{
    const auto self = shared_from_this(); // A delegate may let go of the device.
    const bool written = ZelvoHIDManager::writeBuffer(report, *this);
    if (!written)
        updateCommunicating();
    readPosition();
    return written;
}

void ZelvoHIDDevice::moveToPosition(int32_t height)
{
    m_moveToposition = height;
    moveToDirection(kToPosition);
}

void ZelvoHIDDevice::moveToDirection(int32_t direction)
{
    const auto self = shared_from_this();
    const unsigned ownStop = m_stops + 1;
    stop();
    // The stop's read can reach a delegate that stops the desk, or starts another movement: that is newer.
    if (m_stops == ownStop)
        startMoveTimer({{kDirectionKey, direction}});
}

void ZelvoHIDDevice::startMoveTimer(const QVariantMap& userInfo)
{
    invalidate(m_moveTimer);
    m_moveDueAt = RunLoop::main().monotonicNow() + kMoveInterval;
    m_moveTimer = m_timers.schedule(
        kMoveInterval, RunLoop::Repeat::Yes, [this](Timer& timer) { onMoveTimerTick(timer); }, userInfo,
        RunLoop::Precision::Precise);
}

void ZelvoHIDDevice::onMoveTimerTick(const Timer& timer)
{
    const QVariantMap userInfo = timer.userInfo().toMap();
    // After a standstill of the process the release of the button may wait to be heard: it comes first.
    if (RunLoop::main().monotonicNow() > m_moveDueAt + kMoveInterval / 2) {
        startMoveTimer(userInfo);
        return;
    }
    m_moveDueAt += kMoveInterval;
    const int direction = userInfo.value(kDirectionKey).toInt();
    if (direction == kToPosition)
        moveToPositionSingle(m_moveToposition);
    else if (direction == kDown)
        moveDownSingle();
    else if (direction == kUp)
        moveUpSingle();
}

/// Nothing while the first answer is under way: from its absence nothing follows.
std::optional<Report> ZelvoHIDDevice::readStatusReport()
{
    Report report {kStatusReportId};
    const HidStatus status = ZelvoHIDManager::readReport(report, *this);
    if (status == EINPROGRESS)
        return std::nullopt;
    if (status != 0)
        report = {kStatusReportId}; // Nothing half-read counts.
    m_lastStatusReport = report;
    return report;
}

void ZelvoHIDDevice::takeLateReport(const Report& report)
{
    m_lastStatusReport = report;
    if (m_isCheckPending)
        judgeCommunication(report);
    else if (m_isCommunicating)
        takeHeight(heightFrom(report));
}

void ZelvoHIDDevice::updateCommunicating()
{
    if (const auto report = readStatusReport())
        judgeCommunication(*report);
    else
        m_isCheckPending = true;
}

void ZelvoHIDDevice::repeatPendingCheck()
{
    if (m_isCheckPending)
        updateCommunicating();
}

void ZelvoHIDDevice::judgeCommunication(const Report& report)
{
    const auto self = shared_from_this();
    const bool wasCommunicating = m_isCommunicating;
    m_isCheckPending = false;
    m_isCommunicating = statusToArray(littleEndian(report, 2))[0] == 1;
    if (m_isCommunicating)
        startReadPositionTimer();
    else
        stopReadPositionTimer();
    if (m_isCommunicating == wasCommunicating)
        return;
    Log::line(QString::asprintf("device status updated: isCommunicating: %d", int(m_isCommunicating)));
    if (m_delegate)
        m_delegate->updatedIsCommunicating(m_isCommunicating, self);
}

std::optional<int32_t> ZelvoHIDDevice::fetchPosition()
{
    const auto report = readStatusReport();
    return report ? std::optional(heightFrom(*report)) : std::nullopt;
}

int32_t ZelvoHIDDevice::heightFrom(const Report& report)
{
    handleError(ErrorCodeHandler::setErrorCode(report));
    return littleEndian(report, 4);
}

void ZelvoHIDDevice::handleError(const std::optional<ErrorCodes>& errorCodes)
{
    const auto self = shared_from_this();
    // Repeated with every report, so that a window opened in the meantime shows the error too.
    if (errorCodes)
        NotificationCenter::defaultCenter().post(kErrorCode, self, *errorCodes);
    else if (m_errorRecieved)
        NotificationCenter::defaultCenter().post(kErrorCodeRemoved);
    m_errorRecieved = errorCodes.has_value();
}

ZelvoHIDDevice::StatusBits ZelvoHIDDevice::statusToArray(int32_t status)
{
    StatusBits bits {};
    for (size_t i = 0; i < bits.size(); ++i)
        bits[i] = (status >> i) & 1;
    return bits;
}

double ZelvoHIDDevice::getStandingPoint()
{
    auto& properties = AppProperties::instance();
    const int64_t first = properties.devicePosition1();
    const int64_t second = properties.devicePosition2();
    if (first <= 0 || second <= 0)
        return kStandingPointWithoutMemory;
    const int64_t middle = (first + second) / 2; // A whole unit, as heights are.
    return double(middle);
}

void ZelvoHIDDevice::setPositionStateFromPosition(int32_t height)
{
    setPositionState(height >= getStandingPoint() ? kStanding : kSitting);
}

void ZelvoHIDDevice::setPositionState(int32_t positionState)
{
    if (positionState == m_positionState)
        return;
    Log::line(QString::asprintf("device position state updated. Position state: %d", positionState));
    m_positionState = positionState;
    if (m_delegate)
        m_delegate->updatedPositionState(positionState, shared_from_this());
}

void ZelvoHIDDevice::readPosition()
{
    if (!m_isCommunicating)
        return;
    if (const auto height = fetchPosition())
        takeHeight(*height);
}

void ZelvoHIDDevice::takeHeight(int32_t height)
{
    // At the adapter's own zero, where many desks stand lowest, the first height is no change and yet news.
    if (height == m_position && m_positionState != 0)
        return;
    const auto self = shared_from_this();
    m_position = height;
    if (m_delegate)
        m_delegate->updatedPosition(height, self);
    setPositionStateFromPosition(height);
}

void ZelvoHIDDevice::startReadPositionTimer()
{
    Log::line(QStringLiteral("ReadPositionTimer started"));
    stopReadPositionTimer();
    m_readPositionTimer = m_timers.schedule(
        kPollInterval, RunLoop::Repeat::Yes, [this](Timer& timer) { onReadPositionTimerTick(timer); });
}

void ZelvoHIDDevice::stopReadPositionTimer()
{
    if (!m_readPositionTimer)
        return;
    // The ended timer stays in its place, so a later stop says so again.
    Log::line(QStringLiteral("ReadPositionTimer stopped"));
    invalidate(m_readPositionTimer);
}
