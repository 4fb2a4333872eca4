#include "shell/Notification.h"

#include "shell/ShellWorld.h"

#include <QRegularExpression>
#include <QSet>

#include <gtest/gtest.h>

TEST(Notification, contentFollowsPositionModeAndPlan)
{
    // Position, mode, goal, stand-ups and weight; list of titles, value, caption with capitals and message.
    const std::tuple<int, int, double, int, double, const char*> kCases[] = {
        {1, 2, 15, 2, 71, "SittingMessage|7|Minutes|"},
        {2, 2, 15, 2, 71, "StandingMessage|22|Mins|"},
        {1, 2, 10, 3, 71, "SittingMessage|3|Minutes|"},
        {1, 1, 200, 2, 71, "SittingMessage|12|Burned Calories|Stand 15 min for 12 calories."},
        {2, 1, 200, 2, 71, "StandingMessage|15|Mins|Sit 15 min."},
        {1, 2, 15, 0, 71, "SittingMessage|15|Minutes|"},
        {0, 2, 15, 2, 71, "SittingMessage|none|none|"},
        {1, 1, 200, 1, 1e300,
            "SittingMessage|2147483647|Burned Calories|Stand 1 min for 2147483647 calories."},
    };
    for (const auto& [position, mode, goal, standUps, weight, content] : kCases) {
        ShellWorld world;
        world.platform.texts.byKey = {// With their numbers in sight.
            {QStringLiteral("NotificationDetailMessage1"), QStringLiteral("Stand %1 min")},
            {QStringLiteral("NotificationDetailMessage2"), QStringLiteral("for %1 calories.")},
            {QStringLiteral("NotificationSittingmemory"), QStringLiteral("Sit %1 min.")},
            {QStringLiteral("Calories"), QStringLiteral("burned CALORIES")}};
        AppProperties::instance().setActivityMode(mode);
        AppProperties::instance().setActivityGoal(goal);
        AppProperties::instance().setNumberOfStandUps(standUps);
        AppProperties::instance().setWeight(weight);
        world.app->applicationDidFinishLaunching();
        const Notification shown(position);
        const QString none = QStringLiteral("none");
        EXPECT_EQ(shown.position(), position);
        EXPECT_EQ((QStringList {QString(shown.title()).remove(QRegularExpression(QStringLiteral("\\d+$"))),
                       shown.indicatorValue().value_or(none), shown.indicatorTitle().value_or(none),
                       shown.message()})
                      .join(u'|'),
            QString::fromLatin1(content));
    }
}

TEST(Notification, everyMessageOfAListComesUp)
{
    ShellWorld world;
    QSet<QString> seen;
    for (int i = 0; i < 1000; ++i)
        seen.insert(Notification::randomMessageFromPosition(2));
    EXPECT_EQ(seen.size(), 10);
}
