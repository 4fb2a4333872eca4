#include "data/ActivityPersister.h"

#include "data/AppProperties.h"
#include "fakes/Files.h"
#include "fakes/TestStore.h"

#include <algorithm>
#include <cmath>

namespace {
constexpr double kWeight = 67.5;
constexpr double kCaloriesPerMinute = kWeight * 2.205 * 0.0054;

struct ActivityPersisterTest : testing::Test {
    ActivityPersisterTest()
    {
        AppProperties::instance().setWeight(kWeight);
        AppProperties::instance().setActivityGoal(100); // 124.42 minutes
    }

    /// A record from that hour of the day on, saved with the next save.
    ActivityRef record(double startHour, double minutes, bool isStanding)
    {
        const double start = hour(startHour).secondsSince1970();
        return store.insert(start, start + minutes * Date::kMinute, isStanding, 99);
    }
    /// Of 2024-03-15.
    static Date hour(double hour) { return Date(TestPlatform::kStart + (hour - 8) * Date::kHour); }

    TestPlatform platform;
    TestStore store {platform};
    ActivityPersister persister {store.context};
    const Date today = hour(12);
};
}

TEST_F(ActivityPersisterTest, withoutAContextOrTableEverythingIsNothing)
{
    std::shared_ptr<ManagedObjectContext> context;
    ActivityPersister asking(ManagedObjectContextProvider([&] { return context; }));
    const std::pair<const char*, int> kComplaints[] = {
        {"Failed to initialize the store", 1}, {"StoreUnreadable", 4}};
    for (const auto& [complaint, times] : kComplaints) {
        const QString log = logOf([&] {
            EXPECT_FALSE(asking.activitiesOnDay(today) || asking.count() || asking.createIsStanding(true));
            EXPECT_EQ(asking.minutesActiveOnDay(today), 0);
            EXPECT_TRUE(std::isnan(asking.percentStandingOnDay(today)));
        });
        EXPECT_EQ(log.count(QString("Couldn't save: ") + complaint), times) << qPrintable(log);
        context = store.context;
        store.execute("DROP TABLE IF EXISTS Activity");
    }
    store.execute("BEGIN; ROLLBACK"); // Nothing is left under way.
    EXPECT_TRUE(asking.unsavedActivity()) << "the inserted record stays in the context";
}

TEST_F(ActivityPersisterTest, sumsDaysUpAndCountsThoseOnWhichTheGoalWasMet)
{
    record(9, 94.43, true);
    record(12, 180, false);
    record(23.5, 90, true); // Covers midnight: the posture is not asked of it.
    record(24 + 9, 64.41, true);
    record(48 + 9, 180, true);
    EXPECT_NEAR(persister.minutesActiveOnDay(today), 304.43, 1e-6);
    EXPECT_NEAR(persister.minutesActiveOnDay(today, true), 124.43, 1e-6);
    EXPECT_NEAR(persister.minutesActiveOnDay(today, false), 210, 1e-6);
    EXPECT_NEAR(persister.caloriesBurnedOnDay(today), 124.43 * kCaloriesPerMinute, 1e-6);
    EXPECT_NEAR(persister.percentStandingOnDay(today), 124.43 / 304.43 * 100, 1e-6);
    EXPECT_EQ(persister.activitiesOnDay(today)->size(), 3U);
    EXPECT_EQ(persister.activitiesOnDay(today, true)->size(), 2U);
    const int kCases[][3] = {{0, 2, 2}, {0, 0, 1}, {1, 1, 0}, {2, 2, 1}, {0, -1, 0}, {-30, 30, 2}};
    for (const auto& [first, last, goals] : kCases)
        EXPECT_EQ(
            persister.goalsMetFromDay(today.dateByAddingDays(first), today.dateByAddingDays(last)), goals)
            << first << " to " << last;
    AppProperties::instance().setWeight(67.6);
    EXPECT_EQ(persister.goalsMetFromDay(today, today.dateByAddingDays(2)), 3) << "the weight of today counts";
    AppProperties::instance().setActivityGoal(persister.caloriesBurnedOnDay(today));
    EXPECT_TRUE(persister.goalMetOnDay(today)) << "to the calorie";
    record(14, 7, true);
    EXPECT_FALSE(persister.goalMetOnDay(today.dateByAddingDays(1)));
    EXPECT_NEAR(persister.minutesActiveOnDay(today), 311.43, 1e-6) << "what is new counts before it is saved";
}

TEST_F(ActivityPersisterTest, findsAndClipsStoredChangedAndUnsavedRecords)
{
    enum Found { Never, WithItsPosture, Always };
    const struct {
        double start, minutes; ///< the hour of the day in which it begins, and its length
        Found found; ///< from 8 to 20 hours
        double inside; ///< minutes
    } kCases[] = {{6, 119, Never, 0}, {6, 120, Always, 0}, {6, 121, Always, 1}, {8, 7, Always, 7},
        {8, 0, Always, 0}, {8.25, 13, WithItsPosture, 13}, {10, 0, WithItsPosture, 0},
        {19.5, 29, WithItsPosture, 29}, {19.5, 30, Never, 0}, {19.5, 31, Always, 30}, {20, 0, Never, 0},
        {20, 5, Never, 0}, {8, 720, Always, 720},
        // A day is usual, more is not.
        {7, 1440, Always, 720}, {-16, 1440, Always, 0}, {-15.75, 1440, Always, 15},
        {7.5, 1440.1, Always, 720}, {-90, 9000, Always, 720},
        // Backwards, where the clock was set.
        {12, -61, WithItsPosture, -61}, {12, -300, WithItsPosture, -300}, {23, -240, WithItsPosture, -240},
        {23, -9000, WithItsPosture, -9000}, {7, -1, Never, 0}, {23, -180, Never, 0}};
    std::vector<ActivityRef> changed;
    for (const bool isSaved : {true, false}) {
        for (const auto& row : kCases) {
            for (const bool isStanding : {false, true}) {
                record(row.start, row.minutes, isStanding);
                if (isSaved)
                    changed.push_back(record(14 + row.start, 2, !isStanding));
            }
        }
        ASSERT_TRUE(!isSaved || persister.save());
    }
    for (size_t i = 0; i < changed.size(); ++i) {
        const auto& [start, minutes, found, inside] = kCases[i / 2];
        changed[i]->setStartDate(hour(start));
        changed[i]->setEndDate(hour(start + minutes / 60));
        changed[i]->setIsStanding(i % 2 == 1);
    }
    const Date from = hour(8);
    const Date to = hour(20);
    for (const std::optional<bool> posture : {std::optional<bool>(), {true}, {false}}) {
        EXPECT_EQ(persister.count(), 6 * std::size(kCases));
        size_t count = 0;
        double minutes = 0;
        for (const auto& row : kCases) {
            const int times = row.found == Never ? 0 : row.found == Always || !posture ? 6 : 3;
            count += size_t(times);
            minutes += times * row.inside;
        }
        const auto fetched = posture ? persister.activitiesFromDate(from, to, *posture)
                                     : persister.activitiesFromDate(from, to);
        ASSERT_TRUE(fetched);
        EXPECT_EQ(fetched->size(), count);
        EXPECT_TRUE(std::ranges::is_sorted(
            *fetched, {}, [](const auto& activity) { return activity->startDate().secondsSince1970(); }));
        EXPECT_NEAR(posture ? persister.minutesActiveFromDate(from, to, *posture)
                            : persister.minutesActiveFromDate(from, to),
            minutes, 1e-6);
    }
    EXPECT_NEAR(persister.caloriesBurnedFromDate(from, to),
        persister.minutesActiveFromDate(from, to) / 2 * kCaloriesPerMinute, 1e-6);
    EXPECT_EQ(ActivityPersister::activityTimeForActivity(*changed[4], from, to), 60);
    EXPECT_NEAR(persister.percentStandingFromDate(from, to), 50, 1e-9);
    EXPECT_EQ(persister.activitiesFromDate(to, from)->size(), 6 * 11U) << "what covers either end";
}
