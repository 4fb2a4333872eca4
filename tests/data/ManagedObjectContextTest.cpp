#include "data/ManagedObjectContext.h"

#include "fakes/TestStore.h"

#include <QDir>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <functional>
#include <map>
#include <random>
#include <set>
#include <sqlite3.h>
#include <sys/resource.h>

namespace {
/// A second program's connection to the same file.
class OtherProgram {
public:
    explicit OtherProgram(const QString& path) { sqlite3_open(qPrintable(path), &m_connection); }
    ~OtherProgram() { sqlite3_close(m_connection); }
    int execute(const char* sql) { return sqlite3_exec(m_connection, sql, nullptr, nullptr, nullptr); }

private:
    sqlite3* m_connection = nullptr;
};

/// While it lives, no file of this process grows beyond `bytes`, as on a full disk.
class FullDisk {
public:
    explicit FullDisk(rlim_t bytes)
    {
        m_handler = std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &m_limit);
        rlimit full = m_limit;
        full.rlim_cur = bytes;
        setrlimit(RLIMIT_FSIZE, &full);
    }
    ~FullDisk()
    {
        setrlimit(RLIMIT_FSIZE, &m_limit);
        std::signal(SIGXFSZ, m_handler);
    }

private:
    void (*m_handler)(int);
    rlimit m_limit {};
};

class ManagedObjectContextTest : public testing::Test {
protected:
    size_t fetchedCount(double from, double to)
    {
        const auto activities = store.context->fetch(Date(from), Date(to), std::nullopt, error);
        return activities ? activities->size() : 0;
    }

    TestPlatform platform;
    TestStore store {platform};
    Error error;
};
}

TEST_F(ManagedObjectContextTest, keepsSavedRecordsWithAllTheirValues)
{
    store.insert(1000.25, 1100.125, true, 71.5);
    store.insert(1100.125, 1200, false, std::numeric_limits<double>::quiet_NaN());
    EXPECT_TRUE(store.context->hasChanges());
    ASSERT_TRUE(store.context->save(error));
    EXPECT_FALSE(store.context->hasChanges());
    store.reopen();
    const auto activities = store.all();
    ASSERT_EQ(activities.size(), 2U);
    EXPECT_EQ(activities[0]->startDate(), Date(1000.25));
    EXPECT_EQ(activities[0]->endDate(), Date(1100.125));
    EXPECT_TRUE(activities[0]->isStanding());
    EXPECT_EQ(activities[0]->weight(), 71.5);
    EXPECT_FALSE(activities[1]->isStanding());
    EXPECT_TRUE(std::isnan(activities[1]->weight()));
}

TEST_F(ManagedObjectContextTest, dropsWhatWasNeverSaved)
{
    store.insert(1000, 1100, true);
    store.reopen();
    EXPECT_EQ(store.context->count(), 0U);
}

TEST_F(ManagedObjectContextTest, fetchesSeeWhatIsNotSavedYet)
{
    const ActivityRef inserted = store.insert(1000, 1100, true);
    EXPECT_EQ(fetchedCount(900, 1200), 1U);
    EXPECT_EQ(store.context->count(), 1U);
    ASSERT_TRUE(store.context->save(error));
    inserted->setStartDate(Date(5000));
    inserted->setEndDate(Date(5100));
    EXPECT_TRUE(store.context->hasChanges());
    EXPECT_EQ(fetchedCount(900, 1200), 0U) << "the stored row no longer counts";
    EXPECT_EQ(fetchedCount(4900, 5200), 1U);
    EXPECT_EQ(store.context->count(), 1U);
}

TEST_F(ManagedObjectContextTest, aRecordIsOneObjectWhileSomebodyHoldsIt)
{
    const ActivityRef inserted = store.insert(1000, 1100, true);
    EXPECT_EQ(store.all().at(0), inserted);
    ASSERT_TRUE(store.context->save(error));
    EXPECT_EQ(store.all().at(0), inserted);
    inserted->setEndDate(Date(1150));
    EXPECT_EQ(store.all().at(0), inserted);
    store.reopen();
    const auto fetched = store.all();
    EXPECT_EQ(store.all(), fetched);
    EXPECT_NE(fetched.at(0), inserted);
}

TEST_F(ManagedObjectContextTest, aChangeIsSavedThoughNobodyHoldsTheRecord)
{
    store.insert(1000, 1100, true);
    ASSERT_TRUE(store.context->save(error));
    store.all().at(0)->setEndDate(Date(1234));
    EXPECT_EQ(store.all().at(0)->endDate(), Date(1234));
    ASSERT_TRUE(store.context->save(error));
    store.reopen();
    EXPECT_EQ(store.all().at(0)->endDate(), Date(1234));
}

TEST_F(ManagedObjectContextTest, aRecordOutlivesItsContext)
{
    const ActivityRef pending = store.insert(1000, 1100, true);
    const ActivityRef saved = store.insert(1100, 1200, true);
    ASSERT_TRUE(store.context->save(error));
    store.reopen();
    pending->setEndDate(Date(1150));
    EXPECT_FALSE(saved->pulse());
    EXPECT_EQ(saved->endDate(), Date(TestPlatform::kStart));
}

TEST_F(ManagedObjectContextTest, anUndefinedDateIsRefused)
{
    const ActivityRef activity = store.insert(1000, 1100, true);
    for (const double undefined :
        {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity()}) {
        activity->setStartDate(Date(undefined));
        activity->setEndDate(Date(-undefined));
    }
    EXPECT_EQ(activity->startDate(), Date(1000));
    EXPECT_EQ(activity->endDate(), Date(1100));
    EXPECT_TRUE(store.context->save(error));
}

TEST_F(ManagedObjectContextTest, aFailedSaveKeepsEverythingForTheNextOne)
{
    const ActivityRef changed = store.insert(1000, 1100, true);
    ASSERT_TRUE(store.context->save(error));
    // More than fits into the pages that are there.
    changed->setEndDate(Date(1150));
    for (int i = 0; i < 2000; ++i)
        store.insert(2000 + i, 2001 + i, i % 2 == 0);
    {
        const FullDisk fullDisk(16 * 1024);
        EXPECT_FALSE(store.context->save(error));
        EXPECT_FALSE(store.context->save(error));
    }
    EXPECT_TRUE(error.localizedDescription.contains(QStringLiteral("StoreUnreadable")))
        << qPrintable(error.localizedDescription);
    EXPECT_TRUE(store.context->hasChanges());
    EXPECT_EQ(store.all().size(), 2001U);
    ASSERT_TRUE(store.context->save(error));
    EXPECT_FALSE(store.context->hasChanges());
    store.reopen();
    EXPECT_EQ(store.all().size(), 2001U);
    EXPECT_EQ(store.all().at(0)->endDate(), Date(1150));
}

TEST_F(ManagedObjectContextTest, saysThatTheDiskIsFull)
{
    ASSERT_EQ(
        sqlite3_exec(store.coordinator->connection(), "PRAGMA max_page_count = 1", nullptr, nullptr, nullptr),
        SQLITE_OK);
    for (int i = 0; i < 2000; ++i)
        store.insert(i, i + 1, true);
    EXPECT_FALSE(store.context->save(error));
    EXPECT_TRUE(error.localizedDescription.contains(QStringLiteral("StoreDiskFull")));
    EXPECT_EQ(store.context->count(), 2000U);
}

TEST_F(ManagedObjectContextTest, saysThatAnotherProgramHoldsTheStore)
{
    OtherProgram other(store.path);
    ASSERT_EQ(other.execute("BEGIN IMMEDIATE"), SQLITE_OK);
    const ActivityRef activity = store.insert(1000, 1100, true);
    EXPECT_FALSE(store.context->save(error));
    EXPECT_TRUE(error.localizedDescription.contains(QStringLiteral("StoreInUse")));
    EXPECT_EQ(fetchedCount(900, 1200), 1U) << "reading goes on";
    ASSERT_EQ(other.execute("COMMIT"), SQLITE_OK);
    EXPECT_TRUE(store.context->save(error));
}

TEST_F(ManagedObjectContextTest, aRecordDeletedByAnotherProgramComesBackWithItsChange)
{
    const ActivityRef activity = store.insert(1000, 1100, true);
    ASSERT_TRUE(store.context->save(error));
    ASSERT_EQ(OtherProgram(store.path).execute("DELETE FROM Activity"), SQLITE_OK);
    activity->setEndDate(Date(1150));
    ASSERT_TRUE(store.context->save(error));
    store.reopen();
    EXPECT_EQ(store.all().at(0)->endDate(), Date(1150));
}

/// Whatever becomes of the file, the record that somebody holds and those that wait are in the one that lies
/// there afterwards, and what was taken away is whole.
TEST_F(ManagedObjectContextTest, aStoreThatIsGoneIsBegunAnewWithTheOpenRecord)
{
    const QString aside = platform.folder.filePath(QStringLiteral("aside"));
    const QString folder = QFileInfo(store.path).absolutePath();
    const struct {
        const char* name;
        std::function<void()> spoil;
        QStringList reports;
        size_t records;
    } kCases[] = {
        {"deleted with its folder", [&] { QDir(folder).removeRecursively(); }, {"StoreGone", "saved"}, 2},
        {"moved away", [&] { EXPECT_TRUE(QFile::rename(store.path, aside)); }, {"StoreGone", "saved"}, 2},
        {"replaced by a copy with the open record",
            [&] { std::rename(qPrintable(aside), qPrintable(store.path)); }, {"StoreGone", "saved"}, 3},
        {"replaced by something else",
            [&] {
                QFile file(aside);
                EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write("no store") == 8);
                file.close();
                std::rename(qPrintable(aside), qPrintable(store.path));
            },
            {"StoreGone", "StoreDamaged", "StoreDamaged"}, 0},
        {"that taken away again", [&] { QFile::remove(store.path); }, {"saved"}, 3},
    };
    QStringList reports;
    store.context->setTroubleObserver([&](const std::optional<Error>& trouble) {
        reports.append(trouble ? trouble->localizedDescription : QStringLiteral("saved"));
    });
    store.insert(100, 200, false);
    const ActivityRef open = store.insert(1000, 1100, true, 71.5);
    ASSERT_TRUE(store.context->save(error));
    double end = 1100;
    for (const auto& row : kCases) {
        SCOPED_TRACE(row.name);
        reports.clear();
        row.spoil();
        open->setEndDate(Date(end += 15));
        store.insert(end + 5000, end + 5001, true);
        for (int pulse = 0; pulse < 2; ++pulse)
            EXPECT_EQ(store.context->save(error), row.records > 0);
        EXPECT_EQ(reports, row.reports);
        if (row.records == 0)
            continue;
        const auto all = store.all();
        ASSERT_EQ(all.size(), row.records);
        const auto found = std::find(all.begin(), all.end(), open);
        ASSERT_NE(found, all.end()) << "still the same object";
        TestStore other(platform);
        EXPECT_EQ(other.all().size(), row.records) << "on disk";
        EXPECT_EQ(other.all().at(size_t(found - all.begin()))->endDate(), Date(end));
    }
}

namespace {
/// Records and intervals whose edges lie on one grid of quarter hours, so that they often coincide.
class RandomPeriods {
public:
    enum State { Stored, Inserted, Changed };
    struct Record {
        double start;
        double end;
        bool isStanding;
        State state;
    };

    double number(double low, double high) { return std::uniform_real_distribution<>(low, high)(m_engine); }
    int integer(int low, int high) { return std::uniform_int_distribution<>(low, high)(m_engine); }
    double gridPoint() { return TestPlatform::kStart + 900.0 * integer(0, 6 * 96); }
    Record record(State state)
    {
        const double start = integer(0, 3) ? gridPoint() : gridPoint() + number(-1, 1);
        const double day = 86400;
        const double lengths[] = {0, 900, 900.0 * integer(1, 12), number(0, 7200), day - 900, day, day + 1e-6,
            900.0 * integer(96, 300), -900, -900.0 * integer(1, 300), -number(0, 600)};
        return {start, start + lengths[integer(0, int(std::size(lengths)) - 1)], integer(0, 1) == 1, state};
    }

private:
    std::mt19937 m_engine {20130101};
};
}

/// Every answer of the store, its two indexes and the unsaved records together, is what the plain predicate
/// gives over all records.
TEST_F(ManagedObjectContextTest, fetchesExactlyWhatThePlainPredicateGives)
{
    RandomPeriods random;
    std::vector<RandomPeriods::Record> records; // A record's weight is its number in this list.
    std::vector<ActivityRef> changed;
    for (const auto state : {RandomPeriods::Changed, RandomPeriods::Stored, RandomPeriods::Inserted}) {
        for (int i = 0; i < (state == RandomPeriods::Stored ? 700 : 150); ++i) {
            const RandomPeriods::Record record = random.record(state);
            const bool isChanged = state == RandomPeriods::Changed;
            const RandomPeriods::Record first = isChanged ? random.record(state) : record;
            const ActivityRef activity =
                store.insert(first.start, first.end, first.isStanding, double(records.size()));
            if (isChanged)
                changed.push_back(activity);
            records.push_back(record);
        }
        if (state == RandomPeriods::Stored) {
            ASSERT_TRUE(store.context->save(error));
        }
    }
    for (size_t i = 0; i < changed.size(); ++i) {
        changed[i]->setStartDate(Date(records[i].start));
        changed[i]->setEndDate(Date(records[i].end));
        changed[i]->setIsStanding(records[i].isStanding);
    }

    std::map<std::pair<int, RandomPeriods::State>, int> decidedByOneGroup;
    for (int round = 0; round < 600; ++round) {
        const double from = random.gridPoint();
        const double to = round % 3 == 0 ? from + 86400
            : round % 3 == 1             ? from + random.number(0, 7200)
                                         : random.gridPoint();
        const int posture = round % 4; // 0 and 1: sitting and standing, else any
        std::set<double> expected;
        for (size_t i = 0; i < records.size(); ++i) {
            const RandomPeriods::Record& record = records[i];
            const bool groups[] = {(posture > 1 || record.isStanding == (posture == 1))
                    && record.start >= from && record.end < to,
                record.start <= from && record.end >= from, record.start < to && record.end > to};
            const auto count = std::count(std::begin(groups), std::end(groups), true);
            if (count > 0)
                expected.insert(double(i));
            if (count == 1)
                ++decidedByOneGroup[{int(std::find(groups, groups + 3, true) - groups), record.state}];
        }
        const auto isStanding = posture > 1 ? std::nullopt : std::optional(posture == 1);
        const auto fetched = store.context->fetch(Date(from), Date(to), isStanding, error);
        ASSERT_TRUE(fetched);
        std::set<double> found;
        for (const ActivityRef& activity : *fetched)
            found.insert(activity->weight());
        ASSERT_EQ(found, expected) << "round " << round;
        ASSERT_EQ(found.size(), fetched->size()) << "no record comes twice";
        ASSERT_TRUE(std::is_sorted(fetched->begin(), fetched->end(), [](const auto& left, const auto& right) {
            return left->startDate().isEarlierThanDate(right->startDate());
        }));

        auto next = fetched->begin();
        const auto compare = [&](const ActivityPeriod& period) {
            ASSERT_NE(next, fetched->end());
            ASSERT_EQ(period.startDate, (*next)->startDate());
            ASSERT_EQ(period.endDate, (*next)->endDate());
            ASSERT_EQ(period.isStanding, (*next)->isStanding());
            ++next;
        };
        ASSERT_TRUE(store.context->forEachPeriod(Date(from), Date(to), isStanding, compare, error));
        ASSERT_EQ(next, fetched->end());
    }
    // Without such records the comparison would not notice that a group is missing.
    for (int group = 0; group < 3; ++group) {
        for (const auto state : {RandomPeriods::Stored, RandomPeriods::Inserted, RandomPeriods::Changed})
            EXPECT_GT((decidedByOneGroup[{group, state}]), 100) << group << " " << state;
    }
}
