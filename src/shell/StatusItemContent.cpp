#include "shell/StatusItemContent.h"

#include "data/AppProperties.h"
#include "desk/AdoptedDesk.h"
#include "desk/Posture.h"

namespace {
/// Whether the user is away, or nothing is recorded for another reason.
bool isPaused()
{
    if (!hub())
        return false;
    const bool isRecorded = hub()->activity() || !AppProperties::instance().isUserSetupCompleted();
    return hub()->idleObserver().isIdle() || !isRecorded;
}

QString withMinutesToChange(const QString& text)
{
    const std::optional<int32_t> minutes = minutesToChange();
    return minutes ? text + QStringLiteral(", ") + qtTrId("TrayTooltipChange", *minutes).arg(*minutes) : text;
}
}

StatusItemContent StatusItemContent::now(bool isDeviceConnected)
{
    if (!isDeviceConnected)
        return {QStringLiteral("StatusItemIconDisconnected"), qtTrId("TrayTooltipDisconnected")};
    const QString height = deskHeightText(deskPosition());
    if (device() && device()->errorRecieved())
        return {kErrorPicture, qtTrId("TrayTooltipError").arg(height)};
    if (isPaused())
        return {QStringLiteral("StatusItemIconPaused"), qtTrId("TrayTooltipPaused").arg(height)};
    if (hub() && hub()->position() == kStanding)
        return {QStringLiteral("StatusItemIconStanding"),
            withMinutesToChange(qtTrId("TrayTooltipStanding").arg(height))};
    return {QStringLiteral("StatusItemIcon"), withMinutesToChange(qtTrId("TrayTooltipSitting").arg(height))};
}
