#include "shell/AppDelegate.h"

#include "data/ManagedObjectContext.h"
#include "shell/ShellWorld.h"

#include <QDir>
#include <QFile>

#include <cerrno>
#include <gtest/gtest.h>
#include <sqlite3.h>

namespace {
/// Another program that writes into the store and does not end: nothing can be saved meanwhile.
class StoreLock {
public:
    explicit StoreLock(const ShellWorld& world)
    {
        const QString path = world.dataFolder() + QStringLiteral("/StandUp.storedata");
        sqlite3_open(path.toUtf8().constData(), &m_store);
        sqlite3_exec(m_store, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr);
    }
    ~StoreLock() { sqlite3_close(m_store); }
    Q_DISABLE_COPY_MOVE(StoreLock)

private:
    sqlite3* m_store = nullptr;
};
}

TEST(AppDelegate, anUpgradeIsByNumbersAndResetsTheDismissTimeInOneRelease)
{
    const struct {
        const char* stored;
        const char* running;
        double dismissTime;
        const char* version;
    } kCases[] = {
        {"1.0.0", "1.0.1", 20, "1.0.1"},
        {"1.0.0", "1.0.2", 77, "1.0.2"},
        {"1.0.9", "1.0.10", 77, "1.0.10"},
        {"1.0.10", "1.0.9", 77, "1.0.10"},
    };
    for (const auto& row : kCases) {
        ShellWorld world;
        QJsonObject information = TestPlatform::defaultInformation();
        information[QStringLiteral("CFBundleShortVersionString")] = QString::fromLatin1(row.running);
        TestBundle bundle(information);
        const ProcessServices process({&world.platform.runLoop, &bundle, &world.platform.defaults});
        world.platform.defaults.values[QStringLiteral("TimeNotificationDismiss")] = 77.0;
        AppProperties::instance().setVersion(QString::fromLatin1(row.stored));
        world.app->versionUpgrade();
        EXPECT_EQ(AppProperties::instance().timeNotificationDismiss(), row.dismissTime) << row.running;
        EXPECT_EQ(AppProperties::instance().version(), QString::fromLatin1(row.version));
    }
}

TEST(AppDelegate, aSaveThatFailsIsPresentedAndSettledByOneThatSucceeds)
{
    ShellWorld world;
    world.startWithDesk();
    const int settled = world.dialogs.timesForgotten;
    {
        const StoreLock lock(world);
        world.platform.runLoop.advance(16);
    }
    ASSERT_EQ(world.dialogs.presented.size(), 1u);
    EXPECT_EQ(world.dialogs.presented[0].code & 0xFF, SQLITE_BUSY);
    EXPECT_EQ(world.dialogs.timesForgotten, settled);
    world.platform.runLoop.advance(15);
    EXPECT_EQ(world.dialogs.timesForgotten, settled + 1);
}

TEST(AppDelegate, aStartThatIsEndedLeavesItsLogAndNoStore)
{
    ShellWorld world;
    world.hid.openStatus = EACCES;
    world.app->applicationDidFinishLaunching();
    EXPECT_EQ(world.app->statusMenuOpen()->isEnabled(), false) << "before it is shown";
    world.app->terminate();
    EXPECT_EQ(world.quits, 1);
    EXPECT_EQ(QDir(world.dataFolder()).entryList(QDir::Files), QStringList(QStringLiteral("StandUp.log")));
    QFile log(QDir(world.dataFolder()).filePath(QStringLiteral("StandUp.log")));
    ASSERT_TRUE(log.open(QIODevice::ReadOnly));
    EXPECT_TRUE(log.readAll().contains("IOHIDManagerOpen failed."));
}

TEST(AppDelegate, anUnsavableChangeAsksAndEitherAnswerQuits)
{
    const struct {
        bool dealtWith;
        int answer;
        int quits;
        int asks;
    } kCases[] = {
        {true, Dialogs::kFirstButton, 0, 0},
        {false, Dialogs::kFirstButton, 1, 1},
        {false, Dialogs::kFirstButton + 1, 1, 1},
        {false, 0, 0, 1},
    };
    for (const auto& row : kCases) {
        SCOPED_TRACE(testing::Message() << row.dealtWith << ' ' << row.answer);
        ShellWorld world;
        ASSERT_NE(world.app->managedObjectContext(), nullptr);
        const ActivityRef activity = world.app->managedObjectContext()->insertActivity();
        const StoreLock lock(world);
        world.dialogs.errorsAreDealtWith = row.dealtWith;
        world.dialogs.alertAnswer = row.answer;
        world.app->terminate();
        EXPECT_EQ(world.quits, row.quits);
        EXPECT_EQ(world.dialogs.alerts.size(), row.asks);
        world.dialogs.alertAnswer = Dialogs::kFirstButton;
        world.dialogs.errorsAreDealtWith = false;
        world.app->terminate();
        EXPECT_EQ(world.quits, 1) << "a refused end leaves the next one free";
    }
}

TEST(AppDelegate, aSecondRequestAnswersTheQuestionOfTheFirst)
{
    ShellWorld world;
    const auto desk = world.startWithDesk();
    const auto& hub = AppProperties::instance().zelvoController();
    hub->device()->moveUp();
    world.platform.runLoop.advance(0.3); // The first report of the movement is out.
    world.app->managedObjectContext()->insertActivity();
    const StoreLock lock(world);
    world.dialogs.alertAnswer = 0;
    world.dialogs.whileAlertRuns = [&] {
        EXPECT_EQ(desk->written.back()[1], 1) << "the desk stops before the question";
        EXPECT_TRUE(hub->activity());
        if (world.dialogs.alerts.size() == 1) // Questions that were asked of questions would never end.
            world.app->terminate();
        EXPECT_FALSE(hub->activity());
    };
    world.app->terminate();
    EXPECT_EQ(world.dialogs.alerts.size(), 1);
    EXPECT_EQ(world.quits, 1);
}
