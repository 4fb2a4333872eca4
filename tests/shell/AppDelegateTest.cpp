#include "shell/AppDelegate.h"

#include "data/ActivityPersister.h"
#include "data/ManagedObjectContext.h"
#include "screens/HistoryWindowController.h"
#include "shell/MainWindowController.h"
#include "shell/ShellWorld.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLabel>

#include <cerrno>
#include <gtest/gtest.h>
#include <sqlite3.h>

namespace {
/// Another program that writes into the store and does not end: nothing can be saved meanwhile.
class StoreLock {
public:
    explicit StoreLock(const QString& path)
    {
        sqlite3_open(path.toUtf8().constData(), &m_store);
        sqlite3_exec(m_store, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr);
    }
    ~StoreLock() { sqlite3_close(m_store); }
    StoreLock(const StoreLock&) = delete;
    StoreLock& operator=(const StoreLock&) = delete;

private:
    sqlite3* m_store = nullptr;
};
}

TEST(AppDelegate, upgradeResetsTheDismissTimeOnlyOnTheWayToTheReleaseThatChangedIt)
{
    const struct {
        const char* stored;
        const char* running;
        double expectedDismissTime;
        const char* expectedVersion;
    } kCases[] = {
        {"", "1.0.1", 20, "1.0.1"},
        {"1.0.0", "1.0.1", 20, "1.0.1"},
        {"1.0.1", "1.0.1", 77, "1.0.1"},
        {"1.0.2", "1.0.1", 77, "1.0.2"},
        {"1.0.0", "1.0.2", 77, "1.0.2"},
        {"1.0.9", "1.0.10", 77, "1.0.10"},
        {"1.0.10", "1.0.9", 77, "1.0.10"},
    };
    for (const auto& row : kCases) {
        SCOPED_TRACE(testing::Message() << row.stored << " -> " << row.running);
        ShellWorld world;
        QJsonObject information = TestPlatform::defaultInformation();
        information[QStringLiteral("CFBundleShortVersionString")] = QString::fromLatin1(row.running);
        TestBundle bundle(information);
        Bundle::setMain(&bundle);
        AppProperties::resetInstance();
        world.platform.defaults.values[QStringLiteral("TimeNotificationDismiss")] = 77.0;
        if (*row.stored)
            world.platform.defaults.values[QStringLiteral("Version")] = QString::fromLatin1(row.stored);
        world.app->versionUpgrade();
        EXPECT_EQ(AppProperties::instance().timeNotificationDismiss(), row.expectedDismissTime);
        EXPECT_EQ(world.platform.defaults.values[QStringLiteral("Version")].toString(),
            QString::fromLatin1(row.expectedVersion));
        AppProperties::instance().setMainBundle(nullptr);
    }
}

TEST(AppDelegate, openAndHistoryWaitForTheSetup)
{
    ShellWorld world;
    world.app->applicationDidFinishLaunching();
    const auto enabled = [&] {
        Q_EMIT world.app->statusMenu().aboutToShow();
        QList<bool> states;
        for (const QAction* item : world.app->statusMenu().actions())
            states.append(item->isEnabled());
        return states;
    };
    EXPECT_EQ(enabled(), (QList<bool> {false, false, true, true}));
    world.completeSetup();
    EXPECT_EQ(enabled(), (QList<bool> {true, true, true, true}));
    EXPECT_EQ(world.loginItems.inserted, QStringList(QStringLiteral("/opt/zelvo/zelvo-standup")));
}

TEST(AppDelegate, whatKeepsTheStoreFromOpeningIsPresentedAndNotTouched)
{
    const struct {
        const char* inTheWay; ///< a file, below the user's data folder
        const char* domain;
        int code;
    } kCases[] = {
        {"/org.zelvo.StandUp", "YOUR_ERROR_DOMAIN", 101},
        {"", "generic", ENOTDIR},
        {"/org.zelvo.StandUp/StandUp.storedata", "SQLite", SQLITE_NOTADB},
    };
    for (const auto& row : kCases) {
        SCOPED_TRACE(row.inTheWay);
        ShellWorld world;
        const QString path = world.platform.folder.path() + QString::fromLatin1(row.inTheWay);
        if (*row.inTheWay)
            QDir().mkpath(QFileInfo(path).path());
        else
            QDir(path).removeRecursively();
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        file.write(QByteArray(1024, 'x'));
        file.flush();
        EXPECT_EQ(world.app->managedObjectContext(), nullptr);
        ASSERT_EQ(world.dialogs.presented.size(), 2u);
        EXPECT_EQ(world.dialogs.presented[0].domain, QString::fromLatin1(row.domain));
        EXPECT_EQ(world.dialogs.presented[0].code, row.code);
        EXPECT_FALSE(world.dialogs.presented[0].failureReason.isEmpty());
        EXPECT_EQ(world.dialogs.presented[1].code, 9999);
        EXPECT_EQ(file.size(), 1024);

        ASSERT_TRUE(file.remove()); // A failed build leaves nothing behind.
        EXPECT_NE(world.app->managedObjectContext(), nullptr);
        EXPECT_EQ(world.dialogs.presented.size(), 2u);
    }
}

TEST(AppDelegate, hubAndWindowsGoOnWithAStoreThatComesLater)
{
    ShellWorld world;
    world.completeSetup();
    ASSERT_TRUE(QDir().mkpath(world.dataFolder() + QStringLiteral("/StandUp.storedata")));
    world.app->applicationDidFinishLaunching();
    world.plugDesk(9000); // Standing, and nothing can be recorded.
    world.app->menuOpenClicked();
    world.app->showHistory();
    ASSERT_TRUE(QDir(world.dataFolder()).rmdir(QStringLiteral("StandUp.storedata")));
    world.platform.runLoop.advance(15 + 21 * 60);
    world.app->historyController().updateData();
    ASSERT_EQ(world.app->historyController().persister().count(), 1u);
    const QWidget& window = world.app->menuletController().mainWindow().window();
    EXPECT_EQ(window.findChild<QLabel*>(QStringLiteral("labelPercent"))->text(), QStringLiteral("14"));
}

TEST(AppDelegate, aSaveThatFailsIsPresentedAndSettledByOneThatSucceeds)
{
    ShellWorld world;
    world.completeSetup();
    world.app->applicationDidFinishLaunching();
    world.plugDesk(900);
    ASSERT_TRUE(world.dialogs.presented.empty());
    const int settled = world.dialogs.timesForgotten;
    {
        const StoreLock lock(world.dataFolder() + QStringLiteral("/StandUp.storedata"));
        world.platform.runLoop.advance(16);
    }
    ASSERT_EQ(world.dialogs.presented.size(), 1u);
    EXPECT_EQ(world.dialogs.presented[0].code & 0xFF, SQLITE_BUSY);
    EXPECT_EQ(world.dialogs.timesForgotten, settled);
    world.platform.runLoop.advance(15);
    EXPECT_EQ(world.dialogs.timesForgotten, settled + 1);
}

TEST(AppDelegate, theLogOfTheStartIsInTheDataFolder)
{
    ShellWorld world;
    world.hid.openStatus = EACCES;
    world.app->applicationDidFinishLaunching();
    QFile log(QDir(world.dataFolder()).filePath(QStringLiteral("StandUp.log")));
    ASSERT_TRUE(log.open(QIODevice::ReadOnly));
    EXPECT_TRUE(log.readAll().contains("IOHIDManagerOpen failed."));
}

TEST(AppDelegate, quittingBeforeAnyDataAccessDoesNotTouchTheStore)
{
    ShellWorld world;
    world.app->applicationDidFinishLaunching();
    world.app->terminate();
    EXPECT_EQ(world.quits, 1);
    EXPECT_FALSE(QFileInfo::exists(world.dataFolder() + QStringLiteral("/StandUp.storedata")));
}

TEST(AppDelegate, anUnsavableChangeAsksAndEitherAnswerQuits)
{
    const struct {
        bool dealtWith;
        int answer;
        bool quits;
        bool asks;
    } kCases[] = {
        {true, Dialogs::kFirstButton, false, false},
        {false, Dialogs::kFirstButton, true, true},
        {false, Dialogs::kFirstButton + 1, true, true},
        {false, 0, false, true},
    };
    for (const auto& row : kCases) {
        SCOPED_TRACE(testing::Message() << row.dealtWith << ' ' << row.answer);
        ShellWorld world;
        world.app->setupStatusBar();
        const auto context = world.app->managedObjectContext();
        ASSERT_NE(context, nullptr);
        const ActivityRef activity = context->insertActivity();
        const StoreLock lock(world.dataFolder() + QStringLiteral("/StandUp.storedata"));
        world.dialogs.errorsAreDealtWith = row.dealtWith;
        world.dialogs.alertAnswer = row.answer;
        world.app->terminate();
        EXPECT_EQ(world.quits, row.quits ? 1 : 0);
        EXPECT_EQ(world.dialogs.alerts.size(), row.asks ? 1 : 0);
        world.dialogs.alertAnswer = Dialogs::kFirstButton;
        world.dialogs.errorsAreDealtWith = false;
        world.app->terminate();
        EXPECT_EQ(world.quits, 1) << "a refused end leaves the next one free";
    }
}

TEST(AppDelegate, aSecondRequestAnswersTheQuestionOfTheFirst)
{
    ShellWorld world;
    world.completeSetup();
    world.app->applicationDidFinishLaunching();
    const auto desk = world.plugDesk(900);
    AppProperties::instance().zelvoController()->device()->moveUp();
    world.app->managedObjectContext()->insertActivity();
    const StoreLock lock(world.dataFolder() + QStringLiteral("/StandUp.storedata"));
    world.dialogs.alertAnswer = 0;
    world.dialogs.whileAlertRuns = [&] {
        EXPECT_EQ(desk->written.back()[1], 1) << "the desk stops before the question";
        EXPECT_TRUE(AppProperties::instance().zelvoController()->activity());
        world.app->terminate();
        EXPECT_EQ(world.quits, 1);
        EXPECT_FALSE(AppProperties::instance().zelvoController()->activity());
    };
    world.app->terminate();
    EXPECT_EQ(world.dialogs.alerts.size(), 1);
    EXPECT_EQ(world.quits, 1);
}

TEST(AppDelegate, aSessionThatMayEndSavesTheRecordAndLeavesItOpen)
{
    ShellWorld world;
    world.completeSetup();
    world.app->applicationDidFinishLaunching();
    world.plugDesk(900);
    world.platform.runLoop.advance(38);
    world.app->commitData();
    const auto& hub = AppProperties::instance().zelvoController();
    ASSERT_TRUE(hub->activity());
    EXPECT_EQ(hub->activity()->endDate(), Date::now());
    EXPECT_FALSE(world.app->managedObjectContext()->hasChanges());
    EXPECT_TRUE(hub->scheduleManager()->isScheduled());
}
