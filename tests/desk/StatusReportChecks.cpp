#include "desk/StatusReportChecks.h"

#include "data/AppProperties.h"
#include "desk/ErrorCodeHandler.h"

#include <algorithm>

namespace {
constexpr qsizetype kMostCodes = 6 + 3; // Six listed ones and the three kinds.
constexpr int32_t kStandingPoint = (700 + 4300) / 2;

/// "E" and two or three digits, of which the number is a byte and not 0.
bool isCode(const QString& key)
{
    bool isNumber = false;
    const int number = key.mid(1).toInt(&isNumber);
    return key.startsWith(QLatin1Char('E')) && isNumber && number > 0 && number < 256
        && key.size() == (number < 100 ? 3 : 4);
}
}

StatusReportChecks::StatusReportChecks()
{
    AppProperties::resetInstance();
    m_hid.plug(m_adapter);
    m_device = m_manager.devices().back();
}

const char* StatusReportChecks::violation(const Report& report)
{
    m_adapter->status = report;
    if (const char* what = violationOfCodes(report))
        return what;
    return violationOfDevice(report);
}

const char* StatusReportChecks::violationOfCodes(const Report& report) const
{
    const auto codes = ErrorCodeHandler::setErrorCode(report);
    if (codes.has_value() != ((report[3] & 0x02) != 0))
        return "an error is present exactly when its flag is set";
    if (!codes)
        return nullptr;
    const auto keys = codes->keys();
    if (keys.size() > kMostCodes || !std::all_of(keys.begin(), keys.end(), isCode))
        return "a report gives at most nine well-formed codes";
    return nullptr;
}

const char* StatusReportChecks::violationOfDevice(const Report& report)
{
    const int32_t height = report[4] + 256 * report[5];
    const int32_t before = m_device->position();
    if (m_device->fetchPosition() != height)
        return "the height is bytes 4 and 5";
    if (m_device->position() != before)
        return "fetching alone changes nothing";
    if (m_device->errorRecieved() != ((report[3] & 0x02) != 0))
        return "the error shown follows the flag";

    if (m_device->isCommunicating() != ((report[2] & 1) != 0))
        m_device->updateCommunicating();
    if (m_device->isCommunicating() != ((report[2] & 1) != 0))
        return "communication is bit 0 of the status word";
    m_device->readPosition();
    if (m_device->position() != (m_device->isCommunicating() ? height : before))
        return "the position is the last height read while communicating";
    const int32_t state = m_device->position() >= kStandingPoint ? 1 : 2;
    if (m_device->positionState() != state && !(m_device->position() == 0 && m_device->positionState() == 0))
        return "the state follows from the position";
    if (m_adapter->written.size() != 2)
        return "reading writes nothing";
    return nullptr;
}
