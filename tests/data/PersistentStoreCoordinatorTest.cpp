#include "data/PersistentStoreCoordinator.h"

#include "data/SqlStatement.h"
#include "fakes/TestStore.h"

#include <QDir>
#include <QFile>

#include <functional>
#include <random>
#include <sqlite3.h>

namespace {
QByteArray contents(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void write(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_EQ(file.write(bytes), bytes.size());
}

QByteArray randomBytes(qsizetype size, unsigned seed = 1)
{
    std::mt19937 engine(seed);
    QByteArray bytes(size, '\0');
    std::generate(bytes.begin(), bytes.end(), [&] { return char(engine()); });
    return bytes;
}

void executeOn(const QString& path, const char* sql)
{
    sqlite3* connection = nullptr;
    ASSERT_EQ(sqlite3_open(qPrintable(path), &connection), SQLITE_OK);
    EXPECT_EQ(sqlite3_exec(connection, sql, nullptr, nullptr, nullptr), SQLITE_OK);
    sqlite3_close(connection);
}

class PersistentStoreCoordinatorTest : public testing::Test {
protected:
    PersistentStoreCoordinatorTest()
    {
        for (const QString key : {"StoreDamaged", "StoreForeign", "StoreMissingBesideLog", "StoreTooNew",
                 "StoreNotAFile", "StoreInUse"})
            platform.texts.byKey.insert(key, key + ": %1");
    }

    /// A store of that many records, closed.
    void makeStore(int records)
    {
        TestStore store(platform);
        for (int i = 0; i < records; ++i)
            store.insert(
                TestPlatform::kStart + 1200.0 * i, TestPlatform::kStart + 1200.0 * (i + 1), i % 2 == 0);
        Error saveError;
        ASSERT_TRUE(store.context->save(saveError));
    }
    std::unique_ptr<PersistentStoreCoordinator> open()
    {
        return PersistentStoreCoordinator::open({}, path, error);
    }
    /// Opening fails with that text, which names the file, and advises what to do about it.
    void expectRefusal(const QString& text)
    {
        EXPECT_FALSE(open());
        EXPECT_EQ(error.localizedDescription, text + ": " + path);
        EXPECT_TRUE(error.failureReason.startsWith("StoreAdvice"));
        EXPECT_TRUE(error.failureReason.endsWith(" StoreNothingRecorded"));
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
    const struct {
        const char* name;
        std::function<void()> spoil;
        const char* text;
    } kCases[] = {
        {"random bytes", [&] { write(path, randomBytes(9000)); }, "StoreDamaged"},
        {"zeros", [&] { write(path, QByteArray(8192, '\0')); }, "StoreDamaged"},
        {"cut in the first page", [&] { QFile::resize(path, 1000); }, "StoreDamaged"},
        {"cut by a byte", [&] { QFile::resize(path, QFile(path).size() - 1); }, "StoreDamaged"},
        {"pages overwritten", [&] { write(path, contents(path).left(4096) + randomBytes(40000)); },
            "StoreDamaged"},
        {"a page of zeros", [&] { write(path, contents(path).replace(8192, 4096, QByteArray(4096, '\0'))); },
            "StoreDamaged"},
        {"empty beside its log",
            [&] {
                write(path, {});
                write(path + "-wal", randomBytes(5000));
            },
            "StoreMissingBesideLog"},
        {"a page of zeros beside its log",
            [&] {
                TestStore store(platform);
                store.insert(0, 1, true);
                EXPECT_TRUE(store.context->save(error));
                const QByteArray log = contents(path + "-wal");
                store.close();
                write(path, contents(path).replace(8192, 4096, QByteArray(4096, '\0')));
                write(path + "-wal", log);
            },
            "StoreDamaged"},
        {"foreign tables",
            [&] { executeOn(path, "DROP TABLE Activity; PRAGMA user_version = 0; CREATE TABLE Other(a)"); },
            "StoreForeign"},
        {"no table", [&] { executeOn(path, "DROP TABLE Activity"); }, "StoreForeign"},
        {"a column is missing",
            [&] {
                executeOn(path,
                    "DROP INDEX UsualActivity; DROP INDEX OddActivity; ALTER TABLE Activity DROP COLUMN "
                    "weight");
            },
            "StoreForeign"},
        {"no version", [&] { executeOn(path, "PRAGMA user_version = 0"); }, "StoreForeign"},
        {"a newer version", [&] { executeOn(path, "PRAGMA user_version = 2"); }, "StoreTooNew"},
    };
    for (const auto& row : kCases) {
        SCOPED_TRACE(row.name);
        makeStore(1000);
        row.spoil();
        const QByteArray before = contents(path);
        const QByteArray logBefore = contents(path + "-wal");
        expectRefusal(row.text);
        EXPECT_TRUE(contents(path) == before && contents(path + "-wal") == logBefore);
        QFile::remove(path);
        QFile::remove(path + "-wal");
    }
    ASSERT_TRUE(QDir().mkpath(path));
    expectRefusal("StoreNotAFile");
}

TEST_F(PersistentStoreCoordinatorTest, doesNotWaitForAnotherProgramThatHasTheStore)
{
    makeStore(10);
    sqlite3* connection = nullptr;
    sqlite3_open(qPrintable(path), &connection);
    ASSERT_EQ(sqlite3_exec(
                  connection, "PRAGMA locking_mode = EXCLUSIVE; BEGIN IMMEDIATE", nullptr, nullptr, nullptr),
        SQLITE_OK);
    expectRefusal("StoreInUse");
    sqlite3_close(connection);
    EXPECT_TRUE(open());
}

TEST_F(PersistentStoreCoordinatorTest, makesDroppedIndexesAgain)
{
    makeStore(10);
    executeOn(path, "DROP INDEX UsualActivity; DROP INDEX OddActivity");
    EXPECT_EQ(TestStore(platform).all().size(), 10U);
}
