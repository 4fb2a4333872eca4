#include "desk/ZelvoController.h"

#include "data/AppProperties.h"
#include "desk/Posture.h"
#include "platform/Log.h"
#include "platform/NotificationCenter.h"

#include <algorithm>
#include <utility>

namespace {
constexpr double kPulseInterval = 15.0;
}

ZelvoController::ZelvoController(Dependencies dependencies)
    : m_dependencies(std::move(dependencies))
    , m_deviceManager(std::make_unique<ZelvoHIDManager>(m_dependencies.hidManager))
    , m_idleObserver(
          std::make_unique<IdleObserver>(m_dependencies.eventSource, AppProperties::instance().timeIdle()))
{
    m_deviceManager->setDelegate(this);
    m_idleObserver->setDelegate(this);
    // What opened for an absent user (dark screens, an adapter that came back) was for nobody.
    m_idleObserver->onStillIdle([this] { stopCurrentActivity(); });
    startPulseTimer();
    m_dependencies.workspace.onScreensDidSleep([this] { receiveSleepNotification(); });
    m_dependencies.workspace.onDidWake([this] { receiveWakeNotification(); });
    m_dependencies.workspace.onWillSleep([this] { receiveWillSleepNotification(); });
}

ZelvoController::~ZelvoController()
{
    m_dependencies.workspace.onScreensDidSleep({});
    m_dependencies.workspace.onDidWake({});
    m_dependencies.workspace.onWillSleep({});
    if (m_device)
        m_device->setDelegate(nullptr); // A screen may hold it longer than this hub lives.
}

void ZelvoController::addDelegate(std::shared_ptr<ZelvoControllerDelegate> delegate)
{
    m_delegates.push_back(std::move(delegate));
}

void ZelvoController::removeDelegate(const std::shared_ptr<ZelvoControllerDelegate>& delegate)
{
    std::erase(m_delegates, std::shared_ptr(delegate)); // A copy: the argument may be the element itself.
}

void ZelvoController::startNewActivity()
{
    if (!isActive() || !AppProperties::instance().isUserSetupCompleted())
        return;
    recordPeriod(m_position == kStanding);
    scheduleManager()->startScheduledTimerForPosition(m_position);
}

/// A record that could not be made still ends the one before it, and the schedule runs without a record. One
/// that could only not be saved is kept up to date like any other until there is room for it.
void ZelvoController::recordPeriod(bool isStanding)
{
    ActivityPersister* persister = activityPersister();
    const ActivityRef activity = persister ? persister->createIsStanding(isStanding) : nullptr;
    setActivity(activity || !persister ? activity : persister->unsavedActivity());
    m_isUnrecorded = !m_activity;
}

void ZelvoController::stopCurrentActivity()
{
    m_isUnrecorded = false;
    if (m_activity)
        m_activity->pulse(m_attended.end());
    if (ScheduleManager* schedule = scheduleManager())
        schedule->stopScheduleTimer();
    setActivity(nullptr);
}

void ZelvoController::setActivity(ActivityRef activity)
{
    if (m_activity) {
        m_activity->setEndDate(m_attended.end(activity ? activity->startDate() : Date::now()));
        m_activityPersister->save();
    }
    m_activity = std::move(activity);
    m_attended = AwakeSpan();
}

void ZelvoController::terminate()
{
    stopHeldMovement();
    stopCurrentActivity();
}

void ZelvoController::moveDeviceUp()
{
    if (m_device)
        m_device->moveUpSingle();
}

void ZelvoController::moveDeviceDown()
{
    if (m_device)
        m_device->moveDownSingle();
}

void ZelvoController::deviceAdded(const std::shared_ptr<ZelvoHIDDevice>& device)
{
    if (m_device)
        return;
    device->setDelegate(this);
    m_device = device;
    broadcastDeviceDeviceStateDidChange();
}

void ZelvoController::deviceRemoved(const std::shared_ptr<ZelvoHIDDevice>& device)
{
    if (device != m_device)
        return;
    // Whoever still holds the device hears nothing of it through this hub: its state would be taken for the
    // next adapter's.
    m_device->setDelegate(nullptr);
    m_device.reset();
    m_position = 0;
    stopCurrentActivity();
    broadcastDeviceDeviceStateDidChange();
}

void ZelvoController::updatedIsCommunicating(bool isCommunicating, const std::shared_ptr<ZelvoHIDDevice>&)
{
    if (isCommunicating)
        startNewActivity();
    else
        stopCurrentActivity();
    broadcastDeviceDeviceStateDidChange();
}

void ZelvoController::updatedPosition(int32_t position, const std::shared_ptr<ZelvoHIDDevice>&)
{
    const auto delegates = m_delegates; // A delegate may add and remove others.
    for (const auto& delegate : delegates) {
        if (std::find(m_delegates.begin(), m_delegates.end(), delegate) != m_delegates.end())
            delegate->positionUpdated(position);
    }
}

void ZelvoController::updatedPositionState(int32_t positionState, const std::shared_ptr<ZelvoHIDDevice>&)
{
    if (positionState == m_position)
        return;
    m_position = positionState;
    startNewActivity();
    broadcastDeviceDeviceStateDidChange();
}

void ZelvoController::updatedIdleObserverIsIdle(bool isIdle)
{
    if (isIdle)
        stopCurrentActivity();
    else
        startNewActivity();
    NotificationCenter::defaultCenter().post(kIdleDidChange);
}

void ZelvoController::activityScheduledToPosition(int32_t position)
{
    const bool isAbsent = m_idleObserver->isIdle() || m_attended.hasSlept();
    if (position != m_position && !isAbsent)
        m_dependencies.showReminder(position);
}

void ZelvoController::receiveSleepNotification()
{
    Log::line(QStringLiteral("receiveSleepNotification"));
    // A fresh period from here on: what follows is time in front of dark screens.
    startNewActivity();
}

void ZelvoController::receiveWakeNotification()
{
    Log::line(QStringLiteral("receiveWakeNotification"));
    // The next return from idleness or change of position opens the following period. Whoever wakes the
    // machine was away until then, so that their first input is such a return.
    stopCurrentActivity();
    m_dependencies.eventSource.didWake();
    remindAdapter();
}

/// To Linux an adapter whose power a sleep has cut is the one that was there before; it has forgotten its
/// init report, answers zeros and moves nothing. Not while a button is held: on a slow wire the report would
/// stand between a movement and its stop.
void ZelvoController::remindAdapter()
{
    if (isMovementHeld())
        return;
    m_reminded = AwakeSpan();
    if (m_device)
        m_device->repeatInit();
}

void ZelvoController::receiveWillSleepNotification()
{
    terminate(); // Nobody knows whether the machine wakes again.
}

void ZelvoController::stopHeldMovement()
{
    if (isMovementHeld())
        m_device->stop();
}

bool ZelvoController::isMovementHeld() const
{
    return m_device && m_device->moveTimer() && m_device->moveTimer()->isValid();
}

void ZelvoController::startPulseTimer()
{
    m_pulseTimer = m_timers.schedule(
        kPulseInterval, RunLoop::Repeat::Yes, [this](Timer& timer) { onPulseTimerTick(timer); });
}

void ZelvoController::onPulseTimerTick(const Timer&)
{
    pulse();
}

void ZelvoController::pulse()
{
    if (m_reminded.hasSlept())
        remindAdapter(); // Nobody has told of the wake.
    if (m_attended.hasSlept() || (m_attended.isBroken() && m_idleObserver->isIdle()))
        stopCurrentActivity();
    else if (m_activity && m_attended.isBroken())
        recordPeriod(m_activity->isStanding());
    else if (m_activity)
        m_activity->pulse(m_attended.end());
    else if (m_isUnrecorded)
        recordPeriod(m_position == kStanding); // The store can perhaps be opened by now.
    else if (m_activityPersister)
        m_activityPersister->save(); // What a full disk kept waiting goes out though no period is open.
}

void ZelvoController::broadcastDeviceDeviceStateDidChange()
{
    NotificationCenter::defaultCenter().post(kDeviceStateDidChange, m_device);
}

ScheduleManager* ZelvoController::scheduleManager()
{
    if (!m_scheduleManager && AppProperties::instance().isUserSetupCompleted()) {
        m_scheduleManager = std::make_unique<ScheduleManager>(AppProperties::instance().activityMode());
        m_scheduleManager->setDelegate(this);
    }
    return m_scheduleManager.get();
}

ActivityPersister* ZelvoController::activityPersister()
{
    if (!m_activityPersister) {
        if (auto context = m_dependencies.managedObjectContext())
            m_activityPersister = std::make_unique<ActivityPersister>(std::move(context));
    }
    return m_activityPersister.get();
}
