#include "data/PersistentStoreCoordinator.h"

#include "data/SqlStatement.h"
#include "platform/Log.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstdint>
#include <fcntl.h>
#include <filesystem>
#include <sqlite3.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace {
/// Result codes of our own, beyond SQLite's primary ones: what only this program can tell of a file.
enum StoreResult { NotAFile = 201, LogWithoutStore, ForeignStore, NewerStore, StoreGone };

/// The main thread never waits longer than this for another program that holds the store.
constexpr int kBusyTimeoutMilliseconds = 100;

/// Reading every page costs about 1 ms a megabyte: nothing for the store of a working life (4 MB), too much
/// at each start for one of a million records. Those are read through only after an unclean end; damage found
/// later is an error of the fetch or save that meets it.
constexpr qint64 kAlwaysCheckedBytes = qint64(8) * 1024 * 1024;

/// SQLite knows a full disk by that name only where it writes the store itself, not where it maps its memory.
bool isDiskFull(int result, const QString& path)
{
    constexpr std::uintmax_t kLeastBytes = 65536;
    // QStorageInfo knows nothing of a folder whose mount point is out of sight, as in a chroot. This asks the
    // file system itself, and takes one that does not answer for one with space.
    std::error_code ignored;
    const auto folder = QFileInfo(path).filesystemPath();
    return (result & 0xFF) == SQLITE_IOERR && std::filesystem::space(folder, ignored).available < kLeastBytes;
}

/// What a result means to the user, and what can be done about it.
struct Meaning {
    QString description; ///< %1: path of the store
    QString advice;
};

Meaning meaningOfResult(int result)
{
    switch (result & 0xFF) {
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
        return {qtTrId("StoreDamaged"), qtTrId("StoreAdviceReplace")};
    case SQLITE_FULL:
        return {qtTrId("StoreDiskFull"), qtTrId("StoreAdviceMakeRoom")};
    case SQLITE_BUSY:
        return {qtTrId("StoreInUse"), qtTrId("StoreAdviceCloseOther")};
    case SQLITE_READONLY:
    case SQLITE_CANTOPEN:
        return {qtTrId("StoreNotWritable"), qtTrId("StoreAdvicePermissions")};
    case NotAFile:
        return {qtTrId("StoreNotAFile"), qtTrId("StoreAdviceReplace")};
    case LogWithoutStore:
        return {qtTrId("StoreMissingBesideLog"), qtTrId("StoreAdviceReplace")};
    case ForeignStore:
        return {qtTrId("StoreForeign"), qtTrId("StoreAdviceReplace")};
    case NewerStore:
        return {qtTrId("StoreTooNew"), qtTrId("StoreAdviceNewerProgram")};
    default:
        return {qtTrId("StoreUnreadable"), qtTrId("StoreAdvicePermissions")};
    }
}

Error makeError(int result, const QString& description, const QString& reason, const QString& path)
{
    return {QStringLiteral("SQLite"), result, description.arg(QDir::toNativeSeparators(path)), reason};
}
}

std::unique_ptr<PersistentStoreCoordinator> PersistentStoreCoordinator::open(
    const ManagedObjectModel& model, const QString& path, Error& error)
{
    std::unique_ptr<PersistentStoreCoordinator> coordinator(new PersistentStoreCoordinator(model, path));
    return coordinator->reopen(error) ? std::move(coordinator) : nullptr;
}

PersistentStoreCoordinator::PersistentStoreCoordinator(const ManagedObjectModel& model, QString path)
    : m_model(model)
    , m_path(std::move(path))
{
}

PersistentStoreCoordinator::~PersistentStoreCoordinator()
{
    close();
}

void PersistentStoreCoordinator::close()
{
    sqlite3_close(std::exchange(m_connection, nullptr));
    if (m_lock >= 0)
        ::close(std::exchange(m_lock, -1));
    m_file = 0;
}

bool PersistentStoreCoordinator::isGone() const
{
    if (!m_file)
        return true;
    struct stat now { };
    if (stat(QFile::encodeName(m_path).constData(), &now) != 0)
        return errno == ENOENT || errno == ENOTDIR;
    return now.st_ino != m_file || now.st_dev != m_fileSystem;
}

Error PersistentStoreCoordinator::goneError() const
{
    return makeError(StoreGone, qtTrId("StoreGone"), qtTrId("StoreGoneReason"), m_path);
}

bool PersistentStoreCoordinator::reopen(Error& error)
{
    // A file that was moved away takes its last records with it; its log would stay behind in the way of the
    // new store.
    if (m_file)
        sqlite3_wal_checkpoint_v2(m_connection, nullptr, SQLITE_CHECKPOINT_TRUNCATE, nullptr, nullptr);
    close();
    QDir().mkpath(QFileInfo(m_path).absolutePath());
    using Step = int (PersistentStoreCoordinator::*)();
    for (const Step step : {&PersistentStoreCoordinator::lock, &PersistentStoreCoordinator::checkFile,
             &PersistentStoreCoordinator::connect, &PersistentStoreCoordinator::identify,
             &PersistentStoreCoordinator::checkPages, &PersistentStoreCoordinator::prepareForWriting,
             &PersistentStoreCoordinator::remember}) {
        const int result = (this->*step)();
        if (result == SQLITE_OK)
            continue;
        error = errorForResult(result);
        close();
        return false;
    }
    return true;
}

/// The kernel lets go of the lock however the program ends.
int PersistentStoreCoordinator::lock()
{
    const QByteArray path = QFile::encodeName(m_path + QStringLiteral(".lock"));
    m_lock = ::open(path.constData(), O_RDWR | O_CREAT | O_CLOEXEC, S_IRUSR | S_IWUSR);
    if (m_lock < 0)
        return errno == ENOSPC || errno == EDQUOT ? SQLITE_FULL : SQLITE_CANTOPEN;
    if (lockf(m_lock, F_TLOCK, 0) == 0)
        return SQLITE_OK;
    // Some network file systems, on which no test runs, know no locks.
    return errno == EACCES || errno == EAGAIN ? SQLITE_BUSY : SQLITE_CANTOPEN;
}

int PersistentStoreCoordinator::checkFile()
{
    const QFileInfo file(m_path);
    if (file.exists() && !file.isFile())
        return NotAFile;
    // SQLite throws the log of an empty or missing store away, and with it the last records.
    m_endedUncleanly = QFileInfo(m_path + QStringLiteral("-wal")).size() > 0;
    if (m_endedUncleanly)
        return file.size() == 0 ? LogWithoutStore : SQLITE_OK;
    // Pages are whole multiples of this. SQLite would fill up a cut last page with zeros; where a log is left
    // behind, it mends that page.
    constexpr qint64 kSmallestPage = 512;
    return file.size() % kSmallestPage == 0 ? SQLITE_OK : SQLITE_CORRUPT;
}

int PersistentStoreCoordinator::connect()
{
    const int flags =
        SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE;
    const int result = sqlite3_open_v2(QFile::encodeName(m_path).constData(), &m_connection, flags, nullptr);
    if (result != SQLITE_OK)
        return result;
    // Closing a store that turned out to be no good must not write its log into it.
    sqlite3_db_config(m_connection, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
    // Statements are prepared once and few, so that a pool of 120 kB for their small parts gains nothing.
    sqlite3_db_config(m_connection, SQLITE_DBCONFIG_LOOKASIDE, nullptr, 0, 0);
    sqlite3_busy_timeout(m_connection, kBusyTimeoutMilliseconds);
    return execute(
        "PRAGMA synchronous = FULL; PRAGMA cell_size_check = ON; PRAGMA temp_store = MEMORY; "
        "PRAGMA cache_size = 16"); // Pages; a save needs ten, and the system keeps the file at hand.
}

int PersistentStoreCoordinator::identify()
{
    SqlStatement question(
        m_connection, "SELECT user_version, (SELECT count(*) FROM sqlite_master) FROM pragma_user_version");
    // The first page has been read already: only a disk that fails between two reads ends here, untested.
    if (const int result = question.step(); result != SQLITE_ROW)
        return result;
    const int64_t version = question.integer(0);
    m_isNew = version == 0 && question.integer(1) == 0;
    if (sqlite3_db_readonly(m_connection, "main") == 1)
        return SQLITE_READONLY;
    if (m_isNew)
        return SQLITE_OK;
    if (version > m_model.version)
        return NewerStore;
    const SqlStatement columns(
        m_connection, "SELECT id, startDate, endDate, isStanding, weight FROM Activity");
    return version == m_model.version && columns.prepareResult() == SQLITE_OK ? SQLITE_OK : ForeignStore;
}

int PersistentStoreCoordinator::checkPages()
{
    if (!m_endedUncleanly && QFileInfo(m_path).size() > kAlwaysCheckedBytes)
        return SQLITE_OK;
    SqlStatement check(m_connection, "PRAGMA quick_check(1)");
    // Damage is a row of the answer; this is for a disk that fails meanwhile, untested.
    if (const int result = check.step(); result != SQLITE_ROW)
        return result;
    const bool isSound = check.text(0) == "ok";
    check.reset();
    sqlite3_db_release_memory(m_connection); // Pages that nobody asks for again.
    return isSound ? SQLITE_OK : SQLITE_CORRUPT;
}

int PersistentStoreCoordinator::prepareForWriting()
{
    if (m_isNew)
        QFile::setPermissions(m_path, QFile::ReadOwner | QFile::WriteOwner);
    // The indexes are made again should somebody's tool have dropped them: the queries name them.
    QByteArray sql = m_model.statements;
    if (m_isNew)
        sql = "BEGIN IMMEDIATE;" + sql + "PRAGMA user_version = " + QByteArray::number(m_model.version)
            + "; COMMIT";
    const int result = execute("PRAGMA journal_mode = WAL;" + sql);
    if (result == SQLITE_OK)
        sqlite3_db_config(m_connection, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 0, nullptr);
    return result;
}

int PersistentStoreCoordinator::remember()
{
    struct stat file { };
    // Whoever deletes the file in this very moment is not in the tests.
    if (stat(QFile::encodeName(m_path).constData(), &file) != 0)
        return SQLITE_CANTOPEN;
    m_fileSystem = file.st_dev;
    m_file = file.st_ino;
    return SQLITE_OK;
}

int PersistentStoreCoordinator::execute(const QByteArray& sql)
{
    return sqlite3_exec(m_connection, sql.constData(), nullptr, nullptr, nullptr);
}

Error PersistentStoreCoordinator::errorForResult(int result) const
{
    if ((result & 0xFF) < NotAFile) {
        const bool isLatest = m_connection && sqlite3_extended_errcode(m_connection) == result;
        const char* reason = isLatest ? sqlite3_errmsg(m_connection) : sqlite3_errstr(result);
        Log::line(QStringLiteral("SQLite answers %1: %2").arg(result).arg(QString::fromUtf8(reason)));
    }
    const Meaning meaning = meaningOfResult(isDiskFull(result, m_path) ? SQLITE_FULL : result);
    // Before the store is open there is nothing that could be kept.
    const QString consequence = m_file ? qtTrId("StoreKept") : qtTrId("StoreNothingRecorded");
    return makeError(result, meaning.description, meaning.advice + QLatin1Char(' ') + consequence, m_path);
}
