#pragma once

#include "data/AppProperties.h"
#include "desk/Posture.h"
#include "desk/ZelvoController.h"
#include "fakes/TestStore.h"
#include "platform/NotificationCenter.h"

#include <QRegularExpression>

#include <map>
#include <utility>

/// A delegate of the hub as the windows have one.
struct HeightListener final : ZelvoControllerDelegate {
    void positionUpdated(int32_t height) override { heard(height); }

    std::function<void(int32_t)> heard;
};

/// The hub with a desk, a user and a store around it, and scripts of what happens to them. The plan is 20
/// standing minutes an hour in two goes: 600 s standing, 1200 s sitting; 170 s without input are an absence.
///
/// Seconds count from the start, without those asleep. The first poll, at 1.2 s, finds the desk at 900, where
/// one sits; more follow each second. Pulses come every 15 s, looks at the user every 10 s.
struct DeskStory {
    DeskStory()
    {
        platform.defaults.values = {{"Weight", 67.5}, {"ActivityMode", 2}, {"ActivityGoal", 20.0},
            {"NumberOfStandUps", 2}, {"TimeIdle", 170.0}};
        activities.execute("PRAGMA synchronous = OFF"); // A day of records waits for no disk.
        for (const int number : {0, 1})
            hid.adapter(number).onTransfer(
                [this, number](const HidTransfer& transfer) { log(transfer, number); });
    }

    /// Starts the hub, unless it runs, and plays the script's words one after the other. A number lets the
    /// machine be awake until so many seconds.
    void play(const QString& script)
    {
        if (!hub)
            start();
        for (const QString& word : script.split(' ')) {
            bool isTime = false;
            const double seconds = word.toDouble(&isTime);
            if (isTime)
                platform.runLoop.advance(seconds - platform.runLoop.monotonicNow());
            else
                happens(word.section('=', 0, 0), word.section('=', 1).toDouble());
        }
    }

    /// What a new process would find on disk, in seconds of the wall clock.
    QString records()
    {
        QStringList texts;
        for (const auto& activity : TestStore(platform).all()) {
            EXPECT_EQ(activity->weight(), 67.5);
            texts.append(QString("%1 %2..%3")
                             .arg(activity->isStanding() ? "stand" : "sit", shown(activity->startDate()),
                                 shown(activity->endDate())));
        }
        return texts.join(", ");
    }

    /// What others heard of the hub since the last call, as far as it is of that kind.
    QString heard(const char* kind = "")
    {
        return std::exchange(diary, {}).filter(QRegularExpression(kind)).join(", ");
    }

    void note(const QString& what)
    {
        diary.append(shown(Date(TestPlatform::kStart + platform.runLoop.monotonicNow())) + ' ' + what);
    }

    TestPlatform platform;
    SimulatedHidManager& hid = platform.hid;
    TestStore activities {platform};
    std::shared_ptr<ManagedObjectContext> context = activities.context; ///< what the hub is given
    QStringList diary;
    /// All that went over the wire: when each report began, how long it lasted if it lasted, "!" where it
    /// failed, and "r" for a read of the status. What is marked "B:" is the second adapter's.
    QStringList wire;
    std::optional<ZelvoController> hub;

    void start()
    {
        hub.emplace(ZelvoController::Dependencies {hid, platform.events, platform.workspace,
            [this] { return context; },
            [this](int32_t newPosition) { note(QString("reminder %1").arg(newPosition)); }});
        const auto listener = std::make_shared<HeightListener>();
        listener->heard = [this](int32_t height) {
            EXPECT_TRUE(height > 0 || m_isLow) << "no height was made up";
            note(QString("height %1").arg(height));
            if (const auto meet = std::exchange(m_onHeight, {}))
                meet();
        };
        hub->addDelegate(listener);
        platform.runLoop.advance(1.2);
        wire.clear();
        diary.clear();
    }

    void happens(const QString& what, double value)
    {
        const auto desk = hub->device();
        const int number = int(value);
        const std::map<QString, std::function<void()>> kDeeds {
            // The desk, its cable and its adapters, 0 being the first.
            {"height", [&] { hid.desk().setHeight(number); }},
            {"error", [&] { (void)hid.desk().addErrorCode(7); }},
            {"well", [&] { hid.desk().clearErrors(); }},
            {"latency", [&] { hid.adapter(0).setLatency(value); }},
            {"latency1", [&] { hid.adapter(1).setLatency(value); }},
            {"fail", [&] { hid.adapter().failNext(number, EPIPE); }},
            {"stall", [&] { hid.adapter().setStalled(number != 0); }},
            {"pull", [&] { hid.unplug(number); }},
            {"plug", [&] { hid.plug(number); }},
            {"on", [&] { hid.desk().setDeskOn(number != 0); }},
            {"powercut", [&] { m_isLow = true, hid.desk().setPlugged(false), hid.desk().setPlugged(true); }},
            {"low", [&] { m_isLow = true, hid.desk().setHeight(0); }},
            {"check", [&] { desk->updateCommunicating(); }},
            // Buttons.
            {"up", [&] { desk->moveUp(); }},
            {"down", [&] { desk->moveDown(); }},
            {"go", [&] { desk->moveToPosition(number); }},
            {"target", [&] { desk->setMoveToposition(number); }},
            {"aside", [&] { desk->moveToDirection(7); }}, // There is no such direction.
            {"stop", [&] { desk->stop(); }},
            {"stopAtHeight", [&] { m_onHeight = [this] { hub->device()->stop(); }; }},
            {"downAtHeight", [&] { m_onHeight = [this] { hub->device()->moveDown(); }; }},
            {"memory2", [&] { AppProperties::instance().setDevicePosition2(number); }},
            {"quit", [&] { hub->terminate(); }},
            // User, clocks, session and disk.
            {"away", [&] { platform.user->leave(); }},
            {"back", [&] { platform.user->comeBack(); }},
            {"dark", [&] { platform.workspace.screensSleep(); }},
            {"willsleep", [&] { platform.workspace.willSleep(); }},
            {"wake", [&] { platform.workspace.wake(); }},
            {"z", [&] { platform.runLoop.sleepMachine(value); }},
            {"freeze", [&] { platform.runLoop.jump(value); }},
            {"set", [&] { platform.runLoop.setWallClock(platform.runLoop.now() + value); }},
            {"due", [&] { hub->scheduleManager()->startScheduledTimerWithInterval(value, kSitting); }},
            {"full", [&] { activities.execute("PRAGMA query_only = 1"); }},
            {"room", [&] { activities.execute("PRAGMA query_only = 0"); }},
        };
        kDeeds.at(what)();
    }

    /// Seconds since the start, to a hundredth.
    static QString shown(Date date)
    {
        const double seconds = date.secondsSince1970() - TestPlatform::kStart;
        return QString::number(std::round(seconds * 100) / 100, 'g', 10);
    }

    void log(const HidTransfer& transfer, int number)
    {
        const QString line = (number == 1 ? "B:" : "") + nameOf(transfer) + (transfer.status != 0 ? "!" : "");
        const Date lasted(TestPlatform::kStart + transfer.duration);
        const QString begun =
            shown(Date(transfer.seconds)) + (transfer.duration > 0 ? '+' + shown(lasted) : QString());
        wire.append(line.endsWith('r') ? line : begun + ' ' + line);
    }

    static QString nameOf(const HidTransfer& transfer)
    {
        if (transfer.direction == HidTransfer::Direction::Read)
            return "r";
        if (transfer.bytes == std::vector<uint8_t> {3, 4, 0, 0xFB, 0, 0, 0, 0})
            return "init";
        const uint8_t low = transfer.bytes[1];
        const uint8_t high = transfer.bytes[2];
        EXPECT_EQ(transfer.bytes, (std::vector<uint8_t> {5, low, high, low, high, low, high, low}));
        const std::map<int, QString> kNames {{0x8000, "up"}, {0x7FFF, "down"}, {0x8001, "stop"}};
        const auto known = kNames.find(low | high << 8);
        return known != kNames.end() ? known->second : QString("go%1").arg(low | high << 8);
    }

    /// Notes what was posted with the state of the desk that it was posted with, and what else it tells.
    NotificationCenter::Observation hear(const QString& name, const char* what)
    {
        return NotificationCenter::defaultCenter().addObserver(
            name, [this, what](const PostedNotification& posted) {
                QStringList words {what};
                if (posted.object) {
                    EXPECT_EQ(posted.object, hub->device());
                    words.append(QString("%1 %2").arg(hub->device()->isCommunicating()).arg(hub->position()));
                }
                note((words + posted.userInfo.keys()).join(' '));
            });
    }

    std::function<void()> m_onHeight;
    bool m_isLow = false; ///< the adapter tells 0
    NotificationCenter::Observation m_observations[4] = {hear(ZelvoController::kDeviceStateDidChange, "desk"),
        hear(ScheduleManager::kNewSession, "session"), hear(ZelvoHIDDevice::kErrorCode, "error"),
        hear(ZelvoHIDDevice::kErrorCodeRemoved, "well")};
};
