#pragma once

#include "platform/Dialogs.h"

#include <QString>

#include <memory>

struct sqlite3;

/// Opens the store file (SQLite) and keeps its connection. A file that is damaged or is no store is left
/// exactly as it is and gives an error; a missing one is made.
class PersistentStoreCoordinator {
public:
    /// Opens or makes the store at that path; null and the reason in `error` on failure.
    static std::unique_ptr<PersistentStoreCoordinator> open(const QString& path, Error& error);

    ~PersistentStoreCoordinator();
    PersistentStoreCoordinator(const PersistentStoreCoordinator&) = delete;
    PersistentStoreCoordinator& operator=(const PersistentStoreCoordinator&) = delete;

    [[nodiscard]] sqlite3* connection() const { return m_connection; }

private:
    explicit PersistentStoreCoordinator(sqlite3* connection);

    sqlite3* m_connection;
};
