#pragma once

#include "data/Activity.h"
#include "platform/Error.h"

#include <functional>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

class PersistentStoreCoordinator;

/// The application's one view of the store. Inserted and changed records are kept until a save succeeds and
/// are seen by fetches meanwhile; the same stored record is always the same object while somebody holds it.
class ManagedObjectContext {
public:
    using PeriodVisitor = std::function<void(const ActivityPeriod&)>;
    /// Told of what a save met, and of nothing once one has succeeded.
    using TroubleObserver = std::function<void(const std::optional<Error>& trouble)>;

    explicit ManagedObjectContext(std::shared_ptr<PersistentStoreCoordinator> coordinator);
    ~ManagedObjectContext();
    ManagedObjectContext(const ManagedObjectContext&) = delete;
    ManagedObjectContext& operator=(const ManagedObjectContext&) = delete;

    /// The error of whoever has no context to work on.
    static Error missingError();

    /// A new record, stored by the next save.
    ActivityRef insertActivity();
    [[nodiscard]] bool hasChanges() const;
    /// Whether pending edits could be committed; records have no half-typed state, so this is true.
    [[nodiscard]] bool commitEditing() const { return true; }
    /// Writes all pending records in one transaction and is on disk when it answers true. On failure
    /// everything stays pending and `error` says why. Waits at most a tenth of a second for another program.
    ///
    /// A store whose file has gone or was replaced is opened anew first. The records that are pending or held
    /// by somebody, such as the open period, are saved into the new one.
    bool save(Error& error);
    void setTroubleObserver(TroubleObserver observer) { m_troubleObserver = std::move(observer); }

    /// Records that meet the interval (see ActivityPeriod::meets()) by start date, pending ones after stored
    /// ones of the same start; nothing and `error` on failure.
    std::optional<std::vector<ActivityRef>> fetch(
        Date fromDate, Date toDate, std::optional<bool> isStanding, Error& error);
    /// Shows the visitor the same periods in the same order, but makes no objects of them: for sums over many
    /// records. The visitor must not touch the context. False and `error` when the fetch failed half-way.
    bool forEachPeriod(Date fromDate, Date toDate, std::optional<bool> isStanding,
        const PeriodVisitor& visitor, Error& error);
    /// Number of records, pending ones included; 0 on failure.
    [[nodiscard]] uint64_t count();

private:
    friend class Activity;
    void recordChanged(const Activity& activity);
    void forget(const Activity& activity);
    bool renewStore(Error& error);
    bool writePending(Error& error);
    void report(const std::optional<Error>& trouble) const;

    struct Store;
    std::unique_ptr<Store> m_store;
    TroubleObserver m_troubleObserver;
};
