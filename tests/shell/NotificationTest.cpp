#include "shell/Notification.h"

#include "shell/ShellWorld.h"

#include <gtest/gtest.h>

namespace {
/// Texts as in a language, with the values in sight.
class WordyBundle final : public Bundle {
public:
    using Bundle::Bundle;
    [[nodiscard]] QString localizedString(const QString& key) const override
    {
        static const QMap<QString, QString> kTexts {
            {QStringLiteral("NotificationDetailMessage1"), QStringLiteral("Stand %1 min")},
            {QStringLiteral("NotificationDetailMessage2"), QStringLiteral("for %1 kcal.")},
            {QStringLiteral("NotificationSittingmemory"), QStringLiteral("Sit %1 min.")},
            {QStringLiteral("Calories"), QStringLiteral("burned CALORIES")},
        };
        return kTexts.value(key, key);
    }
};
}

TEST(Notification, contentFollowsPositionModeAndPlan)
{
    // The texts are the keys here; each detail format takes its number from the test's own bundle.
    const struct {
        int position;
        int mode;
        double goal;
        int standUps;
        const char* titlePrefix;
        const char* value;
        const char* caption;
        bool hasMessage;
    } kCases[] = {
        {1, 2, 15, 2, "SittingMessage", "7", "Minutes", false},
        {2, 2, 15, 2, "StandingMessage", "22", "Mins", false},
        {1, 2, 10, 3, "SittingMessage", "3", "Minutes", false},
        {1, 1, 100, 2, "SittingMessage", "6", "Calories", true},
        {2, 1, 100, 2, "StandingMessage", "23", "Mins", true},
        {1, 2, 15, 0, "SittingMessage", "15", "Minutes", false},
        {0, 2, 15, 2, "SittingMessage", nullptr, nullptr, false},
    };
    for (const auto& row : kCases) {
        SCOPED_TRACE(testing::Message() << row.position << ' ' << row.mode << ' ' << row.standUps);
        ShellWorld world;
        world.completeSetup();
        AppProperties::instance().setActivityMode(row.mode);
        AppProperties::instance().setActivityGoal(row.goal);
        AppProperties::instance().setNumberOfStandUps(row.standUps);
        world.app->applicationDidFinishLaunching();
        const Notification notification(row.position);
        EXPECT_EQ(notification.position(), row.position);
        EXPECT_TRUE(notification.title().startsWith(QString::fromLatin1(row.titlePrefix)));
        EXPECT_EQ(!notification.message().isEmpty(), row.hasMessage);
        ASSERT_EQ(notification.indicatorValue().has_value(), row.value != nullptr);
        if (row.value) {
            EXPECT_EQ(*notification.indicatorValue(), QString::fromLatin1(row.value));
            EXPECT_EQ(*notification.indicatorTitle(), QString::fromLatin1(row.caption));
        }
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

TEST(Notification, theDetailLineTellsMinutesAndCaloriesOfOneStandUp)
{
    WordyBundle bundle(TestPlatform::defaultInformation());
    ShellWorld world;
    Bundle::setMain(&bundle);
    world.completeSetup();
    AppProperties::instance().setActivityMode(1);
    AppProperties::instance().setActivityGoal(200);
    world.app->applicationDidFinishLaunching();
    const Notification standUp(1);
    EXPECT_EQ(standUp.message(), QStringLiteral("Stand 13 min for 12 kcal."));
    EXPECT_EQ(standUp.indicatorValue(), QStringLiteral("12"));
    EXPECT_EQ(standUp.indicatorTitle(), QStringLiteral("Burned Calories")); // Each word with a capital.
    EXPECT_EQ(Notification(2).message(), QStringLiteral("Sit 16 min."));
}

TEST(Notification, everyMessageOfAListComesUp)
{
    ShellWorld world;
    QSet<QString> seen;
    for (int i = 0; i < 1000; ++i)
        seen.insert(Notification::randomMessageFromPosition(2));
    EXPECT_EQ(seen.size(), 10);
}
