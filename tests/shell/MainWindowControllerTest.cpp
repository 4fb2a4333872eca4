#include "shell/MainWindowController.h"

#include "data/CalorieCalculator.h"
#include "screens/CircleIndicatorView.h"
#include "shell/StatusItem.h"
#include "shell/WindowTest.h"
#include "ui/Button.h"

#include <QClipboard>

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
    /// Value, title and percentage.
    static QString shown(QWidget& window, const char* circle)
    {
        const auto& view = in<CircleIndicatorView>(window, circle);
        return QStringLiteral("%1 %2 %3")
            .arg(view.textFieldValue()->text(), view.title().value_or(QString()),
                QString::number(view.percent(), 'f', 1));
    }
};

}

TEST_F(MainWindowControllerTest, progressFollowsModeGoalAndRecords)
{
    // Mode, goal and what was done: minutes, in mode 1 the minutes that burn as many calories.
    const std::tuple<int, double, double, const char*, const char*> kTestCases[] = {
        {1, 200, 250.2, "250 Calories 100.0", "100"}, // Beyond the goal the percentage stops.
        {1, 200, 50.2, "50 Calories 25.1", "25"},
        {1, 0, 0, "0 Calories 100.0", "100"}, // Without a goal none is all of it.
        {2, 18, 31.4, "31 Min 24.9", "24"}, // 18 minutes in each of seven hours.
        {2, 18, -0.5, "0 Min -0.4", "0"}, // A clock that was set back; without a sign.
        {7, 18, 30, "0  0.0", "0"},
    };
    for (const auto& [mode, goal, done, circle, percent] : kTestCases) {
        SCOPED_TRACE(testing::Message() << mode << ' ' << goal << ' ' << done);
        beginAnew();
        properties().setActivityMode(mode);
        properties().setActivityGoal(goal);
        set("AverageWorkDayHours", 7);
        start();
        stood(mode == 1 ? CalorieCalculator::minutesToBurnCalories(done, properties().weight()) : done);
        QWidget& window = openMainWindow();
        EXPECT_EQ(shown(window, "caloriesBurnedIndicator"), QString::fromLatin1(circle));
        EXPECT_EQ(text(window, "labelPercent"), QString::fromLatin1(percent));
    }
}

TEST_F(MainWindowControllerTest, theSessionCircleFollowsTheSchedule)
{
    properties().setActivityGoal(15); // Three quarters of an hour sitting.
    properties().setNumberOfStandUps(1);
    world->app->applicationWillFinishLaunching();
    QWidget& window = openMainWindow(); // Whoever clicks early misses nothing.
    start();
    set("TimeNotificationDismiss", 99);
    world->platform.plug(900);
    EXPECT_EQ(text(window, "labelStatus"), QStringLiteral("CurrentSession")) << "at once";
    world->hid.desk().setHeight(1100);
    pass(1);
    EXPECT_EQ(text(window, "labelTabelHeigt"), QStringLiteral("TableHeightLabel\n 73 Centimeter"));
    const double started = schedule().scheduleUpdatedDate()->secondsSince1970();
    pass(started + 1200 - world->platform.runLoop.now() + 4.9); // The last refresh is at most 5 s old.
    EXPECT_EQ(shown(window, "scheduleIndicator"), QStringLiteral("20 Min 44.6"));
    pass(1560); // The reminder has not been answered yet.
    EXPECT_EQ(shown(window, "scheduleIndicator"), QStringLiteral("46 Min 100.0"));
    EXPECT_EQ(AdoptedDesk::minutesToChange(), 0);
    properties().zelvoController()->startNewActivity();
    EXPECT_EQ(shown(window, "scheduleIndicator"), QStringLiteral("0 Min 0.0")) << "a new session, at once";

    schedule().stopScheduleTimer();
    pass(5);
    EXPECT_EQ(shown(window, "scheduleIndicator"), QStringLiteral("  0.0"));
    EXPECT_EQ(text(window, "labelStatus"), QString());
    world->hid.desk().setHeight(1000);
    world->hid.desk().setUnnamedError(true);
    pass(1); // The next poll.
    EXPECT_EQ(menulet().statusItem()->toolTip(), QStringLiteral("TrayTooltipError")) << "though it moved";
}

TEST_F(MainWindowControllerTest, refreshesEveryFiveSecondsAndLeavesNoTimerBehind)
{
    startWithDesk();
    const size_t timersBefore = world->platform.runLoop.pendingTimerCount();
    QWidget& window = openMainWindow();
    EXPECT_EQ(world->platform.runLoop.pendingTimerCount(), timersBefore + 2) << "at its making, its opening";
    EXPECT_FALSE(qobject_cast<Button*>(window.focusWidget())) << "a stray key must move nothing";
    stood(36);
    properties().setTablePositionOffset(7200);
    pass(4.9);
    EXPECT_EQ(text(window, "labelPercent"), QStringLiteral("0"));
    pass(0.2);
    EXPECT_EQ(text(window, "labelPercent"), QStringLiteral("25"));
    EXPECT_EQ(text(window, "labelTabelHeigt"), QStringLiteral("TableHeightLabel\n 81 Centimeter"));
    menulet().showMainWindow(); // Each opening adds a timer.
    QTest::keyClick(&window, Qt::Key_Escape); // As its close button does.
    EXPECT_FALSE(menulet().isActive() || window.isVisible());
    EXPECT_EQ(world->platform.runLoop.pendingTimerCount(), timersBefore + 2) << "the last one at once";
    pass(6);
    EXPECT_EQ(world->platform.runLoop.pendingTimerCount(), timersBefore);
    stood(72);
    openMainWindow();
    EXPECT_EQ(text(window, "labelPercent"), QStringLiteral("75")) << "fresh when it opens";
    for (const QWidget* each : QApplication::topLevelWidgets())
        EXPECT_NE(each->objectName(), QStringLiteral("NotificationWindow")) << "none was to be shown yet";
}

TEST_F(MainWindowControllerTest, aMemoryThatIsNotStoredMovesNothingAndTheCommandsAreCopied)
{
    startWithDesk();
    QWidget& window = openMainWindow();
    for (const QString number : {"1", "2", "3"}) {
        world->platform.defaults.values.remove("DevicePosition" + number);
        QWidget& button = in(window, qPrintable("buttonMemory" + number));
        QTest::mousePress(&button, Qt::LeftButton);
        pass(0.5);
        EXPECT_EQ(commands(), Commands {}) << qPrintable(number);
        QTest::mouseRelease(&button, Qt::LeftButton);
        EXPECT_EQ(commands(), Commands {kStop});
    }
    in<QLabel>(window, "labelCommands").setText(QStringLiteral("sudo udevadm"));
    in<Button>(window, "buttonCopy").click();
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("sudo udevadm"));
}
