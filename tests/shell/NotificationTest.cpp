#include "shell/Notification.h"

#include "shell/ShellWorld.h"

#include <gtest/gtest.h>

namespace {
/// The detail formats with their numbers in sight.
void showNumbers(TestBundle& bundle)
{
    bundle.texts = {
        {QStringLiteral("NotificationDetailMessage1"), QStringLiteral("Stand %1 min")},
        {QStringLiteral("NotificationDetailMessage2"), QStringLiteral("for %1 kcal.")},
        {QStringLiteral("NotificationSittingmemory"), QStringLiteral("Sit %1 min.")},
        {QStringLiteral("Calories"), QStringLiteral("burned CALORIES")},
    };
}
}

TEST(Notification, contentFollowsPositionModeAndPlan)
{
    const struct {
        int position;
        int mode;
        double goal;
        int standUps;
        const char* titlePrefix;
        const char* value;
        const char* caption; ///< each word with a capital
        const char* message;
    } kCases[] = {
        {1, 2, 15, 2, "SittingMessage", "7", "Minutes", ""},
        {2, 2, 15, 2, "StandingMessage", "22", "Mins", ""},
        {1, 2, 10, 3, "SittingMessage", "3", "Minutes", ""},
        {1, 1, 200, 2, "SittingMessage", "12", "Burned Calories", "Stand 15 min for 12 kcal."},
        {2, 1, 200, 2, "StandingMessage", "15", "Mins", "Sit 15 min."},
        {1, 2, 15, 0, "SittingMessage", "15", "Minutes", ""},
        {0, 2, 15, 2, "SittingMessage", "", "", ""},
    };
    for (const auto& row : kCases) {
        SCOPED_TRACE(testing::Message() << row.position << ' ' << row.mode << ' ' << row.standUps);
        ShellWorld world;
        showNumbers(world.platform.bundle);
        world.completeSetup();
        AppProperties::instance().setActivityMode(row.mode);
        AppProperties::instance().setActivityGoal(row.goal);
        AppProperties::instance().setNumberOfStandUps(row.standUps);
        world.app->applicationDidFinishLaunching();
        const Notification notification(row.position);
        EXPECT_EQ(notification.position(), row.position);
        EXPECT_TRUE(notification.title().startsWith(QString::fromLatin1(row.titlePrefix)));
        EXPECT_EQ(notification.message(), QString::fromLatin1(row.message));
        EXPECT_EQ(notification.indicatorValue().has_value(), row.position != 0);
        EXPECT_EQ(notification.indicatorValue().value_or(QString()), QString::fromLatin1(row.value));
        EXPECT_EQ(notification.indicatorTitle().value_or(QString()), QString::fromLatin1(row.caption));
    }
}

TEST(Notification, aSettingBeyondReasonStaysANumber)
{
    ShellWorld world;
    world.completeSetup();
    AppProperties::instance().setActivityMode(1);
    AppProperties::instance().setNumberOfStandUps(1);
    AppProperties::instance().setWeight(1e300);
    world.app->applicationDidFinishLaunching();
    EXPECT_EQ(Notification(1).indicatorValue(), QStringLiteral("2147483647"));
}

TEST(Notification, everyMessageOfAListComesUp)
{
    ShellWorld world;
    QSet<QString> seen;
    for (int i = 0; i < 1000; ++i)
        seen.insert(Notification::randomMessageFromPosition(2));
    EXPECT_EQ(seen.size(), 10);
}
