#pragma once

#include "data/ManagedObjectModel.h"
#include "platform/Error.h"

#include <QByteArray>
#include <QString>

#include <memory>
#include <sys/types.h>

struct sqlite3;

/// Opens the store file (SQLite) and keeps its connection. A file that is damaged, foreign, of a newer
/// version or not writable is left exactly as it is and gives an error; a missing or empty one becomes a new
/// store. A lock beside the file keeps a second program from recording into it.
/// A transaction that has been committed is on disk.
class PersistentStoreCoordinator {
public:
    /// Opens or makes the store at that path; null and the reason in `error` on failure.
    static std::unique_ptr<PersistentStoreCoordinator> open(
        const ManagedObjectModel& model, const QString& path, Error& error);

    ~PersistentStoreCoordinator();
    PersistentStoreCoordinator(const PersistentStoreCoordinator&) = delete;
    PersistentStoreCoordinator& operator=(const PersistentStoreCoordinator&) = delete;

    [[nodiscard]] sqlite3* connection() const { return m_connection; }

    /// Whether the file that was opened no longer lies at its path: deleted, moved away or replaced. The
    /// connection would go on writing into it, unseen by everybody.
    [[nodiscard]] bool isGone() const;
    [[nodiscard]] Error goneError() const;
    /// Lets go of such a file and opens what lies at the path now, a new store if nothing does. All
    /// statements must be gone before. Without success there is no connection until the next try.
    [[nodiscard]] bool reopen(Error& error);

    /// What a result code of this connection means to the user, in the user's language, and as the reason
    /// what can be done about it; domain "SQLite", the code is the result. The log has SQLite's own words.
    [[nodiscard]] Error errorForResult(int result) const;

private:
    PersistentStoreCoordinator(const ManagedObjectModel& model, QString path);

    void close();

    // Each step of opening answers a result code, SQLITE_OK to go on.
    [[nodiscard]] int lock();
    [[nodiscard]] int checkFile();
    [[nodiscard]] int connect();
    [[nodiscard]] int identify();
    [[nodiscard]] int checkPages();
    [[nodiscard]] int prepareForWriting();
    [[nodiscard]] int remember();

    [[nodiscard]] int execute(const QByteArray& sql);

    ManagedObjectModel m_model;
    QString m_path;
    sqlite3* m_connection = nullptr;
    int m_lock = -1; ///< A file that is locked as long as it is open.
    dev_t m_fileSystem = 0; ///< With the number below, the identity of the file that was opened.
    ino_t m_file = 0; ///< 0 while none is open
    bool m_isNew = false;
    bool m_endedUncleanly = false; ///< A write-ahead log was left behind.
};
