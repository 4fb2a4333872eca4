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
    const std::optional<HidStatus> access = AdoptedDesk::hub()->deviceManager().accessStatus();
    if (!access)
        return Status::Desk::None;
    if (*access == 0)
        return AdoptedDesk::isActive() ? Status::Desk::Connected : Status::Desk::Silent;
    if (*access == EACCES)
        return Status::Desk::Forbidden;
    return *access == EBUSY ? Status::Desk::Busy : Status::Desk::Unusable;
}

/// The name comes from the cable, and a terminal obeys control characters.
QString adapterName()
{
    if (!AdoptedDesk::device() || !AdoptedDesk::device()->ownNode())
        return {};
    QString name =
        QString::fromStdString(AdoptedDesk::device()->ownNode()->model).simplified().left(kLongestName);
    return name.removeIf([](QChar letter) { return !letter.isPrint(); });
}

std::optional<Status::Period> openPeriod()
{
    const ActivityRef activity = AdoptedDesk::hub()->activity();
    if (!activity)
        return std::nullopt;
    // From the whole second that is told, so that whoever counts from there comes to the same minutes.
    const auto since = saturated<int64_t>(activity->startDate().secondsSince1970());
    const double seconds = Date::now().secondsSince1970() - double(since);
    return Status::Period {since, saturated<int32_t>(seconds / kSecondsPerMinute)};
}

std::optional<Status::Goal> todaysGoal()
{
    ActivityPersister* const persister = AdoptedDesk::hub()->activityPersister();
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
    if (!AdoptedDesk::hub())
        return status;
    status.desk = deskState();
    status.adapter = adapterName();
    if (status.desk == Desk::Forbidden)
        status.cure = AdoptedDesk::permissionCommands();
    if (status.desk == Desk::Connected) {
        status.height = {AdoptedDesk::position(), AdoptedDesk::heightMillimetres(AdoptedDesk::position()),
            AdoptedDesk::heightText(AdoptedDesk::position())};
        status.posture = AdoptedDesk::hub()->position() == kStanding ? QStringLiteral("standing")
                                                                     : QStringLiteral("sitting");
    }
    status.isPaused = AdoptedDesk::hub()->idleObserver().isIdle();
    status.period = openPeriod();
    status.minutesToChange = AdoptedDesk::minutesToChange();
    status.goal = todaysGoal();
    status.idleSource = AdoptedDesk::hub()->idleObserver().sourceName();
    return status;
}
