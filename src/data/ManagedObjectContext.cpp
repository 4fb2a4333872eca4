#include "data/ManagedObjectContext.h"

#include "data/PersistentStoreCoordinator.h"
#include "data/SqlStatement.h"

#include <algorithm>
#include <string>
#include <unordered_map>
#include <utility>

namespace {
/// ?1 is from, ?2 to, ?3 the posture or NULL. AND binds tighter than OR, so that the posture is asked of the
/// first group alone.
///
/// A usual period is at most a day long and not backward: one that meets the interval starts no earlier than
/// a day before it and no later than its end, ?4 and ?5. All others are looked through.
std::string fetchQuery()
{
    const std::string columns = "SELECT id, startDate, endDate, isStanding, weight FROM Activity ";
    const std::string meetsInterval =
        "((?3 IS NULL OR isStanding = ?3) AND (startDate >= ?1 AND endDate < ?2)"
        " OR (startDate <= ?1 AND endDate >= ?1)"
        " OR (startDate < ?2 AND endDate > ?2))";
    return columns + "INDEXED BY UsualActivity WHERE endDate - startDate BETWEEN 0 AND 86400"
        + " AND startDate BETWEEN ?4 AND ?5 AND " + meetsInterval + " UNION ALL " + columns
        + "INDEXED BY OddActivity WHERE (endDate - startDate BETWEEN 0 AND 86400) IS NOT TRUE AND "
        + meetsInterval + " ORDER BY startDate";
}

/// A day, and a second for the rounding of differences.
constexpr double kLongestUsualPeriod = Date::kDay + 1;

struct Query {
    Date fromDate;
    Date toDate;
    std::optional<bool> isStanding;
};

struct StoredRow {
    int64_t id;
    ActivityPeriod period;
    double weight;
};

/// What is asked of one connection; made anew with it.
struct Statements {
    explicit Statements(sqlite3* connection)
        : fetch(connection, fetchQuery().c_str())
        , count(connection, "SELECT count(*) FROM Activity")
        , write(connection,
              "INSERT OR REPLACE INTO Activity(id, startDate, endDate, isStanding, weight) "
              "VALUES(?1, ?2, ?3, ?4, ?5)")
        , begin(connection, "BEGIN IMMEDIATE")
        , commit(connection, "COMMIT")
        , rollback(connection, "ROLLBACK")
        , find(connection, "SELECT id FROM Activity WHERE startDate = ?1 AND isStanding = ?2")
    {
    }

    SqlStatement fetch;
    SqlStatement count;
    SqlStatement write;
    SqlStatement begin;
    SqlStatement commit;
    SqlStatement rollback;
    SqlStatement find;
};
}

struct ManagedObjectContext::Store {
    explicit Store(std::shared_ptr<PersistentStoreCoordinator> storeCoordinator)
        : coordinator(std::move(storeCoordinator))
        , statements(std::in_place, coordinator->connection())
    {
    }

    std::vector<const ActivityRef*> pendingThatMeet(const Query& query) const;
    template <typename RowVisitor, typename PendingVisitor>
    int visit(const Query& query, RowVisitor visitRow, PendingVisitor visitPending);
    ActivityRef object(ManagedObjectContext& context, const StoredRow& row);
    int write(const Activity& activity);
    int writeAll(std::vector<int64_t>& insertedIds);
    int64_t rowOf(const Activity& activity);
    void enterAllAgain();

    std::shared_ptr<PersistentStoreCoordinator> coordinator;
    std::optional<Statements> statements;

    std::vector<ActivityRef> inserted; ///< Not stored yet, in the order of insertion.
    std::unordered_map<int64_t, ActivityRef> changed; ///< Stored with other values.
    /// Every stored record that has an object, which takes itself off when it goes.
    std::unordered_map<int64_t, std::weak_ptr<Activity>> registered;
};

/// The unsaved records that meet the query by their values in memory, by start date.
std::vector<const ActivityRef*> ManagedObjectContext::Store::pendingThatMeet(const Query& query) const
{
    std::vector<const ActivityRef*> result;
    const auto add = [&](const ActivityRef& activity) {
        if (activity->period().meets(query.fromDate, query.toDate, query.isStanding))
            result.push_back(&activity);
    };
    for (const auto& [id, activity] : changed)
        add(activity);
    for (const ActivityRef& activity : inserted)
        add(activity);
    std::stable_sort(result.begin(), result.end(), [](const ActivityRef* left, const ActivityRef* right) {
        return (*left)->startDate().isEarlierThanDate((*right)->startDate());
    });
    return result;
}

/// Walks stored rows and unsaved records by start date. A row whose record has unsaved changes is passed
/// over: what counts is the record in memory.
template <typename RowVisitor, typename PendingVisitor>
int ManagedObjectContext::Store::visit(const Query& query, RowVisitor visitRow, PendingVisitor visitPending)
{
    const double from = query.fromDate.secondsSince1970();
    const double to = query.toDate.secondsSince1970();
    const std::vector<const ActivityRef*> pending = pendingThatMeet(query);
    SqlStatement& fetch = statements->fetch;
    auto next = pending.begin();
    fetch.bind(1, from);
    fetch.bind(2, to);
    if (query.isStanding)
        fetch.bind(3, int64_t(*query.isStanding));
    else
        fetch.bindNull(3);
    fetch.bind(4, std::min(from, to) - kLongestUsualPeriod);
    fetch.bind(5, std::max(from, to));
    int result = fetch.step();
    for (; result == SQLITE_ROW; result = fetch.step()) {
        const StoredRow row {fetch.integer(0),
            {Date(fetch.number(1)), Date(fetch.number(2)), fetch.integer(3) != 0}, fetch.number(4)};
        if (changed.contains(row.id))
            continue;
        for (; next != pending.end() && (**next)->startDate().isEarlierThanDate(row.period.startDate); ++next)
            visitPending(**next);
        visitRow(row);
    }
    fetch.reset();
    for (; next != pending.end(); ++next)
        visitPending(**next);
    return result == SQLITE_DONE ? SQLITE_OK : result;
}

/// The object of a stored row: the one that somebody holds already, or a new one.
ActivityRef ManagedObjectContext::Store::object(ManagedObjectContext& context, const StoredRow& row)
{
    std::weak_ptr<Activity>& known = registered[row.id];
    ActivityRef activity = known.lock();
    if (activity)
        return activity;
    activity.reset(new Activity(context));
    activity->m_rowId = row.id;
    activity->m_period = row.period;
    activity->m_weight = row.weight;
    known = activity;
    return activity;
}

int ManagedObjectContext::Store::write(const Activity& activity)
{
    SqlStatement& statement = statements->write;
    if (activity.m_rowId)
        statement.bind(1, activity.m_rowId);
    else
        statement.bindNull(1);
    statement.bind(2, activity.startDate().secondsSince1970());
    statement.bind(3, activity.endDate().secondsSince1970());
    statement.bind(4, int64_t(activity.isStanding()));
    statement.bind(5, activity.weight());
    return statement.run();
}

int ManagedObjectContext::Store::writeAll(std::vector<int64_t>& insertedIds)
{
    int result = statements->begin.run();
    for (const ActivityRef& activity : inserted) {
        if (result == SQLITE_OK)
            result = write(*activity);
        insertedIds.push_back(sqlite3_last_insert_rowid(coordinator->connection()));
    }
    for (const auto& [id, activity] : changed) {
        if (result == SQLITE_OK)
            result = write(*activity);
    }
    return result == SQLITE_OK ? statements->commit.run() : result;
}

/// 0 when the store holds no such record.
int64_t ManagedObjectContext::Store::rowOf(const Activity& activity)
{
    SqlStatement& find = statements->find;
    find.bind(1, activity.startDate().secondsSince1970());
    find.bind(2, int64_t(activity.isStanding()));
    const int64_t id = find.step() == SQLITE_ROW ? find.integer(0) : 0;
    find.reset();
    return id;
}

/// Row numbers of another file mean nothing. A copy that was put back, or a disk that is there again, may
/// hold the same record all the same.
void ManagedObjectContext::Store::enterAllAgain()
{
    const auto known = std::exchange(registered, {});
    const auto waiting = std::exchange(changed, {});
    for (const auto& [id, record] : known) {
        const ActivityRef activity = record.lock();
        activity->m_rowId = rowOf(*activity);
        if (activity->m_rowId) {
            registered[activity->m_rowId] = activity;
            changed[activity->m_rowId] = activity;
        } else {
            inserted.push_back(activity);
        }
    }
}

ManagedObjectContext::ManagedObjectContext(std::shared_ptr<PersistentStoreCoordinator> coordinator)
    : m_store(std::make_unique<Store>(std::move(coordinator)))
{
}

ManagedObjectContext::~ManagedObjectContext()
{
    // Records may be held longer than the context; they must not reach into it any more.
    for (const ActivityRef& activity : m_store->inserted)
        activity->m_context = nullptr;
    for (const auto& [id, known] : m_store->registered)
        known.lock()->m_context = nullptr;
}

Error ManagedObjectContext::missingError()
{
    return {QStringLiteral("YOUR_ERROR_DOMAIN"), 9999, qtTrId("Failed to initialize the store"),
        qtTrId("There was an error building up the data file.")};
}

ActivityRef ManagedObjectContext::insertActivity()
{
    ActivityRef activity(new Activity(*this));
    m_store->inserted.push_back(activity);
    return activity;
}

bool ManagedObjectContext::hasChanges() const
{
    return !m_store->inserted.empty() || !m_store->changed.empty();
}

bool ManagedObjectContext::save(Error& error)
{
    if (renewStore(error) && writePending(error))
        return true;
    report(error);
    return false;
}

bool ManagedObjectContext::renewStore(Error& error)
{
    PersistentStoreCoordinator& coordinator = *m_store->coordinator;
    if (!coordinator.isGone())
        return true;
    // Said once, however often it has to be tried.
    if (coordinator.connection())
        report(coordinator.goneError());
    m_store->statements.reset();
    const bool isOpen = coordinator.reopen(error);
    m_store->statements.emplace(coordinator.connection());
    if (isOpen)
        m_store->enterAllAgain();
    return isOpen;
}

bool ManagedObjectContext::writePending(Error& error)
{
    if (!hasChanges())
        return true;
    std::vector<int64_t> insertedIds;
    const int result = m_store->writeAll(insertedIds);
    if (result != SQLITE_OK) {
        error = m_store->coordinator->errorForResult(result);
        if (!sqlite3_get_autocommit(m_store->coordinator->connection()))
            (void)m_store->statements->rollback.run();
        return false;
    }
    for (size_t i = 0; i < insertedIds.size(); ++i) {
        m_store->inserted[i]->m_rowId = insertedIds[i];
        m_store->registered[insertedIds[i]] = m_store->inserted[i];
    }
    // Moved out first: a record that nobody else holds goes with them and takes itself off the register.
    const auto inserted = std::exchange(m_store->inserted, {});
    const auto changed = std::exchange(m_store->changed, {});
    report(std::nullopt);
    return true;
}

void ManagedObjectContext::report(const std::optional<Error>& trouble) const
{
    if (m_troubleObserver)
        m_troubleObserver(trouble);
}

std::optional<std::vector<ActivityRef>> ManagedObjectContext::fetch(
    Date fromDate, Date toDate, std::optional<bool> isStanding, Error& error)
{
    std::vector<ActivityRef> activities;
    const int result = m_store->visit(
        {fromDate, toDate, isStanding},
        [&](const StoredRow& row) { activities.push_back(m_store->object(*this, row)); },
        [&](const ActivityRef& pending) { activities.push_back(pending); });
    if (result == SQLITE_OK)
        return activities;
    error = m_store->coordinator->errorForResult(result);
    return std::nullopt;
}

bool ManagedObjectContext::forEachPeriod(
    Date fromDate, Date toDate, std::optional<bool> isStanding, const PeriodVisitor& visitor, Error& error)
{
    const int result = m_store->visit(
        {fromDate, toDate, isStanding}, [&](const StoredRow& row) { visitor(row.period); },
        [&](const ActivityRef& pending) { visitor(pending->period()); });
    if (result != SQLITE_OK)
        error = m_store->coordinator->errorForResult(result);
    return result == SQLITE_OK;
}

uint64_t ManagedObjectContext::count()
{
    const bool counted = m_store->statements->count.step() == SQLITE_ROW;
    const int64_t stored = counted ? m_store->statements->count.integer(0) : 0;
    m_store->statements->count.reset();
    return counted ? uint64_t(stored) + m_store->inserted.size() : 0;
}

void ManagedObjectContext::recordChanged(const Activity& activity)
{
    // An inserted record is pending anyway.
    if (activity.m_rowId)
        m_store->changed.try_emplace(activity.m_rowId, m_store->registered[activity.m_rowId].lock());
}

void ManagedObjectContext::forget(const Activity& activity)
{
    m_store->registered.erase(activity.m_rowId);
}
