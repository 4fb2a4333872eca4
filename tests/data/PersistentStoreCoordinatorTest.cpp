#include "data/PersistentStoreCoordinator.h"

#include "data/SqlStatement.h"
#include "data/StoreFile.h"

#include <QDir>
#include <QElapsedTimer>

namespace {
class PersistentStoreCoordinatorTest : public testing::Test {
protected:
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
    /// Opening fails with that text and advises what to do about it.
    void expectRefusal(const QString& text)
    {
        EXPECT_FALSE(open());
        EXPECT_EQ(error.localizedDescription, text);
        EXPECT_TRUE(error.failureReason.startsWith("StoreAdvice"));
        EXPECT_TRUE(error.failureReason.endsWith(" StoreNothingRecorded"));
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
        QByteArray store;
        QByteArray log;
        const char* text;
    } kCases[] = {
        {QByteArray("something else ").repeated(1024), {}, "StoreDamaged"},
        {QByteArray(8192, '\0'), {}, "StoreDamaged"},
        {sound.left(1000), {}, "StoreDamaged"}, // Cut in the first page.
        {sound.chopped(1), {}, "StoreDamaged"},
        {sound.left(4096) + sound.left(40960), {}, "StoreDamaged"}, // Pages overwritten.
        {withZeros(sound), {}, "StoreDamaged"},
        {withZeros(sound), log, "StoreDamaged"},
        {withZeros(large), log, "StoreDamaged"},
        {{}, log, "StoreMissingBesideLog"},
        {after("DROP TABLE Activity; PRAGMA user_version = 0; CREATE TABLE Other(a)"), {}, "StoreForeign"},
        {after("DROP TABLE Activity"), {}, "StoreForeign"},
        {after("ALTER TABLE Activity RENAME weight TO mass"), {}, "StoreForeign"},
        {after("PRAGMA user_version = 0"), {}, "StoreForeign"},
        {after("PRAGMA user_version = 2"), {}, "StoreTooNew"},
    };
    for (const auto& row : kCases) {
        SCOPED_TRACE(&row - kCases);
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
    platform.texts.byKey = {{"StoreNotAFile", "found a folder: %1"}};
    expectRefusal("found a folder: " + path);
    QFile::remove(path + ".lock");
    ASSERT_TRUE(QDir().mkpath(path + ".lock"));
    expectRefusal("StoreNotWritable");
}

TEST_F(PersistentStoreCoordinatorTest, hardlyWaitsForAnotherProgramAndMakesDroppedIndexesAgain)
{
    makeStore(10);
    sqlite3* other = connect("DROP INDEX UsualActivity; DROP INDEX OddActivity; "
                             "PRAGMA locking_mode = EXCLUSIVE; BEGIN IMMEDIATE");
    QElapsedTimer clock;
    clock.start();
    expectRefusal("StoreInUse");
    EXPECT_TRUE(clock.elapsed() >= 80 && clock.elapsed() < 1000) << clock.elapsed() << " ms";
    sqlite3_close(other);
    EXPECT_EQ(TestStore(platform).all().size(), 11U);
}
