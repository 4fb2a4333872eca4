#include "shell/MainWindowController.h"

#include "data/CalorieCalculator.h"
#include "desk/HubAccess.h"
#include "screens/CircleIndicatorView.h"
#include "shell/WindowTest.h"
#include "ui/FontAndTextHandler.h"
#include "ui/HyperLinkTextField.h"
#include "ui/MouseEventButton.h"
#include "ui/Palette.h"

#include <QFile>
#include <QScrollBar>
#include <QWindow>

#include <memory>

namespace {
class MainWindowControllerTest : public WindowTest {
protected:
    /// A record of that many minutes that ended a minute ago.
    void stood(double minutes)
    {
        ActivityPersister persister(world->app->managedObjectContext());
        const Date end = Date::now().dateByAddingSeconds(-60);
        persister.createWithStartDate(
            end.dateByAddingSeconds(-60 * minutes), end, true, properties().weight());
    }

    static CircleIndicatorView& circle(QWidget& window, const char* name)
    {
        return in<CircleIndicatorView>(window, name);
    }
};

const QMap<QString, QString> kOneError {{QStringLiteral("E02"), QStringLiteral("Overload <up> & away")}};
}

TEST_F(MainWindowControllerTest, progressFollowsModeGoalAndRecords)
{
    constexpr double kBurns250 = -250;
    constexpr double kBurns50 = -50;
    const struct {
        int mode;
        double goal;
        double minutes; ///< below 0: as many as burn that many calories, and a bit
        const char* value;
        const char* caption;
        double percent;
        const char* shownPercent;
    } kTestCases[] = {
        {1, 200, kBurns250, "250", "Calories", 100, "100"}, // Beyond the goal the percentage stops.
        {1, 200, kBurns50, "50", "Calories", 25.1, "25"},
        {1, 0, kBurns50, "50", "Calories", 100, "100"}, // Without a goal any progress is all of it,
        {1, 0, 0, "0", "Calories", 100, "100"}, // and so is none.
        {2, 15, 30, "30", "Min", 25, "25"}, // 15 minutes in each of eight hours.
        {2, 15, 29.9, "29", "Min", 24.9, "24"},
        {2, 15, 200, "200", "Min", 100, "100"},
        {7, 15, 30, "0", "", 0, "0"},
    };
    for (const auto& testCase : kTestCases) {
        SCOPED_TRACE(testing::Message() << testCase.mode << ' ' << testCase.goal << ' ' << testCase.minutes);
        beginAnew();
        properties().setActivityMode(testCase.mode);
        properties().setActivityGoal(testCase.goal);
        const double calories = 0.2 - testCase.minutes;
        const double minutes =
            testCase.minutes < 0 ? CalorieCalculator::minutesToBurnCalories(calories, 80) : testCase.minutes;
        start();
        ActivityPersister persister(world->app->managedObjectContext());
        const Date midnight = Date::now().dateAtStartOfDay();
        persister.createWithStartDate(midnight, midnight.dateByAddingSeconds(minutes * 60), true, 80);
        QWidget& window = openMainWindow();
        EXPECT_EQ(circle(window, "caloriesBurnedIndicator").value(), QString::fromLatin1(testCase.value));
        EXPECT_EQ(circle(window, "caloriesBurnedIndicator").title(), QString::fromLatin1(testCase.caption));
        EXPECT_NEAR(circle(window, "caloriesBurnedIndicator").percent(), testCase.percent, 0.1);
        EXPECT_EQ(text(window, "labelPercent"), QString::fromLatin1(testCase.shownPercent));
    }
}

TEST_F(MainWindowControllerTest, recordsOfAClockSetBackCountBelowZeroWithoutASign)
{
    start();
    stood(-0.5);
    QWidget& window = openMainWindow();
    EXPECT_EQ(text(window, "labelPercent"), QStringLiteral("0"));
    EXPECT_EQ(circle(window, "caloriesBurnedIndicator").value(), QStringLiteral("0"));
}

TEST_F(MainWindowControllerTest, theSessionCircleFollowsTheSchedule)
{
    properties().setActivityGoal(30); // Half an hour sitting, half an hour standing.
    properties().setNumberOfStandUps(1);
    startWithDesk();
    QWidget& window = openMainWindow();
    const double started = schedule().scheduleUpdatedDate()->secondsSince1970();
    pass(started + 1200 - world->platform.runLoop.now() + 4.9); // The last refresh is at most 5 s old.
    EXPECT_EQ(circle(window, "scheduleIndicator").value(), QStringLiteral("20"));
    EXPECT_EQ(circle(window, "scheduleIndicator").title(), QStringLiteral("Min"));
    EXPECT_NEAR(circle(window, "scheduleIndicator").percent(), 66.67, 0.3);
    EXPECT_EQ(text(window, "labelStatus"), QStringLiteral("CurrentSession"));

    pass(610); // The reminder is up and ignored: its snooze is a schedule of its own.
    schedule().stopScheduleTimer();
    pass(5);
    EXPECT_EQ(circle(window, "scheduleIndicator").value(), QString());
    EXPECT_EQ(circle(window, "scheduleIndicator").percent(), 0);
    EXPECT_EQ(text(window, "labelStatus"), QString());

    world->hid.unplug(desk); // At once, without a refresh.
    EXPECT_EQ(text(window, "labelStatus"), QStringLiteral("ConnectTable"));
}

TEST_F(MainWindowControllerTest, aNewSessionAndANewDeskShowAtOnce)
{
    start();
    QWidget& window = openMainWindow();
    EXPECT_EQ(text(window, "labelStatus"), QStringLiteral("ConnectTable"));
    const auto adapter = std::make_shared<FakeHidDevice>();
    adapter->setCommunicating(true);
    adapter->setHeight(kSitting);
    world->hid.plug(adapter);
    world->platform.runLoop.advance(1.3); // The first poll; the refresh is slower.
    EXPECT_EQ(text(window, "labelStatus"), QStringLiteral("CurrentSession"));
    pass(70);
    EXPECT_EQ(circle(window, "scheduleIndicator").value(), QStringLiteral("1"));
    properties().zelvoController()->startNewActivity();
    EXPECT_EQ(circle(window, "scheduleIndicator").value(), QStringLiteral("0"));
}

TEST_F(MainWindowControllerTest, heightIsTheSumInWholeMillimetresCutTowardsZero)
{
    const struct {
        uint16_t raw;
        int offset;
        int64_t millimetres;
        const char* shown;
    } kTestCases[] = {
        {6501, 0, 650, "TableHeightLabel\n 65 Centimeter"},
        {6499, 0, 649, "TableHeightLabel\n 65 Centimeter"},
        {1, -16, -1, "TableHeightLabel\n 0 Centimeter"},
        {900, 6200, 710, "TableHeightLabel\n 71 Centimeter"},
        {65535, 32000, 9753, "TableHeightLabel\n 975 Centimeter"},
    };
    startWithDesk();
    QWidget& window = openMainWindow();
    for (const auto& testCase : kTestCases) {
        SCOPED_TRACE(testCase.shown);
        properties().setTablePositionOffset(testCase.offset);
        desk->setHeight(testCase.raw);
        world->platform.runLoop.advance(1.1); // The poll tells; the refresh is slower.
        EXPECT_EQ(deskHeightMillimetres(), testCase.millimetres);
        EXPECT_EQ(text(window, "labelTabelHeigt"), QString::fromLatin1(testCase.shown));
    }
}

TEST_F(MainWindowControllerTest, buttonsMoveTheDeskExactlyAsLongAsTheyAreHeld)
{
    const struct {
        const char* button;
        uint16_t command;
    } kTestCases[] = {{"buttonUp", kUp}, {"buttonDown", kDown}, {"buttonMemory1", 700},
        {"buttonMemory2", 4300}, {"buttonMemory3", 4700}};
    startWithDesk();
    QWidget& window = openMainWindow();
    for (const auto& testCase : kTestCases) {
        SCOPED_TRACE(testCase.button);
        press(window, testCase.button);
        pass(0.5);
        EXPECT_EQ(commands(), heldFor(testCase.command));
        release(window, testCase.button);
        pass(2);
        EXPECT_EQ(commands(), Commands {kStop});

        focus(window, testCase.button);
        QTest::keyPress(&in(window, testCase.button), Qt::Key_Space);
        pass(0.5);
        EXPECT_EQ(commands(), heldFor(testCase.command));
        QTest::keyRelease(&in(window, testCase.button), Qt::Key_Space);
        pass(2);
        EXPECT_EQ(commands(), Commands {kStop});
    }
}

TEST_F(MainWindowControllerTest, anUnsetMemoryMovesNothingAndItsReleaseStillStops)
{
    startWithDesk();
    world->platform.defaults.values.remove(QStringLiteral("DevicePosition3"));
    QWidget& window = openMainWindow();
    press(window, "buttonMemory3");
    pass(1);
    EXPECT_EQ(commands(), Commands {});
    release(window, "buttonMemory3");
    EXPECT_EQ(commands(), Commands {kStop});
}

TEST_F(MainWindowControllerTest, aDeskThatVanishesUnderAHeldButtonLeavesTheNextOneAlone)
{
    startWithDesk();
    QWidget& window = openMainWindow();
    press(window, "buttonUp");
    pass(0.5);
    world->hid.unplug(desk);
    desk->written.clear();
    pass(1);
    const auto next = world->plugDesk(2000);
    next->written.clear();
    release(window, "buttonUp");
    pass(1);
    EXPECT_EQ(commands(), Commands {});
    EXPECT_EQ(commands(*next), Commands {});

    press(window, "buttonDown");
    pass(0.5);
    EXPECT_EQ(commands(*next), heldFor(kDown));
    release(window, "buttonDown");
    EXPECT_EQ(commands(*next), Commands {kStop});
}

TEST_F(MainWindowControllerTest, withoutADeskButtonsDoNothing)
{
    start();
    QWidget& window = openMainWindow();
    press(window, "buttonUp");
    const auto later = world->plugDesk(2000);
    later->written.clear();
    release(window, "buttonUp");
    EXPECT_EQ(commands(*later), Commands {});
}

TEST_F(MainWindowControllerTest, whatTakesTheWindowAwayEndsTheHold)
{
    const struct {
        const char* what;
        std::function<void(QWidget&)> happens;
        bool stops;
    } kTestCases[] = {
        {"close button", [this](QWidget&) { menulet().mainWindowButtonCloseClicked(); }, true},
        {"Escape", [](QWidget& window) { QTest::keyClick(&window, Qt::Key_Escape); }, true},
        {"tray icon", [this](QWidget&) { menulet().menuletClicked(); }, true},
        {"right to left", [](QWidget&) { QApplication::setLayoutDirection(Qt::RightToLeft); }, false},
        {"texts", [](QWidget&) { installTexts(*qApp, QStringLiteral("de")); }, false},
        {"error", [](QWidget&) { postErrors(kOneError); }, false},
    };
    startWithDesk();
    for (const auto& testCase : kTestCases) {
        SCOPED_TRACE(testCase.what);
        menulet().setActive(false);
        QWidget& window = openMainWindow();
        press(window, "buttonDown");
        pass(0.5);
        commands();
        testCase.happens(window);
        QApplication::processEvents();
        EXPECT_EQ(commands(), testCase.stops ? Commands {kStop} : Commands {});
        release(window, "buttonDown");
        pass(1);
        EXPECT_EQ(commands(), testCase.stops ? Commands {} : Commands {kStop});
    }
}

TEST_F(MainWindowControllerTest, refreshesEveryFiveSecondsAndLeavesNoTimerBehind)
{
    startWithDesk();
    const size_t timersBefore = world->platform.runLoop.pendingTimerCount();
    QWidget& window = openMainWindow();
    stood(30);
    pass(4.9);
    EXPECT_EQ(text(window, "labelPercent"), QStringLiteral("0"));
    pass(0.2);
    EXPECT_EQ(text(window, "labelPercent"), QStringLiteral("25"));

    for (int i = 0; i < 20; ++i)
        menulet().showMainWindow(); // Each opening adds a timer.
    EXPECT_GT(world->platform.runLoop.pendingTimerCount(), timersBefore + 20);
    menulet().mainWindowButtonCloseClicked();
    EXPECT_FALSE(menulet().mainWindow().updateDateTimer()->isValid());
    pass(6);
    EXPECT_EQ(world->platform.runLoop.pendingTimerCount(), timersBefore);

    openMainWindow();
    stood(30);
    pass(5.1);
    EXPECT_EQ(text(window, "labelPercent"), QStringLiteral("50"));
}

TEST_F(MainWindowControllerTest, errorsStayUntilFifteenSecondsAfterTheLast)
{
    start();
    QWidget& window = openMainWindow();
    QWidget& area = in(window, "errorArea");
    EXPECT_FALSE(area.isVisible());
    postErrors(kOneError);
    EXPECT_TRUE(area.isVisible());
    pass(60);
    EXPECT_TRUE(area.isVisible());
    postErrorRemoved();
    pass(10);
    postErrors(kOneError); // Stops the countdown.
    pass(60);
    EXPECT_TRUE(area.isVisible());
    postErrorRemoved();
    pass(14.9);
    EXPECT_TRUE(area.isVisible());
    pass(0.2);
    EXPECT_FALSE(area.isVisible());
    EXPECT_EQ(text(window, "labelErrorText"), QString());

    postErrors(kOneError);
    EXPECT_TRUE(area.isVisible());
    EXPECT_EQ(area.palette().color(QPalette::Window), zelvoBackgroundColor());
}

TEST_F(MainWindowControllerTest, anErrorIsALinkWhereTheSettingsNameAPage)
{
    start();
    QWidget& window = openMainWindow();
    postErrors(
        {{QStringLiteral("E02"), QStringLiteral("Overload <up> & away")}, {QStringLiteral("E12"), {}}});
    auto& label = in<HyperLinkTextField>(window, "labelErrorText");
    EXPECT_EQ(WindowChecks::accessibleText(label, QAccessible::Name),
        QStringLiteral("Error \nE02: Overload <up> & away \nE12: \n"));
    EXPECT_EQ(label.text().count(QStringLiteral("href=\"https://zelvo.example/errors\"")), 2);
    EXPECT_TRUE(label.text().contains(hexadecimalValue(zelvoHoverColor())));
    focus(window, "labelErrorText");
    QTest::keyClick(&label, Qt::Key_Return);
    EXPECT_EQ(
        world->workspace.opened, std::vector<QUrl> {QUrl(QStringLiteral("https://zelvo.example/errors"))});
}

TEST_F(MainWindowControllerTest, withoutAPageErrorsArePlain)
{
    start();
    dropInformation("ErrorUrl");
    QWidget& window = openMainWindow();
    postErrors(kOneError);
    auto& label = in<HyperLinkTextField>(window, "labelErrorText");
    EXPECT_FALSE(label.text().contains(QStringLiteral("href")));
    EXPECT_EQ(WindowChecks::accessibleText(label, QAccessible::Name),
        QStringLiteral("Error \nE02: Overload <up> & away \n"));
}

TEST_F(MainWindowControllerTest, manyLongErrorsScrollAndCoverNoButton)
{
    start();
    QWidget& window = openMainWindow();
    QMap<QString, QString> errors;
    for (int i = 0; i < 60; ++i)
        errors.insert(QStringLiteral("E%1").arg(i), QStringLiteral("A long story of a desk. ").repeated(8));
    errors.insert(QStringLiteral("E99"), QString(400, u'W')); // Nothing to break at.
    postErrors(errors);
    QApplication::processEvents();
    auto& area = in<QScrollArea>(window, "errorArea");
    auto& label = in<HyperLinkTextField>(window, "labelErrorText");
    EXPECT_GE(label.height(), label.heightForWidth(label.width()));
    EXPECT_EQ(area.verticalScrollBar()->maximum(), label.height() - area.viewport()->height());
    EXPECT_TRUE(window.rect().contains(area.geometry()));
    for (const Button* button : window.findChildren<Button*>())
        EXPECT_FALSE(area.geometry().intersects(button->geometry())) << qPrintable(button->objectName());

    focus(window, "labelErrorText");
    QTest::keyClick(&label, Qt::Key_PageDown);
    EXPECT_GT(area.verticalScrollBar()->value(), 0);
}

TEST_F(MainWindowControllerTest, aStoreThatCannotBeOpenedShowsZeros)
{
    QFile file(world->dataFolder());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    for (const int mode : {1, 2}) {
        properties().setActivityMode(mode);
        startWithDesk();
        QWidget& window = openMainWindow();
        pass(6);
        EXPECT_EQ(text(window, "labelPercent"), QStringLiteral("0"));
        EXPECT_EQ(circle(window, "caloriesBurnedIndicator").value(), QStringLiteral("0"));
        EXPECT_EQ(text(window, "labelTabelHeigt"), QStringLiteral("TableHeightLabel\n 71 Centimeter"));
        menulet().menuletClicked();
        world->hid.unplug(desk);
    }
}

TEST_F(MainWindowControllerTest, opensWithNoControlInFocusSoThatAStrayKeyMovesNothing)
{
    startWithDesk();
    for (int opening = 0; opening < 2; ++opening) {
        QWidget& window = openMainWindow();
        QApplication::setActiveWindow(&window);
        QTest::keyPress(window.focusWidget() ? window.focusWidget() : &window, Qt::Key_Space);
        pass(1);
        EXPECT_EQ(commands(), Commands {});
        QTest::keyClick(&window, Qt::Key_Tab);
        EXPECT_EQ(QApplication::focusWidget(), &in(window, "buttonDown"));
        menulet().menuletClicked();
    }
}

TEST_F(MainWindowControllerTest, tabGoesRoundAllControlsAndMarksEach)
{
    start();
    QWidget& window = openMainWindow();
    QApplication::setActiveWindow(&window);
    const QStringList buttons {QStringLiteral("buttonDown"), QStringLiteral("buttonUp"),
        QStringLiteral("buttonMemory1"), QStringLiteral("buttonMemory2"), QStringLiteral("buttonMemory3"),
        QStringLiteral("buttonHistory"), QStringLiteral("buttonSettings")};
    EXPECT_EQ(WindowChecks::tabOrder(window), buttons + QStringList {QStringLiteral("buttonClose")});
    for (const QString& name : buttons) {
        SCOPED_TRACE(name.toStdString());
        QWidget& button = *window.findChild<QWidget*>(name);
        button.clearFocus();
        const QImage plain = button.grab().toImage();
        button.setFocus(Qt::TabFocusReason);
        EXPECT_NE(button.grab().toImage(), plain);
    }
    postErrors(kOneError);
    window.setFocus();
    EXPECT_EQ(WindowChecks::tabOrder(window),
        QStringList {QStringLiteral("labelErrorText")} + buttons
            + QStringList {QStringLiteral("buttonClose")});
}

TEST_F(MainWindowControllerTest, tellsAScreenReaderWhatEachControlIs)
{
    startWithDesk();
    stood(30);
    QWidget& window = openMainWindow();
    const struct {
        const char* control;
        QAccessible::Role role;
        const char* name;
        const char* description;
    } kTestCases[] = {
        {"caloriesBurnedIndicator", QAccessible::ProgressBar, "AccessGoalProgress: 30 Min", ""},
        {"scheduleIndicator", QAccessible::ProgressBar, "AccessSessionProgress: 0 Min", ""},
        {"buttonDown", QAccessible::Button, "DownButton", "AccessMoveDownHint"},
        {"buttonUp", QAccessible::Button, "UpButton", "AccessMoveUpHint"},
        {"buttonMemory1", QAccessible::Button, "Memory1", "AccessMemoryHint"},
        {"buttonMemory2", QAccessible::Button, "Memory2", "AccessMemoryHint"},
        {"buttonMemory3", QAccessible::Button, "Memory3", "AccessMemoryHint"},
        {"buttonHistory", QAccessible::Button, "HistoryButton", ""},
        {"buttonSettings", QAccessible::Button, "SettingsButton", ""},
        {"buttonClose", QAccessible::Button, "CloseButton", ""},
        {"labelStatus", QAccessible::StaticText, "CurrentSession", ""},
    };
    for (const auto& testCase : kTestCases) {
        SCOPED_TRACE(testCase.control);
        QWidget& control = in(window, testCase.control);
        EXPECT_EQ(QAccessible::queryAccessibleInterface(&control)->role(), testCase.role);
        EXPECT_EQ(
            WindowChecks::accessibleText(control, QAccessible::Name), QString::fromLatin1(testCase.name));
        EXPECT_EQ(WindowChecks::accessibleText(control, QAccessible::Description),
            QString::fromLatin1(testCase.description));
    }
    EXPECT_EQ(WindowChecks::accessibleText(in(window, "caloriesBurnedIndicator"), QAccessible::Value),
        QStringLiteral("25 %"));
    EXPECT_EQ(WindowChecks::accessibleText(in(window, "errorArea"), QAccessible::Name),
        QStringLiteral("AccessErrorLine"));
    press(window, "buttonUp");
    EXPECT_TRUE(QAccessible::queryAccessibleInterface(&in(window, "buttonUp"))->state().pressed);
    release(window, "buttonUp");
}

TEST_F(MainWindowControllerTest, looksAsItIsToLook)
{
    start();
    QWidget& window = openMainWindow();
    using Fonts = FontAndTextHandler;
    const std::pair<const char*, QFont> kFonts[] = {{"labelPercent", Fonts::Bold80()},
        {"labelProcentSign", Fonts::Roman38()}, {"labelOfTodaysGoal", Fonts::Light16()},
        {"labelStatus", Fonts::Light18()}, {"labelErrorText", Fonts::Light18()},
        {"labelTabelHeigt", Fonts::Light18()}, {"buttonHistory", Fonts::Light10()},
        {"buttonSettings", Fonts::Light10()}, {"buttonDown", Fonts::Light10()},
        {"buttonUp", Fonts::Light10()}, {"buttonMemory1", Fonts::Light12()},
        {"buttonMemory2", Fonts::Light12()}, {"buttonMemory3", Fonts::Light12()}};
    for (const auto& [name, font] : kFonts) {
        const QFont& shown = in(window, name).font();
        EXPECT_EQ(shown.pixelSize(), font.pixelSize()) << name;
        EXPECT_EQ(shown.weight(), font.weight()) << name;
    }
    constexpr QPoint kInside(8, 8);
    const auto background = [&](const char* name) {
        return in(window, name).grab().toImage().pixelColor(kInside);
    };
    for (const char* name : {"buttonHistory", "buttonSettings", "buttonDown", "buttonUp"})
        EXPECT_EQ(background(name), zelvoButtonDarkBackgroundColor()) << name;
    EXPECT_EQ(background("buttonMemory2"), QColor(Qt::white));
    movePointer(in(window, "buttonMemory2").mapToGlobal(kInside));
    EXPECT_EQ(background("buttonMemory2"), zelvoHoverColor());
    movePointer(kAway);
    EXPECT_EQ(background("buttonMemory2"), QColor(Qt::white));
}

TEST_F(MainWindowControllerTest, everyTextFitsInEveryLanguageAndDirection)
{
    for (const char* language : {"en", "de", "fr", "es", "nl"}) {
        for (const auto direction : {Qt::LeftToRight, Qt::RightToLeft}) {
            for (const int mode : {1, 2}) {
                SCOPED_TRACE(testing::Message() << language << ' ' << direction << ' ' << mode);
                QApplication::setLayoutDirection(direction);
                beginAnew();
                installTexts(*qApp, QString::fromLatin1(language));
                properties().setActivityMode(mode);
                properties().setTablePositionOffset(32000);
                start();
                ActivityPersister persister(world->app->managedObjectContext());
                const Date midnight = Date::now().dateAtStartOfDay();
                persister.createWithStartDate(midnight, midnight.dateByAddingSeconds(23 * 3600), true, 999);
                QWidget& window = openMainWindow();
                EXPECT_EQ(WindowChecks::textsThatDoNotFit(window), QStringList());
                world->plugDesk(65535);
                QApplication::processEvents();
                EXPECT_EQ(WindowChecks::textsThatDoNotFit(window), QStringList());
            }
        }
    }
}

TEST_F(MainWindowControllerTest, everyRowFillsTheSameGrid)
{
    start();
    const QWidget& window = openMainWindow();
    constexpr int kMargin = 20;
    const std::vector<std::vector<const char*>> kRows {{"caloriesBurnedIndicator", "scheduleIndicator"},
        {"buttonDown", "buttonUp"}, {"buttonMemory1", "buttonMemory2", "buttonMemory3"},
        {"buttonHistory", "buttonSettings"}};
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.front());
        EXPECT_EQ(in(window, row.front()).geometry().left(), kMargin);
        EXPECT_EQ(in(window, row.back()).geometry().right() + 1, window.width() - kMargin);
        for (const char* control : row) {
            EXPECT_EQ(in(window, control).size(), in(window, row.front()).size());
            EXPECT_EQ(in(window, control).y(), in(window, row.front()).y());
        }
    }
}

TEST_F(MainWindowControllerTest, historyAndSettingsOpenTheirWindows)
{
    start();
    QWidget& window = openMainWindow();
    const auto isShown = [](const char* name) {
        for (const QWidget* widget : QApplication::topLevelWidgets()) {
            if (widget->objectName() == QLatin1String(name) && widget->isVisible())
                return true;
        }
        return false;
    };
    EXPECT_FALSE(isShown("HistoryWindow") || isShown("WizardWindow"));
    click(window, "buttonHistory");
    EXPECT_TRUE(isShown("HistoryWindow"));
    click(window, "buttonSettings");
    EXPECT_TRUE(isShown("WizardWindow"));
}

TEST_F(MainWindowControllerTest, everyWayOfClosingIsTheCloseButton)
{
    start();
    const std::function<void(QWidget&)> kWays[] = {
        [](QWidget& window) { click(window, "buttonClose"); },
        [](QWidget& window) { QTest::keyClick(&window, Qt::Key_Escape); },
        [](QWidget& window) { window.windowHandle()->close(); }, // The window manager's.
    };
    int way = 0;
    for (const auto& close : kWays) {
        SCOPED_TRACE(way++);
        QWidget& window = openMainWindow();
        EXPECT_TRUE(menulet().isActive());
        close(window);
        QApplication::processEvents();
        EXPECT_FALSE(window.isVisible());
        EXPECT_FALSE(menulet().isActive()); // The next click on the icon opens it again.
    }
}
