#include "shell/MainWindowController.h"

#include "data/CalorieCalculator.h"
#include "screens/CircleIndicatorView.h"
#include "shell/WindowTest.h"
#include "ui/HyperLinkTextField.h"
#include "ui/MouseEventButton.h"

namespace {
class MainWindowControllerTest : public WindowTest {
protected:
    /// A record of that many minutes, from midnight on.
    void stood(double minutes)
    {
        const Date midnight = Date::now().dateAtStartOfDay();
        ActivityPersister(world->app->managedObjectContext())
            .createWithStartDate(
                midnight, midnight.dateByAddingSeconds(minutes * 60), true, properties().weight());
    }
    static void post(const QString& name, const QMap<QString, QString>& errors)
    {
        NotificationCenter::defaultCenter().post(name, {}, errors);
    }
    /// Value, title and percentage.
    static QString shown(QWidget& window, const char* circle)
    {
        const auto& view = in<CircleIndicatorView>(window, circle);
        return QStringLiteral("%1 %2 %3")
            .arg(view.value().value_or(QString()), view.title().value_or(QString()),
                QString::number(view.percent(), 'f', 1));
    }
};

}

TEST_F(MainWindowControllerTest, progressFollowsModeGoalAndRecords)
{
    const struct {
        int mode;
        double goal;
        double done; ///< minutes; in mode 1 the minutes that burn as many calories
        const char* circle;
        const char* percent;
    } kTestCases[] = {
        {1, 200, 250.2, "250 Calories 100.0", "100"}, // Beyond the goal the percentage stops.
        {1, 200, 50.2, "50 Calories 25.1", "25"},
        {1, 0, 0, "0 Calories 100.0", "100"}, // Without a goal none is all of it.
        {2, 18, 31.4, "31 Min 24.9", "24"}, // 18 minutes in each of seven hours.
        {2, 18, -0.5, "0 Min -0.4", "0"}, // A clock that was set back; without a sign.
        {7, 18, 30, "0  0.0", "0"},
    };
    for (const auto& row : kTestCases) {
        SCOPED_TRACE(testing::Message() << row.mode << ' ' << row.goal << ' ' << row.done);
        beginAnew();
        properties().setActivityMode(row.mode);
        properties().setActivityGoal(row.goal);
        set("AverageWorkDayHours", 7);
        start();
        stood(row.mode == 1 ? CalorieCalculator::minutesToBurnCalories(row.done, properties().weight())
                            : row.done);
        QWidget& window = openMainWindow();
        EXPECT_EQ(shown(window, "caloriesBurnedIndicator"), QString::fromLatin1(row.circle));
        EXPECT_EQ(text(window, "labelPercent"), QString::fromLatin1(row.percent));
    }
}

TEST_F(MainWindowControllerTest, theSessionCircleFollowsTheSchedule)
{
    properties().setActivityGoal(15); // Three quarters of an hour sitting.
    properties().setNumberOfStandUps(1);
    start();
    QWidget& window = openMainWindow();
    EXPECT_EQ(text(window, "labelStatus"), QStringLiteral("ConnectTable"));
    desk = world->plugDesk(900);
    EXPECT_EQ(text(window, "labelStatus"), QStringLiteral("CurrentSession")) << "at once";
    const double started = schedule().scheduleUpdatedDate()->secondsSince1970();
    pass(started + 1200 - world->platform.runLoop.now() + 4.9); // The last refresh is at most 5 s old.
    EXPECT_EQ(shown(window, "scheduleIndicator"), QStringLiteral("20 Min 44.6"));
    properties().zelvoController()->startNewActivity();
    EXPECT_EQ(shown(window, "scheduleIndicator"), QStringLiteral("0 Min 0.0")) << "a new session, at once";

    schedule().stopScheduleTimer();
    pass(5);
    EXPECT_EQ(shown(window, "scheduleIndicator"), QStringLiteral("  0.0"));
    EXPECT_EQ(text(window, "labelStatus"), QString());
    world->hid.unplug(desk);
    EXPECT_EQ(text(window, "labelStatus"), QStringLiteral("ConnectTable"));
}

TEST_F(MainWindowControllerTest, refreshesEveryFiveSecondsAndLeavesNoTimerBehind)
{
    startWithDesk();
    const size_t timersBefore = world->platform.runLoop.pendingTimerCount();
    QWidget& window = openMainWindow();
    EXPECT_FALSE(qobject_cast<Button*>(window.focusWidget())) << "a stray key must move nothing";
    stood(36);
    pass(4.9);
    EXPECT_EQ(text(window, "labelPercent"), QStringLiteral("0"));
    pass(0.2);
    EXPECT_EQ(text(window, "labelPercent"), QStringLiteral("25"));
    menulet().showMainWindow(); // Each opening adds a timer.
    QTest::keyClick(&window, Qt::Key_Escape); // As its close button does.
    EXPECT_FALSE(menulet().isActive() || window.isVisible());
    pass(6);
    EXPECT_EQ(world->platform.runLoop.pendingTimerCount(), timersBefore);
    stood(72);
    openMainWindow();
    EXPECT_EQ(text(window, "labelPercent"), QStringLiteral("75")) << "fresh when it opens";
}

TEST_F(MainWindowControllerTest, errorsAreLinksAndStayUntilFifteenSecondsAfterTheLast)
{
    start();
    QWidget& window = openMainWindow();
    QWidget& area = in(window, "errorArea");
    auto& label = in<HyperLinkTextField>(window, "labelErrorText");
    EXPECT_FALSE(area.isVisible());
    for (const bool hasPage : {true, false}) {
        if (!hasPage)
            dropInformation("ErrorUrl");
        post(ZelvoHIDDevice::kErrorCode,
            {{QStringLiteral("E02"), QStringLiteral("Overload <up>")}, {QStringLiteral("E12"), {}}});
        EXPECT_EQ(WindowChecks::accessibleText(label, QAccessible::Name),
            QStringLiteral("Error \nE02: Overload <up> \nE12: \n"));
        EXPECT_EQ(
            label.text().count(QStringLiteral("href=\"https://zelvo.example/errors\"")), hasPage ? 2 : 0);
        focus(window, "labelErrorText");
        QTest::keyClick(&label, Qt::Key_Return);
        pass(60); // The second error stops the countdown.
        EXPECT_TRUE(area.isVisible());
        post(ZelvoHIDDevice::kErrorCodeRemoved, {});
        pass(14.9);
        EXPECT_TRUE(area.isVisible());
    }
    EXPECT_EQ(
        world->workspace.opened, std::vector<QUrl> {QUrl(QStringLiteral("https://zelvo.example/errors"))});
    pass(0.2);
    EXPECT_FALSE(area.isVisible());
    EXPECT_EQ(label.text(), QString());
}
