#include "data/PersistentStoreCoordinator.h"

#include "data/SqlStatement.h"
#include "fakes/Files.h"
#include "fakes/TestStore.h"

#include <QDir>
#include <QElapsedTimer>

namespace {
struct PersistentStoreCoordinatorTest : testing::Test {
    /// What the user is told of a store that cannot be opened.
    QString refusal()
    {
        EXPECT_FALSE(PersistentStoreCoordinator::open({}, path, error));
        return error.localizedDescription + ", " + error.failureReason.remove(" StoreNothingRecorded");
    }

    TestPlatform platform;
    const QString path = platform.folder.filePath(QStringLiteral("StandUp.storedata"));
    Error error;
};
}

TEST_F(PersistentStoreCoordinatorTest, makesANewStoreOfNothingWhoseCommitsAreOnDisk)
{
    for (int round = 0; round < 2; ++round) {
        const TestStore store(platform);
        EXPECT_EQ(QFile::permissions(path) & (QFile::ReadGroup | QFile::ReadOther), QFile::Permissions());
        SqlStatement statement(store.coordinator->connection(),
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
    QByteArray log; // What one more record leaves behind after an unclean end.
    for (const int count : {1000, 1}) {
        TestStore store(platform);
        for (int i = 0; i < count; ++i)
            store.insert(1200.0 * i, 1200.0 * (i + 1), i % 2 == 0);
        ASSERT_TRUE(store.context->save(error));
        log = contents(path + "-wal");
    }
    const QByteArray sound = contents(path);
    const auto after = [&](const char* sql) {
        write(path, sound);
        TestStore(platform).execute(sql);
        return contents(path);
    };
    const auto withZeros = [](QByteArray store) { return store.replace(8192, 4096, QByteArray(4096, '\0')); };
    const QByteArray large = after("CREATE TABLE Large AS SELECT zeroblob(9000000) AS bytes");
    const char* const kDamaged = "StoreDamaged, StoreAdviceReplace";
    const char* const kForeign = "StoreForeign, StoreAdviceReplace";
    const struct {
        QByteArray store, log;
        const char* refusal;
    } kCases[] = {
        {QByteArray(8192, '\0'), {}, kDamaged},
        {sound.chopped(1), {}, kDamaged},
        {sound.left(4096) + sound.left(40960), {}, kDamaged}, // Pages overwritten.
        {withZeros(sound), {}, kDamaged},
        {withZeros(sound), log, kDamaged},
        {withZeros(large), log, kDamaged},
        {{}, log, "StoreMissingBesideLog, StoreAdviceReplace"},
        {after("DROP TABLE Activity; PRAGMA user_version = 0; CREATE TABLE Other(a)"), {}, kForeign},
        {after("ALTER TABLE Activity RENAME weight TO mass"), {}, kForeign},
        {after("PRAGMA user_version = 0"), {}, kForeign},
        {after("PRAGMA user_version = 2"), {}, "StoreTooNew, StoreAdviceNewerProgram"},
    };
    for (const auto& row : kCases) {
        QFile::remove(path + "-wal");
        write(path, row.store);
        if (!row.log.isEmpty())
            write(path + "-wal", row.log);
        EXPECT_EQ(refusal(), row.refusal) << "row " << &row - kCases;
        EXPECT_TRUE(contents(path) == row.store && contents(path + "-wal") == row.log);
    }
    QFile::remove(path + "-wal");
    write(path, withZeros(large));
    EXPECT_TRUE(PersistentStoreCoordinator::open({}, path, error))
        << "a large store is read through after an unclean end only";
    QFile::remove(path);
    ASSERT_TRUE(QFile::link("/nowhere/StandUp.storedata", path));
    EXPECT_EQ(refusal(), "StoreNotWritable, StoreAdvicePermissions");
    QFile::remove(path);
    ASSERT_TRUE(QDir().mkpath(path));
    platform.texts.byKey = {{"StoreNotAFile", "found a folder: %1"}};
    EXPECT_EQ(refusal(), "found a folder: " + path + ", StoreAdviceReplace");
    QFile::remove(path + ".lock");
    ASSERT_TRUE(QDir().mkpath(path + ".lock"));
    EXPECT_EQ(refusal(), "StoreNotWritable, StoreAdvicePermissions");
}

TEST_F(PersistentStoreCoordinatorTest, hardlyWaitsForAnotherProgramAndMakesDroppedIndexesAgain)
{
    TestStore other(platform);
    other.insert(1000, 1200, true);
    ASSERT_TRUE(other.context->save(error));
    other.execute("DROP INDEX UsualActivity; DROP INDEX OddActivity; BEGIN IMMEDIATE");
    QElapsedTimer clock;
    clock.start();
    const auto open = [this] { EXPECT_EQ(refusal(), "StoreInUse, StoreAdviceCloseOther"); };
    EXPECT_TRUE(logOf(open).startsWith("SQLite answers 5: database is locked\n"));
    EXPECT_TRUE(clock.elapsed() >= 80 && clock.elapsed() < 1000) << clock.elapsed() << " ms";
    other.reopen();
    EXPECT_EQ(other.all().size(), 1U);
}
