#include "shell/AppDelegate.h"

#include "data/ManagedObjectContext.h"
#include "fakes/Files.h"
#include "shell/ShellWorld.h"

#include <QDir>
#include <QFile>

#include <cerrno>
#include <gtest/gtest.h>
#include <sqlite3.h>

TEST(AppDelegate, anUpgradeIsByNumbersAndResetsTheDismissTimeInOneRelease)
{
    const std::tuple<const char*, const char*, double, const char*> kCases[] = {
        {"1.0.0", "1.0.1", 20, "1.0.1"}, {"1.0.0", "1.0.2", 77, "1.0.2"}, {"1.0.9", "1.0.10", 77, "1.0.10"},
        {"1.0.10", "1.0.9", 77, "1.0.10"}, {"1.0.1", "1.0.1", 77, "1.0.1"}};
    for (const auto& [stored, running, dismissTime, version] : kCases) {
        ShellWorld world;
        QJsonObject information = TestPlatform::defaultInformation();
        information[QStringLiteral("CFBundleShortVersionString")] = QString::fromLatin1(running);
        SimulatedBundle bundle(information);
        const ProcessServices process({&world.platform.runLoop, &bundle, &world.platform.defaults});
        world.platform.defaults.values[QStringLiteral("TimeNotificationDismiss")] = 77.0;
        AppProperties::instance().setVersion(QString::fromLatin1(stored));
        world.app->versionUpgrade();
        EXPECT_EQ(AppProperties::instance().timeNotificationDismiss(), dismissTime) << running;
        EXPECT_EQ(AppProperties::instance().version(), QString::fromLatin1(version));
    }
}

TEST(AppDelegate, aMenuThatIsAboutToShowKnowsOfASetUpWhoseWindowIsStillOpen)
{
    ShellWorld world;
    world.app->applicationWillFinishLaunching();
    for (const bool isComplete : {false, true}) {
        Q_EMIT world.app->statusMenu().aboutToShow();
        EXPECT_EQ(world.app->statusMenuOpen()->isEnabled(), isComplete);
        world.completeSetup();
    }
}

TEST(AppDelegate, aFolderThatCannotBeMadeIsToldWithItsCauseAndTriedAgain)
{
    ShellWorld world;
    const QString folder = world.dataFolder();
    const std::tuple<QString, QString, QString> kCases[] = {
        {folder, "YOUR_ERROR_DOMAIN|101|Expected a folder to store application data, found a file (%1).", ""},
        {world.platform.folder.path(), QStringLiteral("generic|%1|DataFolderError").arg(ENOTDIR),
            "Not a directory\n"}};
    for (const auto& [path, text, logged] : kCases) {
        QDir(path).removeRecursively();
        QFile inTheWay(path);
        ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
        const QString log = logOf([&] { EXPECT_EQ(world.app->managedObjectContext(), nullptr); });
        EXPECT_TRUE(log.endsWith(logged));
        QStringList told;
        for (const Error& error : world.dialogs.presented)
            told << error.domain << QString::number(error.code) << error.localizedDescription
                 << error.failureReason;
        EXPECT_EQ(told.join('|').replace(folder, "%1"),
            text
                + "|DataFolderAdvice|YOUR_ERROR_DOMAIN|9999|Failed to initialize the store|"
                  "There was an error building up the data file.");
        world.dialogs.presented.clear();
        inTheWay.remove();
    }
    EXPECT_NE(world.app->managedObjectContext(), nullptr);
}

TEST(AppDelegate, anUnsavableChangeAsksAndEitherAnswerQuits)
{
    for (const auto& [dealtWith, answer, quits, asks] :
        {std::tuple(true, Dialogs::kFirstButton, 0, 0), {false, Dialogs::kFirstButton, 1, 1},
            {false, Dialogs::kFirstButton + 1, 1, 1}, {false, 0, 0, 1}}) {
        SCOPED_TRACE(testing::Message() << dealtWith << ' ' << answer);
        ShellWorld world;
        const ActivityRef activity = world.app->managedObjectContext()->insertActivity();
        // Another program writes into the store and does not end.
        sqlite3* other = nullptr;
        sqlite3_open(qUtf8Printable(world.dataFolder() + "/StandUp.storedata"), &other);
        sqlite3_exec(other, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr);
        world.dialogs.errorsAreDealtWith = dealtWith;
        world.dialogs.alertAnswer = answer;
        world.app->terminate();
        EXPECT_EQ(world.quits, quits);
        EXPECT_EQ(world.dialogs.alerts,
            QStringList(asks,
                "Could not save changes while quitting. Quit anyway?|"
                "Quitting now will lose any changes you have made since the last successful save|"
                "Quit anyway|Cancel"));
        world.dialogs.alertAnswer = Dialogs::kFirstButton;
        world.dialogs.errorsAreDealtWith = false;
        world.dialogs.whileAlertRuns = [&] { world.app->terminate(); };
        const QString log = logOf([&] { world.app->terminate(); });
        EXPECT_EQ(log.count("Told to end again"), 1 - quits);
        EXPECT_EQ(world.quits, 1) << "a refused end leaves the next one free, and asking twice is an answer";
        sqlite3_close(other);
    }
}
