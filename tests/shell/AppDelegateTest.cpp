#include "shell/AppDelegate.h"

#include "data/ManagedObjectContext.h"
#include "shell/ShellWorld.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

TEST(AppDelegate, anUpgradeIsByNumbersAndResetsTheDismissTimeInOneRelease)
{
    const struct {
        const char* stored;
        const char* running;
        double dismissTime;
        const char* version;
    } kCases[] = {{"1.0.0", "1.0.1", 20, "1.0.1"}, {"1.0.0", "1.0.2", 77, "1.0.2"},
        {"1.0.9", "1.0.10", 77, "1.0.10"}, {"1.0.10", "1.0.9", 77, "1.0.10"}};
    for (const auto& row : kCases) {
        ShellWorld world;
        QJsonObject information = TestPlatform::defaultInformation();
        information[QStringLiteral("CFBundleShortVersionString")] = QString::fromLatin1(row.running);
        SimulatedBundle bundle(information);
        const ProcessServices process({&world.platform.runLoop, &bundle, &world.platform.defaults});
        world.platform.defaults.values[QStringLiteral("TimeNotificationDismiss")] = 77.0;
        AppProperties::instance().setVersion(QString::fromLatin1(row.stored));
        world.app->versionUpgrade();
        EXPECT_EQ(AppProperties::instance().timeNotificationDismiss(), row.dismissTime) << row.running;
        EXPECT_EQ(AppProperties::instance().version(), QString::fromLatin1(row.version));
    }
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
        const ActivityRef activity = world.app->managedObjectContext()->insertActivity();
        // Another program writes into the store and does not end.
        sqlite3* other = nullptr;
        sqlite3_open(qUtf8Printable(world.dataFolder() + "/StandUp.storedata"), &other);
        sqlite3_exec(other, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr);
        world.dialogs.errorsAreDealtWith = row.dealtWith;
        world.dialogs.alertAnswer = row.answer;
        world.app->terminate();
        EXPECT_EQ(world.quits, row.quits);
        EXPECT_EQ(world.dialogs.alerts.size(), row.asks);
        world.dialogs.alertAnswer = Dialogs::kFirstButton;
        world.dialogs.errorsAreDealtWith = false;
        world.dialogs.whileAlertRuns = [&] { world.app->terminate(); };
        world.app->terminate();
        EXPECT_EQ(world.quits, 1) << "a refused end leaves the next one free, and asking twice is an answer";
        sqlite3_close(other);
    }
}
