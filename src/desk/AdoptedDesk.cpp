#include "desk/AdoptedDesk.h"

#include "data/AppProperties.h"
#include "data/Helper.h"
#include "data/Saturation.h"

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <utility>

namespace {
constexpr int64_t kTenthsPerMillimetre = 10;
constexpr double kSecondsPerMinute = 60;
/// A moving desk tells a new height each second at least.
constexpr double kStandsStillSeconds = 1.5;

struct PositionListener final : ZelvoControllerDelegate {
    void positionUpdated(int32_t height) override { callback(height); }

    std::function<void(int32_t height)> callback;
};

struct Rest {
    std::function<void()> callback;
    TimerRef timer;
    TimerScope timers;
    AdoptedDesk::Observation heights;
};
}

ZelvoController* AdoptedDesk::hub()
{
    return AppProperties::instance().zelvoController().get();
}

ZelvoHIDDevice* AdoptedDesk::device()
{
    const ZelvoController* const adopting = hub();
    return adopting ? adopting->device().get() : nullptr;
}

bool AdoptedDesk::isActive()
{
    const ZelvoHIDDevice* const desk = device();
    return desk && desk->isActive();
}

bool AdoptedDesk::isAdapterForbidden()
{
    return hub() && hub()->deviceManager().accessStatus() == EACCES;
}

QStringList AdoptedDesk::permissionCommands()
{
    return hub() ? hub()->deviceManager().commandsGivingAccess() : QStringList();
}

int32_t AdoptedDesk::position()
{
    const ZelvoHIDDevice* const desk = device();
    return desk ? desk->position() : 0;
}

int64_t AdoptedDesk::heightMillimetres(int32_t position)
{
    return (int64_t(position) + AppProperties::instance().tablePositionOffset()) / kTenthsPerMillimetre;
}

QString AdoptedDesk::heightText(int32_t position)
{
    return Helper::formattedTableHeight(double(heightMillimetres(position))) + QLatin1Char(' ')
        + Helper::TableHeightUnit();
}

std::optional<int32_t> AdoptedDesk::minutesToChange()
{
    const ScheduleManager* const schedule = hub() ? hub()->scheduleManager() : nullptr;
    if (!schedule || !schedule->isScheduled())
        return std::nullopt;
    return saturated<int32_t>(std::ceil(std::max(schedule->timeToSchedule(), 0.0) / kSecondsPerMinute));
}

AdoptedDesk::Observation AdoptedDesk::observePosition(std::function<void(int32_t height)> callback)
{
    const auto listener = std::make_shared<PositionListener>();
    listener->callback = std::move(callback);
    if (hub())
        hub()->addDelegate(listener);
    return {listener.get(), [listener](void*) {
                if (hub())
                    hub()->removeDelegate(listener);
            }};
}

AdoptedDesk::Observation AdoptedDesk::observeRest(std::function<void()> callback)
{
    const auto rest = std::make_shared<Rest>();
    rest->callback = std::move(callback);
    rest->heights = observePosition([rest = rest.get()](int32_t) {
        invalidate(rest->timer);
        rest->timer = rest->timers.schedule(
            kStandsStillSeconds, RunLoop::Repeat::No, [rest](Timer&) { rest->callback(); });
    });
    return rest;
}
