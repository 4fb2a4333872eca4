#include "data/ActivityPersister.h"

#include "data/AppProperties.h"
#include "data/StoreFile.h"

#include <algorithm>
#include <cmath>
#include <random>

namespace {
constexpr double kDayStart = TestPlatform::kStart - 8 * Date::kHour; ///< 2024-03-15 00:00 UTC
constexpr double kWeight = 67.5; ///< 67.5 * 2.205 * 0.0054 kcal a minute

class ActivityPersisterTest : public testing::Test {
protected:
    ActivityPersisterTest()
    {
        AppProperties::instance().setWeight(kWeight);
        AppProperties::instance().setActivityGoal(100); // 124.42 minutes
    }

    /// A record in hours of the day, saved with the next save.
    void record(double startHour, double endHour, bool isStanding)
    {
        store.insert(kDayStart + startHour * Date::kHour, kDayStart + endHour * Date::kHour, isStanding, 99);
    }
    TestPlatform platform;
    TestStore store {platform};
    ActivityPersister persister {store.context};
    const Date today {kDayStart + 12 * Date::kHour};
};
}

TEST_F(ActivityPersisterTest, whatCannotBeSavedIsLoggedAndGoesOutLater)
{
    testing::internal::CaptureStderr();
    const ActivityRef activity = persister.createIsStanding(true);
    platform.runLoop.advance(15);
    EXPECT_TRUE(activity->pulse());
    execute(store.coordinator->connection(), "PRAGMA query_only = 1");
    platform.runLoop.advance(15.25);
    EXPECT_FALSE(activity->pulse());
    EXPECT_FALSE(persister.unsavedActivity());
    EXPECT_FALSE(persister.createIsStanding(false));
    EXPECT_TRUE(persister.unsavedActivity()) << "the inserted record stays in the context";
    const QString log = QString::fromStdString(testing::internal::GetCapturedStderr());
    for (const char* const words :
        {"Creating new activity. startDate: 2024-03-15T08:00:00.000Z, endDate: 2024-03-15T08:00:00.000Z, "
         "isStanding: 1, weight: 67.500000\n",
            "startDate: 2024-03-15T08:00:30.250Z", "Activity pulse\n",
            "Couldn't save pulse: StoreNotWritable", "Couldn't save: StoreNotWritable"})
        EXPECT_TRUE(log.contains(words)) << qPrintable(log);
    EXPECT_EQ(persister.count(), 2U);
    execute(store.coordinator->connection(), "PRAGMA query_only = 0");
    EXPECT_TRUE(persister.save());
    store.reopen();
    const auto all = store.all();
    ASSERT_EQ(all.size(), 2U);
    EXPECT_EQ(all[0]->period(),
        (ActivityPeriod {Date(TestPlatform::kStart), Date(TestPlatform::kStart + 30.25), true}));
    EXPECT_EQ(all[0]->weight(), kWeight);
}

TEST_F(ActivityPersisterTest, withoutAContextOrTableEverythingIsNothing)
{
    std::shared_ptr<ManagedObjectContext> context;
    ActivityPersister asking(ManagedObjectContextProvider([&] { return context; }));
    record(9, 10, true);
    for (const int complaints : {1, 4}) {
        testing::internal::CaptureStderr();
        EXPECT_FALSE(asking.activitiesOnDay(today));
        EXPECT_EQ(asking.minutesActiveOnDay(today), 0);
        EXPECT_TRUE(std::isnan(asking.percentStandingOnDay(today)));
        EXPECT_EQ(asking.count(), 0U);
        EXPECT_FALSE(asking.createIsStanding(true));
        const QString log = QString::fromStdString(testing::internal::GetCapturedStderr());
        EXPECT_EQ(log.count("Couldn't save: "), complaints) << qPrintable(log);
        context = store.context;
        EXPECT_EQ(asking.count(), complaints == 1 ? 1U : 0U);
        execute(store.coordinator->connection(), "DROP TABLE IF EXISTS Activity");
    }
}

TEST_F(ActivityPersisterTest, countsTheDaysOnWhichTheGoalWasMet)
{
    record(9, 9 + 124.43 / 60, true);
    record(24 + 9, 24 + 9 + 124.41 / 60, true);
    record(48 + 9, 48 + 12, true);
    const int kCases[][3] = {{0, 2, 2}, {0, 0, 1}, {1, 1, 0}, {2, 2, 1}, {0, -1, 0}, {-30, 30, 2}};
    for (const auto& [first, last, goals] : kCases)
        EXPECT_EQ(
            persister.goalsMetFromDay(today.dateByAddingDays(first), today.dateByAddingDays(last)), goals)
            << first << " to " << last;
    AppProperties::instance().setWeight(67.6);
    EXPECT_EQ(persister.goalsMetFromDay(today, today.dateByAddingDays(2)), 3) << "the weight of today counts";
}

/// Random records, stored, changed since and not stored yet, whose edges often coincide with those of the
/// intervals and days asked for. Fetches and totals are what plain arithmetic over the list gives.
TEST_F(ActivityPersisterTest, fetchesAndTotalsAreThoseOfPlainArithmetic)
{
    struct Record {
        double start, end;
        bool isStanding;
    };
    std::mt19937 engine(20130101);
    const auto pick = [&](int low, int high) { return std::uniform_int_distribution<>(low, high)(engine); };
    const auto gridPoint = [&] { return kDayStart + 900.0 * pick(0, 6 * 96) + (pick(0, 3) ? 0 : 0.5); };
    std::vector<Record> records(600); // A record's weight is its number in this list.
    std::vector<ActivityRef> objects;
    for (size_t i = 0; i < 750; ++i) {
        const double lengths[] = {0, 900.0 * pick(1, 12), 85500, 86400, 86400.001, 900.0 * pick(96, 300),
            -900, -900.0 * pick(1, 300)};
        const double start = gridPoint();
        const Record random {start, start + lengths[pick(0, 7)], pick(0, 1) == 1};
        records[i % 600] = random;
        if (i < 600)
            objects.push_back(store.insert(0, 0, false, double(i)));
        objects[i % 600]->setStartDate(Date(random.start));
        objects[i % 600]->setEndDate(Date(random.end));
        objects[i % 600]->setIsStanding(random.isStanding);
        ASSERT_TRUE(i != 449 || persister.save());
    }
    ActivityPersister& p = persister;
    for (int round = 0; round < 400; ++round) {
        SCOPED_TRACE(round);
        const bool isDay = round % 5 == 0;
        const double from = isDay ? kDayStart + Date::kDay * pick(0, 5) : gridPoint();
        const double to = isDay ? from + Date::kDay : round % 3 ? from + 900 * pick(0, 96) : gridPoint();
        const int posture = round % 4; // 0 and 1: sitting and standing, else any
        std::vector<double> expected;
        double minutes = 0;
        double standingMinutes = 0;
        for (size_t i = 0; i < records.size(); ++i) {
            const auto& [start, end, isStanding] = records[i];
            const bool hasPosture = posture > 1 || isStanding == (posture == 1);
            if (!(hasPosture && start >= from && end < to) && !(start <= from && end >= from)
                && !(start < to && end > to))
                continue;
            const double clipped = (std::min(end, to) - std::max(start, from)) / 60;
            expected.push_back(double(i));
            minutes += clipped;
            standingMinutes += isStanding ? clipped : 0;
        }
        const Date a(from);
        const Date b(to);
        const Date someTime(from + 77777);
        const auto ask = [&](auto onDay, auto fromDate) { return isDay ? onDay() : fromDate(); };
        const auto fetched = posture > 1
            ? ask([&] { return p.activitiesOnDay(someTime); }, [&] { return p.activitiesFromDate(a, b); })
            : ask([&] { return p.activitiesOnDay(someTime, posture == 1); },
                [&] { return p.activitiesFromDate(a, b, posture == 1); });
        ASSERT_TRUE(fetched);
        EXPECT_TRUE(std::ranges::is_sorted(
            *fetched, {}, [](const auto& activity) { return activity->startDate().secondsSince1970(); }));
        std::vector<double> found;
        double clippedSeconds = 0;
        for (const ActivityRef& activity : *fetched) {
            found.push_back(activity->weight());
            clippedSeconds += ActivityPersister::activityTimeForActivity(*activity, a, b);
        }
        std::ranges::sort(found);
        ASSERT_EQ(found, expected);
        EXPECT_NEAR(clippedSeconds / 60, minutes, 1e-6);
        if (posture <= 1) {
            EXPECT_NEAR(ask([&] { return p.minutesActiveOnDay(someTime, posture == 1); },
                            [&] { return p.minutesActiveFromDate(a, b, posture == 1); }),
                minutes, 1e-6);
            continue;
        }
        EXPECT_NEAR(ask([&] { return p.minutesActiveOnDay(someTime); },
                        [&] { return p.minutesActiveFromDate(a, b); }),
            minutes, 1e-6);
        EXPECT_NEAR(ask([&] { return p.caloriesBurnedOnDay(someTime); },
                        [&] { return p.caloriesBurnedFromDate(a, b); }),
            standingMinutes * kWeight * 2.205 * 0.0054, 1e-6);
        if (minutes != 0) {
            EXPECT_NEAR(ask([&] { return p.percentStandingOnDay(someTime); },
                            [&] { return p.percentStandingFromDate(a, b); }),
                standingMinutes / minutes * 100, 1e-6 + std::abs(1e-3 / minutes));
        }
    }
}
