#include "shell/NotificationWindowController.h"

#include "shell/WindowTest.h"
#include "ui/FontAndTextHandler.h"
#include "ui/HyperLinkTextField.h"
#include "ui/MouseEventButton.h"
#include "ui/Palette.h"

#include <QScrollBar>
#include <QWindow>

namespace {
constexpr int kStandUp = 1;
constexpr int kSitDown = 2;
constexpr double kFade = 0.5; // A fade takes 0.4 s.
constexpr double kSnooze = 600;

class NotificationWindowControllerTest : public WindowTest {
protected:
    NotificationWindowController& reminder() { return menulet().notificationWindow(); }
    bool isShown() { return reminder().isWindowVisible(); }
    /// Whether the schedule now runs towards the end of a snooze.
    bool isSnoozed() { return schedule().isScheduled() && schedule().currentScheduleInterval() == kSnooze; }
    static QPoint middle(const QWidget& window) { return window.geometry().center(); }
    static bool refusesKeyboard(const QWidget& window)
    {
        return window.windowHandle()->flags().testFlag(Qt::WindowDoesNotAcceptFocus);
    }
    /// A click as the window system brings it.
    static void clickInWindow(QWidget& window, const char* control)
    {
        const QPoint place = in(window, control).mapTo(&window, in(window, control).rect().center());
        QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, place);
    }
};
}

TEST_F(NotificationWindowControllerTest, showsTheContentAndFollowsItsChanges)
{
    startWithDesk();
    QWidget& window = remind(kStandUp);
    EXPECT_TRUE(text(window, "labelTitle").startsWith(QStringLiteral("SittingMessage")));
    EXPECT_EQ(text(window, "labelMessage"), QString());
    EXPECT_EQ(text(window, "calRadialTitle"), QStringLiteral("7"));
    EXPECT_EQ(text(window, "calRadialSubTitle"), QStringLiteral("Minutes"));
    EXPECT_EQ(text(window, "labelTabelHeight"), QStringLiteral(" 71 Centimeter"));
    EXPECT_EQ(in<Button>(window, "buttonMemory").text(), QStringLiteral("Memory2"));
    const Picture stand = in<Button>(window, "buttonMemory").image();

    properties().setActivityMode(1);
    remind(kSitDown);
    EXPECT_TRUE(text(window, "labelTitle").startsWith(QStringLiteral("StandingMessage")));
    EXPECT_EQ(text(window, "labelMessage"), QStringLiteral("NotificationSittingmemory"));
    EXPECT_EQ(text(window, "calRadialSubTitle"), QStringLiteral("Mins"));
    EXPECT_EQ(in<Button>(window, "buttonMemory").text(), QStringLiteral("Memory1"));
    EXPECT_NE(in<Button>(window, "buttonMemory").image(), stand);

    remind(0);
    EXPECT_EQ(text(window, "calRadialTitle"), QString());
    EXPECT_EQ(text(window, "calRadialSubTitle"), QString());
    EXPECT_EQ(in<Button>(window, "buttonMemory").text(), QStringLiteral("Memory2"));

    desk->setHeight(2000);
    pass(1.1);
    EXPECT_EQ(text(window, "labelTabelHeight"), QStringLiteral(" 82 Centimeter"));
}

TEST_F(NotificationWindowControllerTest, ignoredItSnoozesAfterTwentySeconds)
{
    startWithDesk();
    remind(kStandUp);
    pass(19.9);
    EXPECT_TRUE(isShown());
    EXPECT_FALSE(isSnoozed());
    pass(0.2);
    EXPECT_TRUE(isSnoozed());
    pass(kFade);
    EXPECT_FALSE(isShown());
}

TEST_F(NotificationWindowControllerTest, theSettingsSayHowLongItWaits)
{
    startWithDesk();
    world->platform.defaults.values[QStringLiteral("TimeNotificationDismiss")] = 40.0;
    world->platform.defaults.values[QStringLiteral("TimeNotificationDismissOnAction")] = 2.0;
    remind(kStandUp);
    EXPECT_EQ(reminder().dismissTimer()->intervalSeconds(), 40);
    reminder().mouseEventButtonMouseUp(in<MouseEventButton>(reminder().window(), "buttonUp"));
    EXPECT_EQ(reminder().dismissTimer()->intervalSeconds(), 40); // An action does not start it again.
    reminder().startDismissTimer();
    EXPECT_EQ(reminder().dismissTimer()->intervalSeconds(), 2);
}

TEST_F(NotificationWindowControllerTest, afterAMoveItLeavesFiveSecondsAfterThePointer)
{
    startWithDesk();
    QWidget& window = remind(kStandUp);
    movePointer(middle(window));
    click(window, "buttonUp");
    EXPECT_TRUE(reminder().actionDone());
    pass(100);
    EXPECT_TRUE(isShown()); // Never while the pointer rests on it.
    movePointer(kAway);
    pass(4.9);
    EXPECT_TRUE(isShown());
    pass(0.2 + kFade);
    EXPECT_FALSE(isShown());
    EXPECT_FALSE(isSnoozed());
}

TEST_F(NotificationWindowControllerTest, eachVisitOfThePointerStartsTheWaitAnew)
{
    startWithDesk();
    QWidget& window = remind(kStandUp);
    pass(19);
    movePointer(middle(window));
    for (const char* control : {"buttonUp", "buttonSnooze", "labelTitle"})
        movePointer(
            window.mapToGlobal(in(window, control).mapTo(&window, in(window, control).rect().center())));
    pass(60);
    EXPECT_TRUE(isShown());
    movePointer(kAway);
    pass(19.9);
    EXPECT_FALSE(isSnoozed());
    pass(0.2);
    EXPECT_TRUE(isSnoozed());
}

TEST_F(NotificationWindowControllerTest, onlyOtherContentStartsTheWaitAnew)
{
    startWithDesk();
    const auto content = std::make_shared<Notification>(kStandUp);
    menulet().showNotification(content);
    reminder().mouseEventButtonMouseUp(in<MouseEventButton>(reminder().window(), "buttonUp"));
    pass(15);
    menulet().showNotification(content);
    EXPECT_TRUE(reminder().actionDone());
    pass(4);
    const TimerRef timer = reminder().dismissTimer();
    remind(kStandUp);
    EXPECT_FALSE(timer->isValid());
    EXPECT_FALSE(reminder().actionDone());
    pass(19);
    EXPECT_TRUE(isShown());
}

TEST_F(NotificationWindowControllerTest, buttonsAnswerTheSchedule)
{
    const struct {
        const char* button;
        bool hasDesk;
        double interval; ///< seconds to the next reminder; below 0: as before
    } kTestCases[] = {
        {"buttonSnooze", true, kSnooze},
        {"buttonCancel", true, 1800}, // 22.5 minutes sitting and 7.5 standing, once more round.
        {"buttonSnooze", false, -1},
        {"buttonCancel", false, -1},
    };
    for (const auto& testCase : kTestCases) {
        SCOPED_TRACE(testing::Message() << testCase.button << ' ' << testCase.hasDesk);
        beginAnew();
        startWithDesk();
        if (!testCase.hasDesk)
            world->hid.unplug(desk);
        const double before = schedule().currentScheduleInterval();
        QWidget& window = remind(kStandUp);
        click(window, testCase.button);
        EXPECT_EQ(schedule().currentScheduleInterval(), testCase.interval < 0 ? before : testCase.interval);
        EXPECT_TRUE(isShown()); // It fades.
        pass(kFade);
        EXPECT_FALSE(isShown());
    }
}

TEST_F(NotificationWindowControllerTest, aSkipWithThePointerElsewhereLeavesTheWaitRunning)
{
    startWithDesk();
    QWidget& window = remind(kStandUp);
    pass(5);
    focus(window, "buttonCancel");
    QTest::keyClick(&in(window, "buttonCancel"), Qt::Key_Return);
    pass(kFade);
    EXPECT_FALSE(isShown());
    EXPECT_FALSE(isSnoozed());
    pass(15);
    EXPECT_TRUE(isSnoozed()); // The rule of an ignored reminder holds for it.
}

TEST_F(NotificationWindowControllerTest, aPointerThatLeavesAnAnsweredReminderStartsNothing)
{
    startWithDesk();
    QWidget& window = remind(kStandUp);
    movePointer(middle(window));
    click(window, "buttonCancel");
    pass(0.2);
    movePointer(kAway);
    pass(60);
    EXPECT_FALSE(isSnoozed());
}

TEST_F(NotificationWindowControllerTest, theMemoryButtonFallsThroughToTheOtherMemory)
{
    const struct {
        int position;
        bool hasSit;
        bool hasStand;
        Commands sent;
    } kTestCases[] = {
        {kSitDown, true, true, heldFor(700)},
        {kSitDown, true, false, heldFor(700)},
        {kSitDown, false, true, heldFor(4300)},
        {kSitDown, false, false, {}},
        {kStandUp, true, true, heldFor(4300)},
        {kStandUp, true, false, {}},
        {0, true, true, heldFor(4300)},
    };
    for (const auto& testCase : kTestCases) {
        SCOPED_TRACE(testing::Message() << testCase.position << testCase.hasSit << testCase.hasStand);
        beginAnew();
        startWithDesk();
        if (!testCase.hasSit)
            world->platform.defaults.values.remove(QStringLiteral("DevicePosition1"));
        if (!testCase.hasStand)
            world->platform.defaults.values.remove(QStringLiteral("DevicePosition2"));
        QWidget& window = remind(testCase.position);
        press(window, "buttonMemory");
        pass(0.5);
        EXPECT_EQ(commands(), testCase.sent);
        release(window, "buttonMemory");
        EXPECT_EQ(commands(), Commands {kStop});
        EXPECT_TRUE(reminder().actionDone());
    }
}

TEST_F(NotificationWindowControllerTest, upAndDownMoveByMouseAndKey)
{
    startWithDesk();
    QWidget& window = remind(kStandUp);
    for (const auto& [button, command] : {std::pair("buttonUp", kUp), std::pair("buttonDown", kDown)}) {
        SCOPED_TRACE(button);
        press(window, button);
        pass(0.5);
        EXPECT_EQ(commands(), heldFor(command));
        release(window, button);
        EXPECT_EQ(commands(), Commands {kStop});
        focus(window, button);
        QTest::keyPress(&in(window, button), Qt::Key_Return);
        pass(0.5);
        EXPECT_EQ(commands(), heldFor(command));
        QTest::keyRelease(&in(window, button), Qt::Key_Return);
        EXPECT_EQ(commands(), Commands {kStop});
    }
}

TEST_F(NotificationWindowControllerTest, aHoldByKeyIsNotCutByTheWait)
{
    startWithDesk();
    QWidget& window = remind(kStandUp);
    pass(10);
    focus(window, "buttonMemory");
    QTest::keyPress(&in(window, "buttonMemory"), Qt::Key_Space);
    pass(30);
    EXPECT_TRUE(isShown());
    EXPECT_EQ(lastCommand(), 4300);
    QTest::keyRelease(&in(window, "buttonMemory"), Qt::Key_Space);
    EXPECT_EQ(lastCommand(), kStop);
    pass(20.1 + kFade);
    EXPECT_FALSE(isShown());
    EXPECT_FALSE(isSnoozed());
}

TEST_F(NotificationWindowControllerTest, whatHappensDuringAHoldStopsTheDeskOnce)
{
    const struct {
        const char* what;
        std::function<void()> happens;
        Commands sentAtOnce;
        Commands sentOnRelease;
    } kTestCases[] = {
        {"replaced", [this] { remind(kSitDown); }, {}, {kStop}},
        {"main window opened",
            [this] {
                openMainWindow();
                pass(kFade);
            },
            {kStop}, {}},
        {"desk gone", [this] { world->hid.unplug(desk); }, {}, {}},
    };
    for (const auto& testCase : kTestCases) {
        SCOPED_TRACE(testCase.what);
        beginAnew();
        startWithDesk();
        QWidget& window = remind(kStandUp);
        pass(kFade);
        press(window, "buttonDown");
        pass(0.5);
        testCase.happens();
        const Commands sent = commands();
        EXPECT_EQ(
            Commands(std::find(sent.rbegin(), sent.rend(), kDown).base(), sent.end()), testCase.sentAtOnce);
        release(window, "buttonDown");
        EXPECT_EQ(commands(), testCase.sentOnRelease);
    }
}

TEST_F(NotificationWindowControllerTest, theMainWindowClosesItWithoutTouchingTheSchedule)
{
    startWithDesk();
    remind(kStandUp);
    const double before = schedule().currentScheduleInterval();
    openMainWindow();
    pass(kFade);
    EXPECT_FALSE(isShown());
    pass(60);
    EXPECT_EQ(schedule().currentScheduleInterval(), before);

    // While the main window is open a reminder comes as ever.
    remind(kSitDown);
    EXPECT_TRUE(isShown());
    EXPECT_TRUE(menulet().mainWindow().isWindowVisible());
}

TEST_F(NotificationWindowControllerTest, takesNoKeyUntilItHasBeenClicked)
{
    startWithDesk();
    QWidget& window = remind(kStandUp);
    pass(kFade);
    EXPECT_TRUE(refusesKeyboard(window));
    EXPECT_TRUE(window.testAttribute(Qt::WA_ShowWithoutActivating));
    EXPECT_FALSE(qobject_cast<Button*>(window.focusWidget()));
    EXPECT_TRUE(window.windowFlags().testFlag(Qt::WindowStaysOnTopHint));

    const QPoint up = in(window, "buttonUp").mapTo(&window, in(window, "buttonUp").rect().center());
    QTest::mousePress(window.windowHandle(), Qt::LeftButton, {}, up);
    pass(1);
    EXPECT_TRUE(refusesKeyboard(window)); // A change of focus now could cut the hold.
    EXPECT_EQ(lastCommand(), kUp);
    QTest::mouseRelease(window.windowHandle(), Qt::LeftButton, {}, up);
    pass(0.1);
    EXPECT_EQ(lastCommand(), kStop);
    EXPECT_FALSE(refusesKeyboard(window));
    EXPECT_TRUE(window.isVisible());
    QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), &in(window, "buttonSnooze"));

    menulet().dismissNotification();
    pass(kFade);
    remind(kStandUp);
    EXPECT_TRUE(refusesKeyboard(window));
    EXPECT_FALSE(qobject_cast<Button*>(window.focusWidget()));
}

TEST_F(NotificationWindowControllerTest, anAnswerLeavesTheKeyboardWhereItWas)
{
    startWithDesk();
    QWidget& window = remind(kStandUp);
    pass(kFade);
    clickInWindow(window, "buttonSnooze");
    pass(0.1);
    EXPECT_TRUE(isSnoozed());
    EXPECT_TRUE(refusesKeyboard(window));
}

TEST_F(NotificationWindowControllerTest, escapeIsNotNow)
{
    startWithDesk();
    QWidget& window = remind(kStandUp);
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_TRUE(isSnoozed());
    pass(kFade);
    EXPECT_FALSE(isShown());
}

TEST_F(NotificationWindowControllerTest, errorsShowLinkedAndLeaveAfterFifteenSeconds)
{
    start();
    dropInformation("ErrorUrl");
    QWidget& window = remind(kStandUp);
    movePointer(middle(window));
    QMap<QString, QString> errors;
    for (int i = 10; i < 40; ++i)
        errors.insert(QStringLiteral("E%1").arg(i), QStringLiteral("A long story of a desk"));
    postErrors(errors);
    auto& area = in<QScrollArea>(window, "errorArea");
    EXPECT_TRUE(area.isVisible());
    EXPECT_EQ(text(window, "labelErrorText").count(QStringLiteral("href=\"\"")), 30);
    EXPECT_EQ(WindowChecks::accessibleText(area, QAccessible::Name), QStringLiteral("AccessErrorLine"));
    QApplication::processEvents();
    EXPECT_GT(area.verticalScrollBar()->maximum(), 0);
    for (const Button* button : window.findChildren<Button*>())
        EXPECT_FALSE(area.geometry().intersects(button->geometry())) << qPrintable(button->objectName());
    postErrorRemoved();
    pass(15.1);
    EXPECT_FALSE(area.isVisible());
    EXPECT_EQ(text(window, "labelErrorText"), QString());
}

TEST_F(NotificationWindowControllerTest, tabReachesEachControlAndAScreenReaderHearsWhatItDoes)
{
    startWithDesk();
    QWidget& window = remind(kSitDown);
    QApplication::setActiveWindow(&window);
    const QString order = WindowChecks::tabOrder(window).join(u' ');
    EXPECT_EQ(order, QStringLiteral("buttonMemory buttonDown buttonUp buttonSnooze buttonCancel"));
    const struct {
        const char* control;
        const char* name;
        const char* description;
    } kTestCases[] = {
        {"buttonMemory", "Memory1", "AccessMemoryHint"},
        {"buttonDown", "DownButton", "AccessMoveDownHint"},
        {"buttonUp", "UpButton", "AccessMoveUpHint"},
        {"buttonSnooze", "SnoozeButton", ""},
        {"buttonCancel", "SkipButton", ""},
    };
    for (const auto& testCase : kTestCases) {
        SCOPED_TRACE(testCase.control);
        QWidget& control = in(window, testCase.control);
        EXPECT_EQ(QAccessible::queryAccessibleInterface(&control)->role(), QAccessible::Button);
        EXPECT_EQ(
            WindowChecks::accessibleText(control, QAccessible::Name), QString::fromLatin1(testCase.name));
        EXPECT_EQ(WindowChecks::accessibleText(control, QAccessible::Description),
            QString::fromLatin1(testCase.description));
    }
}

TEST_F(NotificationWindowControllerTest, looksAsItIsToLook)
{
    start();
    QWidget& window = remind(kStandUp);
    using Fonts = FontAndTextHandler;
    const std::pair<const char*, QFont> kFonts[] = {{"labelTitle", Fonts::Roman18()},
        {"labelMessage", Fonts::Light14()}, {"calRadialTitle", Fonts::Roman30()},
        {"calRadialSubTitle", Fonts::Light12()}, {"labelTabelHeightTitel", Fonts::Roman14()},
        {"labelTabelHeight", Fonts::Light14()}, {"labelErrorText", Fonts::Light18()},
        {"buttonMemory", Fonts::Light12()}, {"buttonSnooze", Fonts::Light12()},
        {"buttonCancel", Fonts::Light12()}, {"buttonUp", Fonts::Light12()}, {"buttonDown", Fonts::Light12()}};
    for (const auto& [name, font] : kFonts) {
        const QWidget& control = in(window, name);
        EXPECT_EQ(control.font().pixelSize(), font.pixelSize()) << name;
        EXPECT_EQ(control.font().weight(), font.weight()) << name;
        if (qobject_cast<const QLabel*>(&control))
            EXPECT_EQ(control.palette().color(QPalette::WindowText), zelvoTextColor()) << name;
        else
            EXPECT_EQ(in(window, name).grab().toImage().pixelColor(6, 6), zelvoButtonDarkBackgroundColor())
                << name;
    }
}

TEST_F(NotificationWindowControllerTest, everyMessageFitsInEveryLanguageAndDirection)
{
    properties().setActivityMode(1);
    properties().setWeight(999);
    properties().setTablePositionOffset(32000);
    start();
    for (const char* language : {"en", "de", "fr", "es", "nl"}) {
        installTexts(*qApp, QString::fromLatin1(language));
        NotificationWindowController controller(world->workspace);
        QWidget& window = controller.window();
        for (const auto direction : {Qt::LeftToRight, Qt::RightToLeft}) {
            QApplication::setLayoutDirection(direction);
            for (const int position : {kStandUp, kSitDown}) {
                controller.setNotification(std::make_shared<Notification>(position));
                controller.fadeIn();
                const char* const prefix = position == kSitDown ? "StandingMessage%1" : "SittingMessage%1";
                for (int i = 1; i <= 10; ++i) {
                    SCOPED_TRACE(testing::Message() << language << ' ' << prefix << ' ' << i);
                    in<QLabel>(window, "labelTitle")
                        .setText(Bundle::main().localizedString(QString::fromLatin1(prefix).arg(i)));
                    QApplication::processEvents();
                    EXPECT_EQ(WindowChecks::textsThatDoNotFit(window), QStringList());
                }
            }
        }
    }
}
