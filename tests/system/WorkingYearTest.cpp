// Plays working days with random moves, absences, pulled plugs and sleep, and holds the record against what
// was seen from outside: when a period was open, and where the desk itself stood. Fifty days by default; a
// working year: ZELVO_DAYS=250 working_year_tests

#include "data/ActivityPersister.h"
#include "data/AppProperties.h"
#include "data/ManagedObjectContext.h"
#include "data/PersistentStoreCoordinator.h"
#include "desk/ZelvoController.h"
#include "fakes/TestPlatform.h"
#include "platform/simulated/SimulatedHidManager.h"

#include <QFile>

#include <cstdio>
#include <gtest/gtest.h>
#include <malloc.h>
#include <random>
#include <sqlite3.h>

namespace {
constexpr double kHour = 3600;
constexpr double kWorkingHours = 8;
constexpr double kIdleAfter = 300;
/// After a plug or a return, adapter, height and idle time have all been asked once more within this.
constexpr double kSettled = 25;
/// The height is asked each second, and a move passes the standing point somewhere between two questions.
constexpr double kPostureLag = 2;

/// A user who types all the time unless away.
class ScriptedEventSource final : public EventSource {
public:
    double awaySince = -1;
    double atLeast = 0; ///< what the next answer must reach: the time slept

    [[nodiscard]] double secondsSinceLastEventType(EventType eventType) override
    {
        const double idle = awaySince < 0 ? 1.0 : RunLoop::main().bootTimeNow() - awaySince;
        const double answer = std::max(idle, atLeast);
        if (eventType == EventType::OtherMouseDragged) // The last question of a round.
            atLeast = 0;
        return answer;
    }
};

struct Interval {
    double from;
    double to;
};

class WorkingYear {
public:
    WorkingYear()
    {
        AppProperties::resetInstance();
        AppProperties& properties = AppProperties::instance();
        properties.setWeight(80);
        properties.setActivityMode(2);
        properties.setActivityGoal(20);
        properties.setNumberOfStandUps(2);
        Error error;
        m_coordinator = PersistentStoreCoordinator::open(
            {}, m_platform.folder.filePath(QStringLiteral("year.storedata")), error);
        // What a save costs on a disk is not what is looked at here, and a year has a million of them.
        sqlite3_exec(m_coordinator->connection(), "PRAGMA synchronous = OFF", nullptr, nullptr, nullptr);
        m_context = std::make_shared<ManagedObjectContext>(m_coordinator);
        m_hub = std::make_unique<ZelvoController>(ZelvoController::Dependencies {
            m_hid, m_events, m_workspace, [this] { return m_context; }, [this](int32_t) { ++m_reminders; }});
    }

    ~WorkingYear()
    {
        m_hub.reset();
        AppProperties::resetInstance();
    }

    void playDay()
    {
        const double end = loop().now() + kWorkingHours * kHour;
        while (loop().now() < end) {
            pass(between(5, 40) * 60);
            switch (m_random() % 8) {
            case 0:
                beAway(between(1, 50) * 60);
                break;
            case 1:
                pullThePlug(between(0, 300));
                break;
            case 2:
                closeTheLid(between(1, 60) * 60);
                break;
            default:
                changePosition();
            }
        }
        closeTheLid((24 - kWorkingHours) * kHour);
        ++m_days;
    }

    void finish()
    {
        m_hub->terminate();
        m_mayBeClosed = true;
        observe();
    }

    /// The records tile every stretch of time in which a period was seen open, and nothing else.
    void expectRecordsTileWhatWasSeen()
    {
        ActivityPersister persister(m_context);
        const auto records = persister.activitiesFromDate(Date(0), Date(loop().now() + 1));
        ASSERT_TRUE(records);
        double stored = 0;
        double storedStanding = 0;
        double seen = 0;
        size_t at = 0;
        for (const Interval& open : m_open) {
            seen += open.to - open.from;
            double meets = open.from;
            while (at < records->size() && (*records)[at]->startDate().secondsSince1970() < open.to) {
                const Activity& record = *(*records)[at++];
                ASSERT_EQ(record.startDate().secondsSince1970(), meets) << "record " << at;
                meets = record.endDate().secondsSince1970();
                const double seconds = meets - record.startDate().secondsSince1970();
                stored += seconds;
                storedStanding += record.isStanding() ? seconds : 0;
            }
            ASSERT_EQ(meets, open.to) << "before record " << at;
        }
        EXPECT_EQ(at, records->size());
        EXPECT_NEAR(stored, seen, 1e-3);
        EXPECT_NEAR(storedStanding, m_standingSeconds, kPostureLag * m_moves);
        std::printf("%d days: %zu records in %zu unbroken stretches, %.1f h stored, %.1f h seen open\n",
            m_days, records->size(), m_open.size(), stored / kHour, seen / kHour);
        std::printf("standing %.2f h stored, %.2f h by the desk's own height; %d moves, %d reminders\n",
            storedStanding / kHour, m_standingSeconds / kHour, m_moves, m_reminders);
    }

    [[nodiscard]] size_t pendingTimers() { return loop().pendingTimerCount(); }

private:
    VirtualRunLoop& loop() { return m_platform.runLoop; }
    double between(double least, double most)
    {
        return std::uniform_real_distribution<>(least, most)(m_random);
    }

    /// Stops at every timer on the way, so that each change is seen at its own moment.
    void pass(double seconds)
    {
        const double end = loop().monotonicNow() + seconds;
        loop().advance(0);
        observe();
        while (const auto next = loop().secondsToNextTimer()) {
            if (loop().monotonicNow() + *next > end)
                break;
            loop().advance(*next);
            observe();
        }
        loop().advance(end - loop().monotonicNow());
        observe();
    }

    void observe()
    {
        const bool open = m_hub->activity() != nullptr;
        const double now = loop().now();
        if (open && !m_wasOpen)
            m_open.push_back({now, now});
        if (m_wasOpen) {
            if (m_stood)
                m_standingSeconds += now - m_open.back().to;
            m_open.back().to = now;
        }
        m_wasOpen = open;
        m_stood = isDeskHigh();
        expectSense(open);
    }

    /// What holds at every moment, whatever happened before.
    void expectSense(bool open)
    {
        const double away = m_events.awaySince < 0 ? 0 : loop().bootTimeNow() - m_events.awaySince;
        const double settled = loop().bootTimeNow() - m_disturbedAt;
        const bool mustBeClosed = !m_hid.isPlugged() || away > kIdleAfter + kSettled;
        const bool mustBeOpen =
            settled > kSettled && m_hid.isPlugged() && away < kIdleAfter && !m_mayBeClosed;
        EXPECT_FALSE(open && mustBeClosed) << "recorded at " << loop().now() << " without desk or user";
        EXPECT_FALSE(!open && mustBeOpen) << "nothing recorded at " << loop().now();
        const bool isOtherPosture = open && m_hub->activity()->isStanding() != isDeskHigh();
        EXPECT_FALSE(settled > kSettled && isOtherPosture) << "at " << loop().now();
    }

    bool isDeskHigh()
    {
        AppProperties& properties = AppProperties::instance();
        return m_hid.desk().height() > (properties.devicePosition1() + properties.devicePosition2()) / 2;
    }

    void disturb() { m_disturbedAt = loop().bootTimeNow(); }

    void changePosition()
    {
        const auto device = m_hub->device();
        if (!device)
            return;
        disturb();
        const bool stood = isDeskHigh();
        AppProperties& properties = AppProperties::instance();
        device->moveToPosition(m_random() % 2 ? properties.devicePosition1() : properties.devicePosition2());
        pass(between(0.3, 14));
        device->stop();
        observe();
        ++m_moves;
        pass(kPostureLag);
        if (stood != isDeskHigh())
            m_mayBeClosed = false; // A new position opens a period.
    }

    void beAway(double seconds)
    {
        m_events.awaySince = loop().bootTimeNow();
        pass(seconds);
        m_events.awaySince = -1;
        disturb();
        if (seconds > kIdleAfter + kSettled)
            m_mayBeClosed = false; // So does a return.
    }

    void pullThePlug(double seconds)
    {
        disturb();
        m_hid.unplug();
        pass(seconds);
        m_hid.plug();
        disturb();
        pass(2);
        m_mayBeClosed = false;
    }

    void closeTheLid(double seconds)
    {
        m_workspace.screensSleep();
        observe();
        pass(1); // Or a period without any length is among the records.
        m_workspace.willSleep();
        m_mayBeClosed = true; // Time asleep does not count.
        observe();
        loop().sleepMachine(seconds);
        m_events.atLeast = seconds;
        disturb();
        m_workspace.wake();
        // A short sleep is no absence, so that only the next change opens a period again.
        m_mayBeClosed = seconds < kIdleAfter + kSettled;
        observe();
        pass(30);
    }

    TestPlatform m_platform;
    SimulatedHidManager m_hid;
    ScriptedEventSource m_events;
    FakeWorkspace m_workspace;
    std::shared_ptr<PersistentStoreCoordinator> m_coordinator;
    std::shared_ptr<ManagedObjectContext> m_context;
    std::unique_ptr<ZelvoController> m_hub;
    std::mt19937 m_random {2013};
    std::vector<Interval> m_open;
    bool m_wasOpen = false;
    bool m_stood = false;
    double m_standingSeconds = 0;
    double m_disturbedAt = 0; ///< on the boot clock: moved, plugged, woken or come back
    bool m_mayBeClosed = false; ///< a short sleep closed the period, or the program's end
    int m_moves = 0;
    int m_reminders = 0;
    int m_days = 0;
};

size_t heapBytes()
{
    return mallinfo2().uordblks;
}
}

TEST(WorkingYear, recordsTileTheActiveTimeAndNothingGrows)
{
    ASSERT_TRUE(std::freopen("/dev/null", "w", stderr)); // The log of a year is long.
    const int days =
        qEnvironmentVariableIsSet("ZELVO_DAYS") ? qEnvironmentVariableIntValue("ZELVO_DAYS") : 50;
    WorkingYear year;
    year.playDay();
    const size_t timers = year.pendingTimers();
    const size_t heap = heapBytes();
    const size_t mostHeap = heap + size_t(1024) * 1024;
    size_t mostTimers = 0;
    for (int day = 1; day < days; ++day) {
        year.playDay();
        mostTimers = std::max(mostTimers, year.pendingTimers());
    }
    std::printf("timers after day 1: %zu, most since: %zu; heap after day 1: %zu kB, now: %zu kB\n", timers,
        mostTimers, heap / 1024, heapBytes() / 1024);
    EXPECT_LE(mostTimers, timers + 1); // One more while a schedule runs.
    EXPECT_LT(heapBytes(), mostHeap);
    year.finish();
    year.expectRecordsTileWhatWasSeen();
}
