#include "simulator/DeskModel.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {
constexpr int64_t kStepsPerSecond = 1000;
constexpr double kStepSeconds = 1.0 / kStepsPerSecond;
constexpr int64_t kCommandLifeSteps = int64_t(DeskModel::kCommandLifeSeconds * kStepsPerSecond);
constexpr double kLongestAdvanceSeconds = 1e9;

/// Sums of decimal fractions miss a whole step by a few billionths; they mean the whole step.
constexpr double kStepTolerance = 1e-6;

/// Nearer to its goal than this, and this slow, the desk is there.
constexpr double kArrivedDistance = 0.01;
constexpr double kArrivedSpeed = DeskModel::kAcceleration * kStepSeconds;

constexpr uint8_t kInitReport = 3;
constexpr uint8_t kStatusReport = 4;
constexpr uint8_t kMovementReport = 5;
constexpr size_t kCommandLength = 8;
constexpr std::array<uint8_t, kCommandLength> kInit {kInitReport, 0x04, 0x00, 0xFB, 0, 0, 0, 0};

constexpr int kMoveDown = 0x7FFF;
constexpr int kMoveUp = 0x8000;
constexpr int kStop = 0x8001;

constexpr size_t kStatusLow = 2;
constexpr size_t kStatusHigh = 3;
constexpr size_t kHeightLow = 4;
constexpr size_t kHeightHigh = 5;
constexpr size_t kErrorKinds = 6;
constexpr size_t kCodesPresent = 32;
constexpr size_t kFirstCode = 34;
constexpr uint8_t kCommunicatingBit = 0x01;
constexpr uint8_t kErrorBit = 0x02;

constexpr int kHighestRawHeight = 0xFFFF;
}

void DeskModel::advance(double seconds)
{
    if (!(seconds > 0))
        return;
    m_unspentSeconds += std::min(seconds, kLongestAdvanceSeconds);
    auto steps = int64_t(std::floor(m_unspentSeconds * double(kStepsPerSecond) + kStepTolerance));
    m_unspentSeconds -= double(steps) * kStepSeconds;
    for (; steps > 0; --steps) {
        const std::optional<int> wanted = goal();
        if (isAtRest(wanted))
            break;
        step(wanted);
    }
    m_now += steps; // A desk at rest needs no reckoning, however long it rests.
}

TransferResult DeskModel::setFeatureReport(std::span<const uint8_t> report)
{
    if (!m_plugged)
        return TransferResult::Unplugged;
    if (m_faults.noAnswer)
        return TransferResult::NoAnswer;
    if (m_faults.failingWrites)
        return TransferResult::Failed;
    if (m_faults.stall || report.size() < kCommandLength)
        return TransferResult::Refused;
    switch (report[0]) {
    case kInitReport:
        return takeInit(report);
    case kMovementReport:
        return takeMovement(report);
    default:
        return TransferResult::Refused;
    }
}

TransferResult DeskModel::getFeatureReport(std::span<uint8_t> report) const
{
    if (!m_plugged)
        return TransferResult::Unplugged;
    if (m_faults.noAnswer)
        return TransferResult::NoAnswer;
    if (m_faults.failingReads)
        return TransferResult::Failed;
    if (m_faults.stall || report.empty() || report[0] != kStatusReport)
        return TransferResult::Refused;
    std::array<uint8_t, kStatusReportLength> status {};
    fillStatus(status);
    const size_t answered =
        std::min(m_faults.answerLength.value_or(kStatusReportLength), kStatusReportLength);
    std::copy_n(status.begin(), std::min(answered, report.size()), report.begin());
    return TransferResult::Ok;
}

uint16_t DeskModel::height() const
{
    return uint16_t(std::lround(m_position));
}

std::optional<int> DeskModel::goal() const
{
    if (m_now - m_commandedAt >= kCommandLifeSteps)
        return std::nullopt;
    switch (m_command) {
    case Command::Up:
        return m_upperLimit;
    case Command::Down:
        return m_lowerLimit;
    case Command::Target:
        return std::clamp(m_target, m_lowerLimit, m_upperLimit);
    case Command::Stop:
        break;
    }
    return std::nullopt;
}

void DeskModel::setHeight(int height)
{
    stop();
    m_velocity = 0;
    m_position = std::clamp(height, m_lowerLimit, m_upperLimit);
}

bool DeskModel::setLimits(int lower, int upper)
{
    if (lower < 0 || lower >= upper || upper > kHighestRawHeight)
        return false;
    m_lowerLimit = lower;
    m_upperLimit = upper;
    keepWithinLimits();
    return true;
}

void DeskModel::setPlugged(bool plugged)
{
    m_plugged = plugged;
    if (plugged)
        return;
    m_initialised = false;
    stop();
}

void DeskModel::setDeskOn(bool on)
{
    m_deskOn = on;
    if (!on)
        stop();
}

bool DeskModel::isCommunicating() const
{
    return isReady() && m_deskOn;
}

void DeskModel::setError(ErrorKind kind, bool present)
{
    const auto bit = uint8_t(kind);
    m_errorKinds = uint8_t(present ? m_errorKinds | bit : m_errorKinds & ~bit);
    stopOnError();
}

bool DeskModel::hasError(ErrorKind kind) const
{
    return (m_errorKinds & uint8_t(kind)) != 0;
}

bool DeskModel::addErrorCode(uint8_t code)
{
    if (std::find(m_errorCodes.begin(), m_errorCodes.end(), code) != m_errorCodes.end())
        return true;
    if (code == 0 || m_errorCodes.size() == kMostErrorCodes)
        return false;
    m_errorCodes.push_back(code);
    stopOnError();
    return true;
}

void DeskModel::setUnnamedError(bool present)
{
    m_unnamedError = present;
    stopOnError();
}

void DeskModel::clearErrors()
{
    m_errorKinds = 0;
    m_errorCodes.clear();
    m_unnamedError = false;
}

bool DeskModel::hasError() const
{
    return m_errorKinds != 0 || !m_errorCodes.empty() || m_unnamedError;
}

bool DeskModel::isReady() const
{
    return m_plugged && (m_initialised || !m_needsInit);
}

TransferResult DeskModel::takeInit(std::span<const uint8_t> report)
{
    if (!std::equal(kInit.begin(), kInit.end(), report.begin()))
        return TransferResult::Refused;
    m_initialised = true;
    return TransferResult::Ok;
}

/// The value comes four times over; the high byte of the last copy does not fit into the report.
TransferResult DeskModel::takeMovement(std::span<const uint8_t> report)
{
    for (size_t copy = 3; copy < kCommandLength; ++copy) {
        if (report[copy] != report[copy - 2])
            return TransferResult::Refused;
    }
    if (!isCommunicating())
        return TransferResult::Ok; // Nobody is there to pass it on to.
    const int value = report[1] | report[2] << 8;
    m_command = value == kMoveUp ? Command::Up
        : value == kMoveDown     ? Command::Down
        : value == kStop         ? Command::Stop
                                 : Command::Target;
    m_target = value;
    m_commandedAt = m_now;
    stopOnError();
    return TransferResult::Ok;
}

void DeskModel::fillStatus(std::span<uint8_t, kStatusReportLength> status) const
{
    status[0] = kStatusReport;
    if (!isReady())
        return; // What the adapter knows it has from the desk.
    status[kStatusLow] = isCommunicating() ? kCommunicatingBit : 0;
    status[kHeightLow] = uint8_t(height() & 0xFF);
    status[kHeightHigh] = uint8_t(height() >> 8);
    if (!isCommunicating() || !hasError())
        return;
    status[kStatusHigh] = kErrorBit;
    status[kErrorKinds] = m_errorKinds;
    status[kCodesPresent] = m_errorCodes.empty() ? 0 : 1;
    std::copy(m_errorCodes.begin(), m_errorCodes.end(), status.begin() + kFirstCode);
}

void DeskModel::stop()
{
    m_command = Command::Stop;
}

void DeskModel::stopOnError()
{
    if (hasError())
        stop();
}

bool DeskModel::isAtRest(std::optional<int> wanted) const
{
    return m_velocity == 0 && (!wanted || m_position == *wanted);
}

/// The highest velocity from which the desk can still brake in time: after a step that ends with it, the
/// braking distance v^2 / 2a is what remains of the way.
double DeskModel::velocityTowards(double goal) const
{
    const double direction = goal < m_position ? -1 : 1;
    const double distance = std::abs(goal - m_position);
    const double left = distance - direction * m_velocity * kStepSeconds / 2;
    if (left <= 0)
        return 0;
    const double half = kStepSeconds / 2;
    const double speed = kAcceleration * (std::sqrt(half * half + 2 * left / kAcceleration) - half);
    return direction * std::min(speed, kTopSpeed);
}

void DeskModel::step(std::optional<int> wanted)
{
    constexpr double kMostChange = kAcceleration * kStepSeconds;
    const double change = (wanted ? velocityTowards(*wanted) : 0) - m_velocity;
    const double velocity = m_velocity + std::clamp(change, -kMostChange, kMostChange);
    m_position += (m_velocity + velocity) / 2 * kStepSeconds;
    m_velocity = velocity;
    ++m_now;
    if (wanted && std::abs(*wanted - m_position) < kArrivedDistance
        && std::abs(m_velocity) <= kArrivedSpeed) {
        m_position = *wanted;
        m_velocity = 0;
    }
    keepWithinLimits();
}

void DeskModel::keepWithinLimits()
{
    const double within = std::clamp<double>(m_position, m_lowerLimit, m_upperLimit);
    if (within != m_position)
        m_velocity = 0;
    m_position = within;
}
