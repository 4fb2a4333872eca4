// What the activity store costs.
//   store_benchmark                                        the loop without an index takes a minute
//   store_benchmark --benchmark_filter=-.*WithoutIndex.*   all but that loop

#include "benchmarks/WorkingLife.h"
#include "data/ActivityPersister.h"
#include "data/AppProperties.h"
#include "data/CalorieCalculator.h"
#include "data/ManagedObjectContext.h"
#include "data/PersistentStoreCoordinator.h"
#include "platform/simulated/SimulatedDesktop.h"

#include <QFile>

#include <benchmark/benchmark.h>
#include <cstdio>
#include <map>
#include <sqlite3.h>

namespace {
constexpr int64_t kLife = kPeriodsOfALife;

/// The world of the benchmarks, with one store for each number of records, made when first asked for.
class World {
public:
    static World& instance()
    {
        static World world;
        return world;
    }

    std::shared_ptr<ManagedObjectContext> context(int64_t records)
    {
        std::shared_ptr<ManagedObjectContext>& known = m_contexts[records];
        if (!known)
            known = makeContext(records);
        return known;
    }
    QString path(int64_t records) const
    {
        return m_desktop.folder.filePath(QStringLiteral("%1.storedata").arg(records));
    }
    [[nodiscard]] Date firstDay() const { return m_firstDay; }
    [[nodiscard]] Date lastDay() const { return m_firstDay.dateByAddingDays(kDaysOfALife - 1); }
    /// A working day in the middle of the life.
    [[nodiscard]] Date someDay() const { return m_firstDay.dateByAddingDays(kDaysOfALife / 2); }
    VirtualRunLoop& runLoop() { return m_desktop.runLoop; }

private:
    World()
    {
        AppProperties::instance().setWeight(80);
        AppProperties::instance().setActivityGoal(200);
    }

    std::shared_ptr<ManagedObjectContext> makeContext(int64_t records)
    {
        Error error;
        const std::shared_ptr<PersistentStoreCoordinator> store =
            PersistentStoreCoordinator::open({}, path(records), error);
        if (!fillWithWorkingLife(store, m_firstDay, records, error))
            fprintf(stderr, "%s\n", qPrintable(error.localizedDescription));
        return std::make_shared<ManagedObjectContext>(store);
    }

    SimulatedDesktop m_desktop {1710489600, {}};
    const Date m_firstDay = Date::dateFromComponents(2013, 1, 1);
    std::map<int64_t, std::shared_ptr<ManagedObjectContext>> m_contexts;
};

void setResultLabel(benchmark::State& state, int64_t records, int32_t goalsMet)
{
    state.SetLabel(std::to_string(records) + " records, " + std::to_string(goalsMet) + " goals met");
}

void BM_OneDayTotal(benchmark::State& state)
{
    ActivityPersister persister(World::instance().context(state.range(0)));
    const Date day = World::instance().someDay();
    for (auto _ : state)
        benchmark::DoNotOptimize(persister.caloriesBurnedOnDay(day));
    state.SetLabel(std::to_string(persister.activitiesOnDay(day)->size()) + " records that day");
}
BENCHMARK(BM_OneDayTotal)->Arg(kLife)->Arg(1'000'000);

/// One fetch a day since 2013-01-01.
void BM_GoalsMetFromDay(benchmark::State& state)
{
    ActivityPersister persister(World::instance().context(state.range(0)));
    int32_t goalsMet = 0;
    for (auto _ : state)
        goalsMet = persister.goalsMetFromDay(World::instance().firstDay(), World::instance().lastDay());
    setResultLabel(state, state.range(0), goalsMet);
}
BENCHMARK(BM_GoalsMetFromDay)->Arg(kLife)->Arg(1'000'000)->Unit(benchmark::kMillisecond);

/// The same loop with the plain predicate and no index.
void BM_GoalsMetWithoutIndex(benchmark::State& state)
{
    World::instance().context(state.range(0));
    sqlite3* connection = nullptr;
    sqlite3_stmt* statement = nullptr;
    sqlite3_open(qPrintable(World::instance().path(state.range(0))), &connection);
    sqlite3_prepare_v2(connection,
        "SELECT startDate, endDate, isStanding FROM Activity NOT INDEXED "
        "WHERE (startDate >= ?1 AND endDate < ?2) OR (startDate <= ?1 AND endDate >= ?1) "
        "OR (startDate < ?2 AND endDate > ?2) ORDER BY startDate",
        -1, &statement, nullptr);
    int32_t goalsMet = 0;
    for (auto _ : state) {
        goalsMet = 0;
        for (int day = 0; day < kDaysOfALife; ++day) {
            const Date from = World::instance().firstDay().dateByAddingDays(day).dateAtStartOfDay();
            const Date to = from.dateByAddingDays(1);
            sqlite3_bind_double(statement, 1, from.secondsSince1970());
            sqlite3_bind_double(statement, 2, to.secondsSince1970());
            double minutes = 0;
            while (sqlite3_step(statement) == SQLITE_ROW) {
                const ActivityPeriod period {Date(sqlite3_column_double(statement, 0)),
                    Date(sqlite3_column_double(statement, 1)), sqlite3_column_int(statement, 2) != 0};
                if (period.isStanding)
                    minutes += period.secondsInside(from, to) / 60;
            }
            sqlite3_reset(statement);
            const double calories =
                CalorieCalculator::caloriesBurnedInMinutes(minutes, AppProperties::instance().weight());
            goalsMet += calories >= AppProperties::instance().activityGoal();
        }
    }
    sqlite3_finalize(statement);
    sqlite3_close(connection);
    setResultLabel(state, state.range(0), goalsMet);
}
BENCHMARK(BM_GoalsMetWithoutIndex)->Arg(kLife)->Iterations(1)->Unit(benchmark::kMillisecond);

/// Sum over every record there is.
void BM_WholeLifeTotal(benchmark::State& state)
{
    ActivityPersister persister(World::instance().context(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(
            persister.minutesActiveFromDate(World::instance().firstDay(), World::instance().lastDay(), true));
}
BENCHMARK(BM_WholeLifeTotal)->Arg(kLife)->Arg(1'000'000)->Unit(benchmark::kMillisecond);

/// Moves the end of the open record and waits until it is on disk, every 15 s while the program runs.
void BM_Pulse(benchmark::State& state)
{
    ActivityPersister persister(World::instance().context(kLife));
    World::instance().runLoop().setWallClock(
        World::instance().lastDay().dateByAddingDays(1).secondsSince1970());
    const ActivityRef activity = persister.createIsStanding(true);
    for (auto _ : state) {
        World::instance().runLoop().advance(15);
        if (!activity->pulse())
            state.SkipWithError("The pulse could not be saved.");
    }
}
BENCHMARK(BM_Pulse)->UseRealTime()->Unit(benchmark::kMicrosecond);

/// Opens the store at the start of the program and closes it.
void BM_OpenStore(benchmark::State& state)
{
    World::instance().context(state.range(0));
    const QString copy = World::instance().path(-state.range(0));
    sqlite3* connection = nullptr;
    sqlite3_open(qPrintable(World::instance().path(state.range(0))), &connection);
    sqlite3_exec(connection, ("VACUUM INTO '" + copy.toStdString() + "'").c_str(), nullptr, nullptr, nullptr);
    sqlite3_close(connection);
    for (auto _ : state) {
        Error error;
        if (!PersistentStoreCoordinator::open({}, copy, error))
            state.SkipWithError(qPrintable(error.localizedDescription));
    }
    QFile::remove(copy);
}
BENCHMARK(BM_OpenStore)->Arg(0)->Arg(kLife)->Arg(1'000'000)->UseRealTime()->Unit(benchmark::kMillisecond);
}

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    // A pulse writes two log lines; what a terminal makes of them is not the store's.
    const bool isQuiet = freopen("/dev/null", "w", stderr) != nullptr;
    benchmark::RunSpecifiedBenchmarks();
    return isQuiet ? 0 : 1;
}
