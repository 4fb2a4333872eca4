// Plays working days with random moves, absences, pulled plugs and sleep, and holds the store against what
// was seen from outside. Ten days by default; a working year: ZELVO_DAYS=250 working_year_tests

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

namespace {
constexpr double kHour = 3600;
constexpr double kWorkingHours = 8;

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
        m_context = std::make_shared<ManagedObjectContext>(PersistentStoreCoordinator::open(
            m_platform.folder.filePath(QStringLiteral("year.storedata")), error));
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
        observe();
    }

    /// The records tile every stretch of time in which a period was seen open, and nothing else.
    void expectRecordsTileWhatWasSeen()
    {
        ActivityPersister persister(m_context);
        const auto records = persister.activitiesFromDate(Date(0), Date(loop().now() + 1));
        ASSERT_TRUE(records);
        double stored = 0;
        double seen = 0;
        size_t at = 0;
        for (const Interval& open : m_open) {
            seen += open.to - open.from;
            double meets = open.from;
            while (at < records->size() && (*records)[at]->startDate().secondsSince1970() < open.to) {
                const Activity& record = *(*records)[at++];
                ASSERT_EQ(record.startDate().secondsSince1970(), meets) << "record " << at;
                meets = record.endDate().secondsSince1970();
                stored += meets - record.startDate().secondsSince1970();
            }
            ASSERT_EQ(meets, open.to) << "before record " << at;
        }
        EXPECT_EQ(at, records->size());
        EXPECT_NEAR(stored, seen, 1e-3);
        std::printf(
            "%d days: %zu records in %zu unbroken stretches, %.1f h stored, %.1f h seen open, %d reminders\n",
            m_days, records->size(), m_open.size(), stored / kHour, seen / kHour, m_reminders);
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
        if (open && !m_wasOpen)
            m_open.push_back({loop().now(), loop().now()});
        if (m_wasOpen)
            m_open.back().to = loop().now();
        m_wasOpen = open;
    }

    void changePosition()
    {
        const auto device = m_hub->device();
        if (!device)
            return;
        AppProperties& properties = AppProperties::instance();
        device->moveToPosition(m_random() % 2 ? properties.devicePosition1() : properties.devicePosition2());
        pass(between(0.3, 14));
        device->stop();
        observe();
    }

    void beAway(double seconds)
    {
        m_events.awaySince = loop().bootTimeNow();
        pass(seconds);
        m_events.awaySince = -1;
    }

    void pullThePlug(double seconds)
    {
        m_hid.unplug();
        pass(seconds);
        m_hid.plug();
        pass(2);
    }

    void closeTheLid(double seconds)
    {
        m_workspace.screensSleep();
        observe();
        m_workspace.willSleep();
        observe();
        loop().sleepMachine(seconds);
        m_events.atLeast = seconds;
        m_workspace.wake();
        observe();
        pass(30);
    }

    TestPlatform m_platform;
    SimulatedHidManager m_hid;
    ScriptedEventSource m_events;
    FakeWorkspace m_workspace;
    std::shared_ptr<ManagedObjectContext> m_context;
    std::unique_ptr<ZelvoController> m_hub;
    std::mt19937 m_random {2013};
    std::vector<Interval> m_open;
    bool m_wasOpen = false;
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
    const int days =
        qEnvironmentVariableIsSet("ZELVO_DAYS") ? qEnvironmentVariableIntValue("ZELVO_DAYS") : 10;
    WorkingYear year;
    year.playDay();
    const size_t timers = year.pendingTimers();
    const size_t heap = heapBytes();
    size_t mostTimers = 0;
    for (int day = 1; day < days; ++day) {
        year.playDay();
        mostTimers = std::max(mostTimers, year.pendingTimers());
    }
    std::printf("timers after day 1: %zu, most since: %zu; heap after day 1: %zu kB, now: %zu kB\n", timers,
        mostTimers, heap / 1024, heapBytes() / 1024);
    EXPECT_LE(mostTimers, timers + 1); // One more while a schedule runs.
    EXPECT_LT(heapBytes(), heap + size_t(1024) * 1024);
    year.finish();
    year.expectRecordsTileWhatWasSeen();
}
