#pragma once

#include "data/Activity.h"
#include "platform/Dialogs.h"

#include <memory>
#include <optional>
#include <vector>

class PersistentStoreCoordinator;

/// The application's one view of the store. Inserted and changed records are kept until a save succeeds and
/// are seen by fetches meanwhile; the same stored record is always the same object while somebody holds it.
class ManagedObjectContext {
public:
    explicit ManagedObjectContext(std::shared_ptr<PersistentStoreCoordinator> coordinator);
    ~ManagedObjectContext();
    ManagedObjectContext(const ManagedObjectContext&) = delete;
    ManagedObjectContext& operator=(const ManagedObjectContext&) = delete;

    /// A new record, stored by the next save.
    ActivityRef insertActivity();
    [[nodiscard]] bool hasChanges() const;
    /// Whether pending edits could be committed; records have no half-typed state, so this is true.
    [[nodiscard]] bool commitEditing() const { return true; }
    /// Writes all pending records in one transaction and is on disk when it answers true. On failure
    /// everything stays pending and `error` says why.
    bool save(Error& error);

    /// Records inside [fromDate, toDate), covering fromDate, or covering toDate, by start date; nothing and
    /// `error` on failure. With `isStanding`, the posture is asked of the records inside only; the totals
    /// rest on that.
    std::optional<std::vector<ActivityRef>> fetch(
        Date fromDate, Date toDate, std::optional<bool> isStanding, Error& error);
    /// Number of records, pending ones included; 0 on failure.
    [[nodiscard]] uint64_t count();

private:
    friend class Activity;
    struct Store;
    std::unique_ptr<Store> m_store;
};
