#include "data/ActivityPersister.h"

#include "data/AppProperties.h"
#include "fakes/TestStore.h"

#include <algorithm>
#include <cmath>
#include <random>
#include <set>
#include <sqlite3.h>

namespace {
constexpr double kDayStart = TestPlatform::kStart - 8 * Date::kHour; ///< 2024-03-15 00:00 UTC
constexpr double kHour = Date::kHour;
constexpr double kWeight = 67.5; ///< 67.5 * 2.205 * 0.0054 kcal a minute

class ActivityPersisterTest : public testing::Test {
protected:
    ActivityPersisterTest()
    {
        AppProperties::resetInstance();
        AppProperties::instance().setWeight(kWeight);
        AppProperties::instance().setActivityGoal(100); // 124.42 minutes
    }
    ~ActivityPersisterTest() override { AppProperties::resetInstance(); }

    /// A record in hours of the day, saved with the next save.
    void record(double startHour, double endHour, bool isStanding)
    {
        store.insert(kDayStart + startHour * kHour, kDayStart + endHour * kHour, isStanding, 99);
    }
    [[nodiscard]] std::vector<double> minutes(Date day)
    {
        return {persister.minutesActiveOnDay(day), persister.minutesActiveOnDay(day, true),
            persister.minutesActiveOnDay(day, false)};
    }

    TestPlatform platform;
    TestStore store {platform};
    ActivityPersister persister {store.context};
    const Date today {kDayStart + 12 * kHour};
};
}

TEST_F(ActivityPersisterTest, opensARecordNowAndPulsesItInFixedWords)
{
    testing::internal::CaptureStderr();
    const ActivityRef activity = persister.createIsStanding(true);
    ASSERT_TRUE(activity);
    platform.runLoop.advance(15);
    EXPECT_TRUE(activity->pulse());
    const QString log = QString::fromStdString(testing::internal::GetCapturedStderr());
    for (const char* const line :
        {"Creating new activity. startDate: 2024-03-15T08:00:00.000Z, endDate: 2024-03-15T08:00:00.000Z, "
         "isStanding: 1, weight: 67.500000\n",
            "Activity pulse\n"})
        EXPECT_TRUE(log.contains(QLatin1String(line))) << qPrintable(log);
    store.reopen();
    const ActivityRef stored = store.all().at(0);
    EXPECT_EQ(stored->startDate(), Date(TestPlatform::kStart));
    EXPECT_EQ(stored->endDate(), Date(TestPlatform::kStart + 15));
    EXPECT_TRUE(stored->isStanding());
    EXPECT_EQ(stored->weight(), kWeight);
}

TEST_F(ActivityPersisterTest, whatCannotBeSavedIsLoggedAndGoesOutLater)
{
    const ActivityRef activity = persister.createIsStanding(true);
    sqlite3* connection = store.coordinator->connection();
    ASSERT_EQ(sqlite3_exec(connection, "PRAGMA query_only = 1", nullptr, nullptr, nullptr), SQLITE_OK);
    platform.runLoop.advance(15);
    testing::internal::CaptureStderr();
    EXPECT_FALSE(activity->pulse());
    EXPECT_FALSE(persister.unsavedActivity());
    EXPECT_FALSE(persister.createIsStanding(false));
    EXPECT_FALSE(persister.createWithStartDate(Date(std::nan("")), today, true, 80)) << "no date, no record";
    EXPECT_FALSE(persister.unsavedActivity());
    const QString log = QString::fromStdString(testing::internal::GetCapturedStderr());
    EXPECT_TRUE(log.contains(QStringLiteral("Couldn't save pulse: StoreNotWritable"))) << qPrintable(log);
    EXPECT_TRUE(log.contains(QStringLiteral("Couldn't save: StoreNotWritable")));
    EXPECT_EQ(persister.count(), 2U) << "the inserted record stays in the context";
    ASSERT_EQ(sqlite3_exec(connection, "PRAGMA query_only = 0", nullptr, nullptr, nullptr), SQLITE_OK);
    EXPECT_TRUE(persister.save());
    store.reopen();
    EXPECT_EQ(store.all().size(), 2U);
    EXPECT_EQ(store.all().at(0)->endDate(), Date(TestPlatform::kStart + 15));
}

TEST_F(ActivityPersisterTest, withoutAContextOrTableEverythingIsNothing)
{
    std::shared_ptr<ManagedObjectContext> context;
    ActivityPersister asking(ManagedObjectContextProvider([&] { return context; }));
    record(9, 10, true);
    for (const bool hasContext : {false, true}) {
        testing::internal::CaptureStderr();
        EXPECT_FALSE(asking.activitiesOnDay(today));
        EXPECT_EQ(asking.minutesActiveOnDay(today), 0);
        EXPECT_TRUE(std::isnan(asking.percentStandingOnDay(today)));
        EXPECT_EQ(asking.count(), 0U);
        EXPECT_FALSE(asking.createIsStanding(true));
        EXPECT_NE(testing::internal::GetCapturedStderr().find("Couldn't save: "), std::string::npos);
        if (!hasContext) {
            context = store.context;
            EXPECT_EQ(asking.count(), 1U);
            sqlite3_exec(store.coordinator->connection(), "DROP TABLE Activity", nullptr, nullptr, nullptr);
        }
    }
}

TEST_F(ActivityPersisterTest, aDayCountsWhatLiesInItAndWhatReachesIntoIt)
{
    record(-1, 1, true); // across the midnight before
    record(9, 10, true);
    record(10, 12, false);
    record(12, 12, true);
    record(22, 24, true); // ends exactly at midnight: in neither day
    record(48, 72, true); // but a whole day is
    EXPECT_EQ(minutes(today), (std::vector<double> {60 + 60 + 120, 120, 60 + 120}))
        << "standing over midnight counts as sitting too";
    EXPECT_EQ(minutes(today.dateByAddingDays(-1)), (std::vector<double> {60, 60, 60}));
    EXPECT_EQ(minutes(today.dateByAddingDays(1)), (std::vector<double> {0, 0, 0}));
    EXPECT_EQ(minutes(today.dateByAddingDays(2)), (std::vector<double> {1440, 1440, 1440}));
    EXPECT_EQ(persister.activitiesOnDay(today)->size(), 4U);
    EXPECT_EQ(persister.activitiesOnDay(today, false)->size(), 2U);
    EXPECT_DOUBLE_EQ(persister.percentStandingOnDay(today), 50);
    EXPECT_DOUBLE_EQ(persister.caloriesBurnedOnDay(today), 120 * (67.5 * 2.205) * 0.0054);
}

TEST_F(ActivityPersisterTest, countsTheDaysOnWhichTheGoalWasMet)
{
    const struct {
        int firstDay;
        int lastDay;
        int32_t goalsMet;
    } kCases[] = {{0, 2, 2}, {0, 0, 1}, {1, 1, 0}, {2, 2, 1}, {0, -1, 0}, {-30, 30, 2}};
    record(9, 9 + 124.43 / 60, true);
    record(24 + 9, 24 + 9 + 124.41 / 60, true);
    record(48 + 9, 48 + 10, true);
    record(48 + 20, 48 + 22, true);
    for (const auto& row : kCases)
        EXPECT_EQ(persister.goalsMetFromDay(
                      today.dateByAddingDays(row.firstDay), today.dateByAddingDays(row.lastDay)),
            row.goalsMet)
            << row.firstDay << " to " << row.lastDay;
    AppProperties::instance().setWeight(67.6);
    EXPECT_EQ(persister.goalsMetFromDay(today, today.dateByAddingDays(2)), 3) << "the weight of today counts";
}

/// Random records, stored, changed since and not stored yet, whose edges often coincide with those of the
/// intervals asked for. Fetches and totals are what plain arithmetic over the list gives.
TEST_F(ActivityPersisterTest, fetchesAndTotalsAreThoseOfPlainArithmetic)
{
    struct Record {
        double start;
        double end;
        bool isStanding;
    };
    std::mt19937 engine(20130101);
    const auto pick = [&](int low, int high) { return std::uniform_int_distribution<>(low, high)(engine); };
    const auto gridPoint = [&] { return kDayStart + 900.0 * pick(0, 6 * 96) + (pick(0, 3) ? 0 : 0.5); };
    const auto randomRecord = [&] {
        const double lengths[] = {0, 900.0 * pick(1, 12), 85500, 86400, 86400.001, 900.0 * pick(96, 300),
            -900, -900.0 * pick(1, 300)};
        const double start = gridPoint();
        return Record {start, start + lengths[pick(0, 7)], pick(0, 1) == 1};
    };
    std::vector<Record> records; // A record's weight is its number in this list.
    std::vector<ActivityRef> objects;
    Error error;
    for (int i = 0; i < 600; ++i) {
        const Record record = randomRecord();
        objects.push_back(store.insert(record.start, record.end, record.isStanding, double(i)));
        records.push_back(record);
        if (i == 449) {
            ASSERT_TRUE(store.context->save(error));
        }
    }
    for (size_t i = 0; i < 150; ++i) {
        records[i] = randomRecord();
        objects[i]->setStartDate(Date(records[i].start));
        objects[i]->setEndDate(Date(records[i].end));
        objects[i]->setIsStanding(records[i].isStanding);
    }
    for (int round = 0; round < 400; ++round) {
        const double from = gridPoint();
        const double to = round % 3 ? from + 900 * pick(0, 96) : gridPoint();
        const int posture = round % 4; // 0 and 1: sitting and standing, else any
        std::set<double> expected;
        double minutes = 0;
        double standingMinutes = 0;
        for (size_t i = 0; i < records.size(); ++i) {
            const auto& [start, end, isStanding] = records[i];
            const bool hasPosture = posture > 1 || isStanding == (posture == 1);
            if (!(hasPosture && start >= from && end < to) && !(start <= from && end >= from)
                && !(start < to && end > to))
                continue;
            const double clipped = (std::min(end, to) - std::max(start, from)) / 60;
            expected.insert(double(i));
            minutes += clipped;
            standingMinutes += isStanding ? clipped : 0;
        }
        const Date fromDate(from);
        const Date toDate(to);
        const auto fetched = posture > 1 ? persister.activitiesFromDate(fromDate, toDate)
                                         : persister.activitiesFromDate(fromDate, toDate, posture == 1);
        ASSERT_TRUE(fetched);
        std::set<double> found;
        double last = -HUGE_VAL;
        for (const ActivityRef& activity : *fetched) {
            EXPECT_TRUE(found.insert(activity->weight()).second) << "no record comes twice";
            EXPECT_GE(activity->startDate().secondsSince1970(), last);
            last = activity->startDate().secondsSince1970();
        }
        ASSERT_EQ(found, expected) << "round " << round;
        if (posture <= 1) {
            EXPECT_NEAR(persister.minutesActiveFromDate(fromDate, toDate, posture == 1), minutes, 1e-6);
            continue;
        }
        EXPECT_NEAR(persister.minutesActiveFromDate(fromDate, toDate), minutes, 1e-6);
        EXPECT_NEAR(persister.caloriesBurnedFromDate(fromDate, toDate),
            standingMinutes * kWeight * 2.205 * 0.0054, 1e-6);
        if (minutes != 0) {
            EXPECT_NEAR(persister.percentStandingFromDate(fromDate, toDate), standingMinutes / minutes * 100,
                1e-6 + std::abs(1e-3 / minutes));
        }
    }
}
