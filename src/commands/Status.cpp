#include "commands/Status.h"

#include "data/ActivityMode.h"
#include "data/AppProperties.h"
#include "data/GoalProgress.h"
#include "data/Saturation.h"
#include "desk/AdoptedDesk.h"
#include "desk/Posture.h"

#include <cerrno>

namespace {
constexpr double kSecondsPerMinute = 60;
constexpr qsizetype kLongestName = 80;

Status::Desk deskState()
{
    const std::optional<HidStatus> access = hub()->deviceManager().accessStatus();
    if (!access)
        return Status::Desk::None;
    if (*access == 0)
        return isDeskActive() ? Status::Desk::Connected : Status::Desk::Silent;
    if (*access == EACCES)
        return Status::Desk::Forbidden;
    return *access == EBUSY ? Status::Desk::Busy : Status::Desk::Unusable;
}

/// The name comes from the cable, and a terminal obeys control characters.
QString adapterName()
{
    if (!device() || !device()->ownNode())
        return {};
    QString name = QString::fromStdString(device()->ownNode()->model).simplified().left(kLongestName);
    return name.removeIf([](QChar letter) { return !letter.isPrint(); });
}

std::optional<Status::Period> openPeriod()
{
    const ActivityRef activity = hub()->activity();
    if (!activity)
        return std::nullopt;
    // From the whole second that is told, so that whoever counts from there comes to the same minutes.
    const auto since = saturated<int64_t>(activity->startDate().secondsSince1970());
    const double seconds = Date::now().secondsSince1970() - double(since);
    return Status::Period {since, saturated<int32_t>(seconds / kSecondsPerMinute)};
}

std::optional<Status::Goal> todaysGoal()
{
    ActivityPersister* const persister = hub()->activityPersister();
    if (!persister || !AppProperties::instance().isUserSetupCompleted())
        return std::nullopt;
    const GoalProgress progress = GoalProgress::onDay(Date::now(), *persister);
    return Status::Goal {saturated<int32_t>(progress.percent), saturated<int32_t>(progress.value),
        saturated<int32_t>(progress.target),
        progress.mode == kCalorieGoal ? QStringLiteral("kcal") : QStringLiteral("min")};
}
}

Status Status::now()
{
    Status status;
    if (!hub())
        return status;
    status.desk = deskState();
    status.adapter = adapterName();
    if (status.desk == Desk::Forbidden)
        status.cure = permissionCommands();
    if (status.desk == Desk::Connected) {
        status.height = {
            deskPosition(), deskHeightMillimetres(deskPosition()), deskHeightText(deskPosition())};
        status.posture =
            hub()->position() == kStanding ? QStringLiteral("standing") : QStringLiteral("sitting");
    }
    status.isPaused = hub()->idleObserver().isIdle();
    status.period = openPeriod();
    status.minutesToChange = ::minutesToChange();
    status.goal = todaysGoal();
    status.idleSource = hub()->idleObserver().sourceName();
    return status;
}
