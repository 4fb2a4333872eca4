#include "data/PersistentStoreCoordinator.h"

#include "fakes/TestStore.h"

#include <QDir>
#include <QFile>

#include <csignal>
#include <functional>
#include <random>
#include <sqlite3.h>
#include <sys/wait.h>
#include <unistd.h>

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
    void SetUp() override
    {
        for (const char* const key : {"StoreDamaged", "StoreForeign", "StoreMissingBesideLog", "StoreTooNew"})
            platform.bundle.texts.insert(
                QString::fromLatin1(key), QString::fromLatin1(key) + QStringLiteral(": %1"));
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

    TestPlatform platform;
    const QString path = platform.folder.filePath(QStringLiteral("StandUp.storedata"));
    Error error;
};
}

TEST_F(PersistentStoreCoordinatorTest, makesANewStoreOfNothing)
{
    for (const bool fileExists : {false, true}) {
        if (fileExists)
            write(path, {});
        ASSERT_TRUE(open()) << qPrintable(error.localizedDescription);
        EXPECT_EQ(QFile::permissions(path) & (QFile::ReadGroup | QFile::ReadOther), QFile::Permissions());
        QFile::remove(path);
    }
}

TEST_F(PersistentStoreCoordinatorTest, aCommitIsOnDiskWhenItReturns)
{
    const auto coordinator = open();
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(coordinator->connection(),
        "SELECT journal_mode = 'wal' AND synchronous = 2 FROM pragma_journal_mode, pragma_synchronous", -1,
        &statement, nullptr);
    EXPECT_EQ(sqlite3_step(statement), SQLITE_ROW);
    EXPECT_EQ(sqlite3_column_int(statement, 0), 1);
    sqlite3_finalize(statement);
}

TEST_F(PersistentStoreCoordinatorTest, refusesWhatIsNoGoodStoreAndLeavesItAsItIs)
{
    const char* const kDamaged = "StoreDamaged";
    const char* const kForeign = "StoreForeign";
    const struct TestCase {
        const char* name;
        std::function<void()> spoil;
        const char* description;
    } kTestCases[] = {
        {"random bytes", [&] { write(path, randomBytes(9000)); }, kDamaged},
        {"zeros", [&] { write(path, QByteArray(8192, '\0')); }, kDamaged},
        {"cut in the first page", [&] { QFile::resize(path, 1000); }, kDamaged},
        {"cut by a byte", [&] { QFile::resize(path, QFile(path).size() - 1); }, kDamaged},
        {"pages overwritten", [&] { write(path, contents(path).left(4096) + randomBytes(40000)); }, kDamaged},
        {"a page of zeros", [&] { write(path, contents(path).replace(8192, 4096, QByteArray(4096, '\0'))); },
            kDamaged},
        {"empty beside its log",
            [&] {
                write(path, {});
                write(path + QStringLiteral("-wal"), randomBytes(5000));
            },
            "StoreMissingBesideLog"},
        {"a page of zeros beside its log",
            [&] {
                TestStore store(platform);
                store.insert(0, 1, true);
                EXPECT_TRUE(store.context->save(error));
                const QByteArray log = contents(path + QStringLiteral("-wal"));
                store.close();
                write(path, contents(path).replace(8192, 4096, QByteArray(4096, '\0')));
                write(path + QStringLiteral("-wal"), log);
            },
            kDamaged},
        {"foreign tables",
            [&] { executeOn(path, "DROP TABLE Activity; PRAGMA user_version = 0; CREATE TABLE Other(a)"); },
            kForeign},
        {"no table", [&] { executeOn(path, "DROP TABLE Activity"); }, kForeign},
        {"a column is missing",
            [&] {
                executeOn(path,
                    "DROP INDEX UsualActivity; DROP INDEX OddActivity; ALTER TABLE Activity DROP COLUMN "
                    "weight");
            },
            kForeign},
        {"no version", [&] { executeOn(path, "PRAGMA user_version = 0"); }, kForeign},
        {"a newer version", [&] { executeOn(path, "PRAGMA user_version = 2"); }, "StoreTooNew"},
    };
    for (const TestCase& testCase : kTestCases) {
        SCOPED_TRACE(testCase.name);
        makeStore(1000);
        testCase.spoil();
        const QByteArray before = contents(path);
        const QByteArray logBefore = contents(path + QStringLiteral("-wal"));
        EXPECT_FALSE(open());
        EXPECT_TRUE(error.localizedDescription.contains(QLatin1String(testCase.description)))
            << qPrintable(error.localizedDescription);
        EXPECT_TRUE(error.localizedDescription.contains(path));
        EXPECT_TRUE(error.failureReason.startsWith(QStringLiteral("StoreAdvice")));
        EXPECT_TRUE(contents(path) == before);
        EXPECT_TRUE(contents(path + QStringLiteral("-wal")) == logBefore);
        QFile::remove(path);
        QFile::remove(path + QStringLiteral("-wal"));
    }
}

TEST_F(PersistentStoreCoordinatorTest, refusesAPlaceThatIsNoFile)
{
    ASSERT_TRUE(QDir().mkpath(path));
    EXPECT_FALSE(open());
    EXPECT_TRUE(error.localizedDescription.contains(QStringLiteral("StoreNotAFile")));
}

TEST_F(PersistentStoreCoordinatorTest, doesNotWaitForAnotherProgramThatKeepsTheStore)
{
    makeStore(10);
    sqlite3* other = nullptr;
    sqlite3_open(qPrintable(path), &other);
    ASSERT_EQ(
        sqlite3_exec(other, "PRAGMA locking_mode = EXCLUSIVE; BEGIN IMMEDIATE", nullptr, nullptr, nullptr),
        SQLITE_OK);
    EXPECT_FALSE(open());
    EXPECT_TRUE(error.localizedDescription.contains(QStringLiteral("StoreInUse")))
        << qPrintable(error.localizedDescription);
    sqlite3_close(other);
    EXPECT_TRUE(open());
}

/// Two programs over one store, each of which would end the other's periods in its own way.
TEST_F(PersistentStoreCoordinatorTest, leavesTheStoreToTheProgramThatRecordsIntoIt)
{
    int ready[2];
    ASSERT_EQ(pipe(ready), 0);
    const pid_t other = fork();
    if (other == 0) {
        const auto coordinator = open();
        EXPECT_EQ(write(ready[1], "x", 1), 1);
        pause();
        _exit(0);
    }
    char byte = 0;
    ASSERT_EQ(read(ready[0], &byte, 1), 1);
    EXPECT_FALSE(open());
    EXPECT_TRUE(error.localizedDescription.contains(QStringLiteral("StoreInUse")))
        << qPrintable(error.localizedDescription);
    EXPECT_TRUE(error.failureReason.endsWith(QStringLiteral(" StoreNothingRecorded")));
    kill(other, SIGKILL);
    waitpid(other, nullptr, 0);
    EXPECT_TRUE(open());
}

TEST_F(PersistentStoreCoordinatorTest, makesDroppedIndexesAgain)
{
    makeStore(10);
    executeOn(path, "DROP INDEX UsualActivity; DROP INDEX OddActivity");
    EXPECT_EQ(TestStore(platform).all().size(), 10U);
}
