#pragma once

#include "data/ActivityPersister.h"
#include "data/ManagedObjectContextProvider.h"
#include "desk/AwakeSpan.h"
#include "desk/IdleObserver.h"
#include "desk/ScheduleManager.h"
#include "desk/ZelvoHIDDevice.h"
#include "desk/ZelvoHIDManager.h"
#include "platform/Workspace.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

/// Hears every new height of the adopted desk.
class ZelvoControllerDelegate {
public:
    virtual ~ZelvoControllerDelegate() = default;
    /// @param height raw, 0.1 mm above the adapter's zero
    virtual void positionUpdated(int32_t height) = 0;
};

/// The heart of the program: adopts the desk adapter, turns its heights into activities, runs the schedule,
/// and reacts to idleness, sleep and wake.
class ZelvoController final : public ZelvoHIDManagerDelegate,
                              public ZelvoHIDDeviceDelegate,
                              public IdleObserverDelegate,
                              public ScheduleManagerDelegate {
public:
    /// What the hub needs from around it.
    struct Dependencies {
        HidManager& hidManager;
        EventSource& eventSource;
        Workspace& workspace;
        ManagedObjectContextProvider managedObjectContext;
        /// Shows a reminder to take that Posture.
        std::function<void(int32_t newPosition)> showReminder;
    };

    /// Posted with the adopted ZelvoHIDDevice, or nothing, as object.
    static inline const QString kDeviceStateDidChange =
        QStringLiteral("org.zelvo.StandUp.devicestatedidchange");

    /// Posted without object when the user has left or come back, after the record has followed.
    static inline const QString kIdleDidChange = QStringLiteral("org.zelvo.StandUp.idledidchange");

    explicit ZelvoController(Dependencies dependencies);
    ~ZelvoController();
    ZelvoController(const ZelvoController&) = delete;
    ZelvoController& operator=(const ZelvoController&) = delete;

    /// Delegates are held strongly and hear in the order added; one that joins during a call waits for the
    /// next.
    void addDelegate(std::shared_ptr<ZelvoControllerDelegate> delegate);
    void removeDelegate(const std::shared_ptr<ZelvoControllerDelegate>& delegate);
    [[nodiscard]] bool isActive() const { return m_device && m_device->isActive(); }
    /// Opens a period for the present position and starts its schedule; the open one ends there. Nothing
    /// while no desk is active or set-up is incomplete.
    void startNewActivity();
    void stopCurrentActivity();
    /// The program ends: a held movement stops and the open period is closed.
    void terminate();
    void stopHeldMovement();
    void moveDeviceUp(); ///< one command; the developer's test window holds no button
    void moveDeviceDown();

    void deviceAdded(const std::shared_ptr<ZelvoHIDDevice>& device) override;
    void deviceRemoved(const std::shared_ptr<ZelvoHIDDevice>& device) override;
    void updatedIsCommunicating(
        bool isCommunicating, const std::shared_ptr<ZelvoHIDDevice>& onDevice) override;
    void updatedPosition(int32_t position, const std::shared_ptr<ZelvoHIDDevice>& onDevice) override;
    void updatedPositionState(
        int32_t positionState, const std::shared_ptr<ZelvoHIDDevice>& onDevice) override;
    void updatedIdleObserverIsIdle(bool isIdle) override;
    void activityScheduledToPosition(int32_t position) override;
    void receiveSleepNotification();
    void receiveWakeNotification();
    /// The machine is about to sleep: a held movement stops, the open period and the schedule end.
    void receiveWillSleepNotification();
    void startPulseTimer();
    void onPulseTimerTick(const Timer& timer);
    /// Saves the open period up to now. Where the clock was set meanwhile, another one of the same posture
    /// goes on from the new time; where the machine slept or the user is idle, period and schedule end.
    void pulse();
    void broadcastDeviceDeviceStateDidChange();

    [[nodiscard]] ZelvoHIDManager& deviceManager() { return *m_deviceManager; }
    [[nodiscard]] const std::shared_ptr<ZelvoHIDDevice>& device() const { return m_device; }
    /// The open period; null while it could not be saved yet.
    [[nodiscard]] ActivityRef activity() const
    {
        return m_activity && m_activity->isStored() ? m_activity : nullptr;
    }
    /// Holds the record as the open period; the one open before ends where this one starts (now, for none),
    /// or where its awake time ran out when the machine slept or the clock was set meanwhile.
    void setActivity(ActivityRef activity);
    /// Null until set-up is complete.
    [[nodiscard]] ScheduleManager* scheduleManager();
    [[nodiscard]] const std::vector<std::shared_ptr<ZelvoControllerDelegate>>& delegates() const
    {
        return m_delegates;
    }
    [[nodiscard]] IdleObserver& idleObserver() { return *m_idleObserver; }
    /// Null when the store cannot be opened; each call then tries again.
    [[nodiscard]] ActivityPersister* activityPersister();
    [[nodiscard]] const TimerRef& pulseTimer() const { return m_pulseTimer; }
    /// The Posture last taken from the device; 0 for none.
    [[nodiscard]] int32_t position() const { return m_position; }

private:
    void recordPeriod(bool isStanding);
    void remindAdapter();
    [[nodiscard]] bool isMovementHeld() const;

    Dependencies m_dependencies;
    std::unique_ptr<ZelvoHIDManager> m_deviceManager;
    std::shared_ptr<ZelvoHIDDevice> m_device;
    ActivityRef m_activity;
    AwakeSpan m_attended; ///< since the open period began
    AwakeSpan m_reminded; ///< since the adapter was told its init report last
    bool m_isUnrecorded = false; ///< A period goes on for which the store could not be opened.
    std::unique_ptr<ScheduleManager> m_scheduleManager;
    std::vector<std::shared_ptr<ZelvoControllerDelegate>> m_delegates;
    std::unique_ptr<IdleObserver> m_idleObserver;
    std::unique_ptr<ActivityPersister> m_activityPersister;
    TimerRef m_pulseTimer;
    int32_t m_position = 0;
    TimerScope m_timers;
};
