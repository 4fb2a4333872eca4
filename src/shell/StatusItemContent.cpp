#include "shell/StatusItemContent.h"

#include "data/AppProperties.h"
#include "desk/AdoptedDesk.h"
#include "desk/Posture.h"

namespace {
/// Whether the user is away, or nothing is recorded for another reason.
bool isPaused()
{
    if (!AdoptedDesk::hub())
        return false;
    const bool isRecorded =
        AdoptedDesk::hub()->activity() || !AppProperties::instance().isUserSetupCompleted();
    return AdoptedDesk::hub()->idleObserver().isIdle() || !isRecorded;
}

QString withMinutesToChange(const QString& text)
{
    const std::optional<int32_t> minutes = AdoptedDesk::minutesToChange();
    return minutes ? text + QStringLiteral(", ") + qtTrId("TrayTooltipChange", *minutes).arg(*minutes) : text;
}
}

StatusItemContent StatusItemContent::now(bool isDeviceConnected)
{
    if (!isDeviceConnected)
        return {QStringLiteral("StatusItemIconDisconnected"), qtTrId("TrayTooltipDisconnected")};
    const QString height = AdoptedDesk::heightText(AdoptedDesk::position());
    if (AdoptedDesk::device() && AdoptedDesk::device()->errorRecieved())
        return {kErrorPicture, qtTrId("TrayTooltipError").arg(height)};
    if (isPaused())
        return {QStringLiteral("StatusItemIconPaused"), qtTrId("TrayTooltipPaused").arg(height)};
    if (AdoptedDesk::hub() && AdoptedDesk::hub()->position() == kStanding)
        return {QStringLiteral("StatusItemIconStanding"),
            withMinutesToChange(qtTrId("TrayTooltipStanding").arg(height))};
    return {QStringLiteral("StatusItemIcon"), withMinutesToChange(qtTrId("TrayTooltipSitting").arg(height))};
}
