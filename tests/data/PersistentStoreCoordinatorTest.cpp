#include "data/PersistentStoreCoordinator.h"

#include "data/SqlStatement.h"
#include "data/StoreFile.h"

#include <QDir>
#include <QElapsedTimer>

#include <csignal>
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {
class PersistentStoreCoordinatorTest : public testing::Test {
protected:
    PersistentStoreCoordinatorTest()
    {
        for (const QString key : {"StoreDamaged", "StoreForeign", "StoreMissingBesideLog", "StoreTooNew",
                 "StoreNotAFile", "StoreInUse", "StoreNotWritable"})
            platform.texts.byKey.insert(key, key + ": %1");
    }

    /// A store of some records, closed; the log that one more leaves behind after an unclean end.
    QByteArray makeStore(int records)
    {
        QByteArray log;
        for (const int count : {records, 1}) {
            TestStore store(platform);
            for (int i = 0; i < count; ++i)
                store.insert(1200.0 * i, 1200.0 * (i + 1), i % 2 == 0);
            EXPECT_TRUE(store.context->save(error));
            log = contents(path + "-wal");
        }
        return log;
    }
    std::unique_ptr<PersistentStoreCoordinator> open()
    {
        return PersistentStoreCoordinator::open({}, path, error);
    }
    /// Opening fails with that text, which names the file, and advises what to do about it. Answers after how
    /// many milliseconds.
    qint64 expectRefusal(const QString& text)
    {
        QElapsedTimer clock;
        clock.start();
        EXPECT_FALSE(open());
        EXPECT_EQ(error.localizedDescription, text + ": " + path);
        EXPECT_TRUE(error.failureReason.startsWith("StoreAdvice"));
        EXPECT_TRUE(error.failureReason.endsWith(" StoreNothingRecorded"));
        return clock.elapsed();
    }
    sqlite3* connect(const char* sql)
    {
        sqlite3* connection = nullptr;
        sqlite3_open(qPrintable(path), &connection);
        execute(connection, sql);
        return connection;
    }

    TestPlatform platform;
    const QString path = platform.folder.filePath(QStringLiteral("StandUp.storedata"));
    Error error;
};
}

TEST_F(PersistentStoreCoordinatorTest, makesANewStoreOfNothingWhoseCommitsAreOnDisk)
{
    for (int round = 0; round < 2; ++round) {
        const auto coordinator = open();
        ASSERT_TRUE(coordinator) << qPrintable(error.localizedDescription);
        EXPECT_EQ(QFile::permissions(path) & (QFile::ReadGroup | QFile::ReadOther), QFile::Permissions());
        SqlStatement statement(coordinator->connection(),
            "SELECT journal_mode = 'wal' AND synchronous = 2 FROM pragma_journal_mode, pragma_synchronous");
        EXPECT_EQ(statement.step(), SQLITE_ROW);
        EXPECT_EQ(statement.integer(0), 1);
        for (const char* const file : {"", "-wal", "-shm"})
            QFile::remove(path + file);
        write(path, {}); // An empty file is a new store too.
    }
}

TEST_F(PersistentStoreCoordinatorTest, refusesWhatIsNoGoodStoreAndLeavesItAsItIs)
{
    const QByteArray log = makeStore(1000);
    const QByteArray sound = contents(path);
    const auto after = [&](const char* sql) {
        write(path, sound);
        sqlite3_close(connect(sql));
        return contents(path);
    };
    const auto withZeros = [](QByteArray store) { return store.replace(8192, 4096, QByteArray(4096, '\0')); };
    const QByteArray large = after("CREATE TABLE Large AS SELECT zeroblob(9000000) AS bytes");
    const struct {
        const char* name;
        QByteArray store;
        QByteArray log;
        const char* text;
    } kCases[] = {
        {"no store", QByteArray("something else ").repeated(1024), {}, "StoreDamaged"},
        {"zeros", QByteArray(8192, '\0'), {}, "StoreDamaged"},
        {"cut in the first page", sound.left(1000), {}, "StoreDamaged"},
        {"cut by a byte", sound.chopped(1), {}, "StoreDamaged"},
        {"pages overwritten", sound.left(4096) + sound.left(40960), {}, "StoreDamaged"},
        {"a page of zeros", withZeros(sound), {}, "StoreDamaged"},
        {"a page of zeros beside its log", withZeros(sound), log, "StoreDamaged"},
        {"a page of zeros in a large store beside its log", withZeros(large), log, "StoreDamaged"},
        {"empty beside its log", {}, log, "StoreMissingBesideLog"},
        {"foreign tables", after("DROP TABLE Activity; PRAGMA user_version = 0; CREATE TABLE Other(a)"), {},
            "StoreForeign"},
        {"no table", after("DROP TABLE Activity"), {}, "StoreForeign"},
        {"a column of another name", after("ALTER TABLE Activity RENAME weight TO mass"), {}, "StoreForeign"},
        {"no version", after("PRAGMA user_version = 0"), {}, "StoreForeign"},
        {"a newer version", after("PRAGMA user_version = 2"), {}, "StoreTooNew"},
    };
    for (const auto& row : kCases) {
        SCOPED_TRACE(row.name);
        QFile::remove(path + "-wal");
        write(path, row.store);
        if (!row.log.isEmpty())
            write(path + "-wal", row.log);
        expectRefusal(row.text);
        EXPECT_TRUE(contents(path) == row.store && contents(path + "-wal") == row.log);
    }
    QFile::remove(path + "-wal");
    write(path, withZeros(large));
    EXPECT_TRUE(open()) << "a large store is read through after an unclean end only";
    QFile::remove(path);
    ASSERT_TRUE(QFile::link("/nowhere/StandUp.storedata", path));
    expectRefusal("StoreNotWritable");
    QFile::remove(path);
    ASSERT_TRUE(QDir().mkpath(path));
    expectRefusal("StoreNotAFile");
    QFile::remove(path + ".lock");
    ASSERT_TRUE(QDir().mkpath(path + ".lock"));
    expectRefusal("StoreNotWritable");
}

TEST_F(PersistentStoreCoordinatorTest, hardlyWaitsForAnotherProgramThatHasTheStore)
{
    makeStore(10);
    int ready[2];
    ASSERT_EQ(pipe(ready), 0);
    const pid_t other = fork();
    if (other == 0) {
        const int lock = ::open(qPrintable(path + ".lock"), O_RDWR | O_CLOEXEC);
        _exit(lockf(lock, F_TLOCK, 0) != 0 || ::write(ready[1], "", 1) != 1 || pause());
    }
    char byte = 0;
    EXPECT_EQ(read(ready[0], &byte, 1), 1);
    EXPECT_LT(expectRefusal("StoreInUse"), 80);
    kill(other, SIGKILL);
    waitpid(other, nullptr, 0);

    sqlite3* connection = connect("PRAGMA locking_mode = EXCLUSIVE; BEGIN IMMEDIATE");
    const qint64 waited = expectRefusal("StoreInUse");
    EXPECT_TRUE(waited >= 80 && waited < 1000) << waited << " ms";
    sqlite3_close(connection);
    EXPECT_TRUE(open());
}

TEST_F(PersistentStoreCoordinatorTest, makesDroppedIndexesAgain)
{
    makeStore(10);
    sqlite3_close(connect("DROP INDEX UsualActivity; DROP INDEX OddActivity"));
    EXPECT_EQ(TestStore(platform).all().size(), 11U);
}
