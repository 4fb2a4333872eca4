#include "data/ActivityPersister.h"

#include "data/AppProperties.h"
#include "data/CalorieCalculator.h"
#include "fakes/TestStore.h"

#include <cmath>
#include <random>
#include <sqlite3.h>

namespace {
constexpr double kDayStart = TestPlatform::kStart - 8 * Date::kHour; ///< 2024-03-15 00:00 UTC
constexpr double kHour = Date::kHour;

class ActivityPersisterTest : public testing::Test {
protected:
    ActivityPersisterTest()
    {
        AppProperties::resetInstance();
        AppProperties::instance().setWeight(80);
        AppProperties::instance().setActivityGoal(100);
    }
    ~ActivityPersisterTest() override { AppProperties::resetInstance(); }

    /// A saved record, in hours of the day.
    void record(double startHour, double endHour, bool isStanding)
    {
        ASSERT_TRUE(persister.createWithStartDate(
            Date(kDayStart + startHour * kHour), Date(kDayStart + endHour * kHour), isStanding, 80));
    }

    TestPlatform platform;
    TestStore store {platform};
    ActivityPersister persister {store.context};
    const Date today {kDayStart + 12 * kHour};
};

/// What is written to the log while it lives.
class LogCapture {
public:
    LogCapture() { testing::internal::CaptureStderr(); }
    ~LogCapture() { text(); }
    const std::string& text()
    {
        if (m_capturing)
            m_text = testing::internal::GetCapturedStderr();
        m_capturing = false;
        return m_text;
    }

private:
    bool m_capturing = true;
    std::string m_text;
};
}

TEST_F(ActivityPersisterTest, opensARecordNowWithTheUsersWeight)
{
    LogCapture log;
    const ActivityRef activity = persister.createIsStanding(true);
    ASSERT_TRUE(activity);
    EXPECT_NE(log.text().find("Creating new activity. startDate: 2024-03-15T08:00:00.000Z, endDate: "
                              "2024-03-15T08:00:00.000Z, isStanding: 1, weight: 80.000000\n"),
        std::string::npos)
        << log.text();
    store.reopen();
    const ActivityRef stored = store.all().at(0);
    EXPECT_EQ(stored->startDate(), Date(TestPlatform::kStart));
    EXPECT_EQ(stored->endDate(), stored->startDate());
    EXPECT_TRUE(stored->isStanding());
    EXPECT_EQ(stored->weight(), 80);
}

TEST_F(ActivityPersisterTest, aPulseMovesTheEndToNowAndSavesIt)
{
    const ActivityRef activity = persister.createIsStanding(false);
    platform.runLoop.advance(15);
    LogCapture log;
    EXPECT_TRUE(activity->pulse());
    EXPECT_NE(log.text().find("Activity pulse\n"), std::string::npos);
    store.reopen();
    EXPECT_EQ(store.all().at(0)->endDate(), Date(TestPlatform::kStart + 15));
}

TEST_F(ActivityPersisterTest, whatCannotBeSavedIsLoggedAndGoesOutLater)
{
    const ActivityRef activity = persister.createIsStanding(true);
    sqlite3* connection = store.coordinator->connection();
    ASSERT_EQ(sqlite3_exec(connection, "PRAGMA query_only = 1", nullptr, nullptr, nullptr), SQLITE_OK);
    platform.runLoop.advance(15);
    LogCapture log;
    EXPECT_FALSE(activity->pulse());
    EXPECT_FALSE(persister.createIsStanding(false));
    EXPECT_NE(log.text().find("Couldn't save pulse: StoreNotWritable"), std::string::npos) << log.text();
    EXPECT_NE(log.text().find("Couldn't save: StoreNotWritable"), std::string::npos);
    EXPECT_EQ(persister.count(), 2U) << "the inserted record stays in the context";
    ASSERT_EQ(sqlite3_exec(connection, "PRAGMA query_only = 0", nullptr, nullptr, nullptr), SQLITE_OK);
    EXPECT_TRUE(persister.save());
    store.reopen();
    EXPECT_EQ(store.all().size(), 2U);
    EXPECT_EQ(store.all().at(0)->endDate(), Date(TestPlatform::kStart + 15));
}

TEST_F(ActivityPersisterTest, aFetchThatFailsIsLoggedAndSumsUpToNothing)
{
    record(9, 10, true);
    ASSERT_EQ(sqlite3_exec(store.coordinator->connection(), "DROP TABLE Activity", nullptr, nullptr, nullptr),
        SQLITE_OK);
    LogCapture log;
    EXPECT_FALSE(persister.activitiesOnDay(today));
    EXPECT_EQ(persister.minutesActiveOnDay(today), 0);
    EXPECT_EQ(persister.caloriesBurnedOnDay(today), 0);
    EXPECT_TRUE(std::isnan(persister.percentStandingOnDay(today)));
    EXPECT_EQ(persister.count(), 0U);
    EXPECT_NE(log.text().find("Couldn't save: "), std::string::npos);
}

TEST_F(ActivityPersisterTest, withoutAContextNothingIsMadeOrFound)
{
    ActivityPersister orphan {std::shared_ptr<ManagedObjectContext>()};
    const LogCapture log;
    EXPECT_FALSE(orphan.createIsStanding(true));
    EXPECT_FALSE(orphan.save());
    EXPECT_EQ(orphan.count(), 0U);
    EXPECT_FALSE(orphan.activitiesOnDay(today));
    EXPECT_EQ(orphan.minutesActiveOnDay(today, true), 0);
    EXPECT_EQ(orphan.caloriesBurnedOnDay(today), 0);
    EXPECT_TRUE(std::isnan(orphan.percentStandingOnDay(today)));
}

TEST_F(ActivityPersisterTest, aRecordWithoutARealDateIsNotMade)
{
    const LogCapture log;
    EXPECT_FALSE(persister.createWithStartDate(Date(std::nan("")), today, true, 80));
    EXPECT_FALSE(persister.createWithStartDate(today, Date(HUGE_VAL), true, 80));
    EXPECT_EQ(persister.count(), 0U);
}

TEST_F(ActivityPersisterTest, aDayCountsWhatLiesInItAndWhatReachesIntoIt)
{
    record(-1, 1, true); // across the midnight before
    record(9, 10, true);
    record(10, 12, false);
    record(12, 12, true);
    record(22, 24, true); // ends exactly at midnight: in neither day
    EXPECT_EQ(persister.minutesActiveOnDay(today), 60 + 60 + 120);
    EXPECT_EQ(persister.minutesActiveOnDay(today.dateByAddingDays(-1)), 60);
    EXPECT_EQ(persister.minutesActiveOnDay(today.dateByAddingDays(1)), 0);
    EXPECT_EQ(persister.minutesActiveOnDay(today, true), 120);
    EXPECT_EQ(persister.minutesActiveOnDay(today, false), 60 + 120)
        << "standing over midnight counts as sitting too";
    EXPECT_EQ(persister.activitiesOnDay(today)->size(), 4U);
    EXPECT_EQ(persister.activitiesOnDay(today, false)->size(), 2U);
    EXPECT_DOUBLE_EQ(persister.percentStandingOnDay(today), 50);
    EXPECT_DOUBLE_EQ(
        persister.caloriesBurnedOnDay(today), CalorieCalculator::caloriesBurnedInMinutes(120, 80));
}

TEST_F(ActivityPersisterTest, aPeriodOfExactlyOneDayIsReturned)
{
    record(0, 24, true);
    EXPECT_EQ(persister.minutesActiveOnDay(today), 24 * 60);
}

TEST_F(ActivityPersisterTest, anEmptyDayHasNoShareOfStanding)
{
    EXPECT_TRUE(std::isnan(persister.percentStandingOnDay(today)));
    EXPECT_EQ(persister.minutesActiveOnDay(today), 0);
}

TEST_F(ActivityPersisterTest, countsTheDaysOnWhichTheGoalWasMet)
{
    // 100 kcal are 105 minutes at 80 kg.
    record(9, 11, true);
    record(24 + 9, 24 + 10, true);
    record(48 + 9, 48 + 9 + 2, true);
    EXPECT_TRUE(persister.goalMetOnDay(today));
    EXPECT_FALSE(persister.goalMetOnDay(today.dateByAddingDays(1)));
    EXPECT_EQ(persister.goalsMetFromDay(today, today.dateByAddingDays(2)), 2);
    EXPECT_EQ(persister.goalsMetFromDay(today, today), 1);
    EXPECT_EQ(persister.goalsMetFromDay(today.dateByAddingDays(1), today.dateByAddingDays(1)), 0);
    EXPECT_EQ(persister.goalsMetFromDay(today, today.dateByAddingDays(-1)), 0);
    AppProperties::instance().setWeight(40);
    EXPECT_EQ(persister.goalsMetFromDay(today, today.dateByAddingDays(2)), 0) << "the weight of today counts";
}

/// The totals read no objects, and yet are to the last bit what the objects of a fetch add up to.
TEST_F(ActivityPersisterTest, totalsEqualTheSumsOverFetchedRecords)
{
    std::mt19937 engine(3);
    const auto hours = [&](double low, double high) {
        return std::uniform_real_distribution<>(low, high)(engine);
    };
    Error error;
    for (int i = 0; i < 300; ++i) {
        const double start = kDayStart + hours(-48, 48) * kHour;
        store.insert(start, start + hours(-1, 4) * kHour, engine() % 2 == 0);
        if (i == 200) {
            ASSERT_TRUE(store.context->save(error));
        }
    }
    for (int round = 0; round < 50; ++round) {
        const Date from(kDayStart + hours(-48, 48) * kHour);
        const Date to = from.dateByAddingSeconds(hours(0, 48) * kHour);
        double minutes = 0;
        double standingMinutes = 0;
        double seconds = 0;
        double standingSeconds = 0;
        const auto activities = persister.activitiesFromDate(from, to);
        for (const ActivityRef& activity : *activities) {
            const double clipped = ActivityPersister::activityTimeForActivity(*activity, from, to);
            minutes += clipped / 60;
            seconds += clipped;
            standingMinutes += activity->isStanding() ? clipped / 60 : 0;
            standingSeconds += activity->isStanding() ? clipped : 0;
        }
        EXPECT_EQ(persister.minutesActiveFromDate(from, to), minutes);
        EXPECT_EQ(persister.caloriesBurnedFromDate(from, to),
            CalorieCalculator::caloriesBurnedInMinutes(standingMinutes, 80));
        EXPECT_EQ(persister.percentStandingFromDate(from, to), standingSeconds / seconds * 100);
        double posture = 0;
        const auto standing = persister.activitiesFromDate(from, to, true);
        for (const ActivityRef& activity : *standing)
            posture += ActivityPersister::activityTimeForActivity(*activity, from, to) / 60;
        EXPECT_EQ(persister.minutesActiveFromDate(from, to, true), posture);
    }
}
