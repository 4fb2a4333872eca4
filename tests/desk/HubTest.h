#pragma once

#include "desk/DeskTest.h"
#include "desk/Posture.h"
#include "desk/ZelvoController.h"
#include "fakes/TestStore.h"
#include "platform/NotificationCenter.h"

#include <QRegularExpression>

#include <sqlite3.h>
#include <utility>

/// A delegate of the hub as the windows have one.
struct HeightListener final : ZelvoControllerDelegate {
    explicit HeightListener(std::function<void(int32_t)> callback)
        : heard(std::move(callback))
    {
    }
    void positionUpdated(int32_t height) override { heard(height); }

    std::function<void(int32_t)> heard;
};

/// The hub with a desk, a user and a store around it. The plan is 20 standing minutes an hour in two goes:
/// 600 s standing, 1200 s sitting; 170 s without input are an absence. What others hear of the hub is kept in
/// a diary, a row an event: "awake seconds: what".
class HubTest : public DeskTest {
public:
    HubTest()
    {
        store("Weight", 67.5);
        store("ActivityMode", 2);
        store("ActivityGoal", 20.0);
        store("NumberOfStandUps", 2);
        store("TimeIdle", 170.0);
        execute("PRAGMA synchronous = OFF"); // A day of records waits for no disk.
        hub.emplace(ZelvoController::Dependencies {hid, eventSource, workspace,
            [this] {
                ++timesAskedForContext;
                return context;
            },
            [this](int32_t newPosition) { note(QStringLiteral("reminder %1").arg(newPosition)); }});
        hub->addDelegate(std::make_shared<HeightListener>(
            [this](int32_t height) { note(QStringLiteral("height %1").arg(height)); }));
    }

    /// To the hub's own connection to the store.
    void execute(const char* statement)
    {
        EXPECT_EQ(sqlite3_exec(activities.coordinator->connection(), statement, nullptr, nullptr, nullptr),
            SQLITE_OK);
    }

    /// What a new process would find on disk, in seconds of the wall clock since the test's start.
    std::string records()
    {
        const auto shown = [](Date date) {
            return QString::number(date.secondsSince1970() - TestPlatform::kStart, 'f', 1);
        };
        QStringList texts;
        for (const auto& activity : TestStore(platform).all()) {
            EXPECT_EQ(activity->weight(), 67.5);
            texts.append((activity->isStanding() ? QStringLiteral("stand ") : QStringLiteral("sit "))
                + shown(activity->startDate()) + QStringLiteral("..") + shown(activity->endDate()));
        }
        return texts.join(QStringLiteral(", ")).remove(QStringLiteral(".0")).toStdString();
    }

    /// The diary's rows that tell of that, in one line; then the next one begins.
    std::string heard(const QRegularExpression& of = {})
    {
        return std::exchange(diary, {}).filter(of).join(QStringLiteral(", ")).toStdString();
    }

    /// Lets the machine be awake until so many seconds after the test's start.
    void until(double awakeSeconds)
    {
        platform.runLoop.advance(awakeSeconds - platform.runLoop.monotonicNow());
    }

    void note(const QString& what)
    {
        diary.append(QStringLiteral("%1: %2").arg(platform.runLoop.monotonicNow(), 0, 'f', 1).arg(what));
    }

    /// Plugs an adapter in and lets it be polled once; the diary starts after that.
    void plugAndPoll()
    {
        hid.plug(adapter);
        platform.runLoop.advance(1.2);
        diary.clear();
    }

    QStringList diary;
    SimulatedUser& user = *platform.user;
    SleepAwareEventSource& eventSource = platform.events;
    SimulatedWorkspace& workspace = platform.workspace;
    std::shared_ptr<FakeHidDevice> adapter = makeAdapter();
    TestStore activities {platform};
    std::shared_ptr<ManagedObjectContext> context = activities.context; ///< what the hub is given
    int timesAskedForContext = 0;
    std::optional<ZelvoController> hub;
    NotificationCenter::Observation deviceState = NotificationCenter::defaultCenter().addObserver(
        ZelvoController::kDeviceStateDidChange, [this](const PostedNotification& posted) {
            EXPECT_EQ(posted.object, hub ? hub->device() : nullptr);
            note(posted.object ? QStringLiteral("device state") : QStringLiteral("no device"));
        });
    NotificationCenter::Observation newSession = NotificationCenter::defaultCenter().addObserver(
        ScheduleManager::kNewSession, [this](const PostedNotification&) { note(QStringLiteral("session")); });
};
