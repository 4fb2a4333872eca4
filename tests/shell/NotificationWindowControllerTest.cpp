#include "shell/NotificationWindowController.h"

#include "desk/Posture.h"
#include "shell/WindowTest.h"

namespace {
constexpr double kFade = 0.5; // A fade takes 0.4 s.
constexpr double kSnooze = 430;

class NotificationWindowControllerTest : public WindowTest {
protected:
    void startWithDesk()
    {
        WindowTest::startWithDesk();
        set("TimeNotificationDismiss", 41);
        set("TimeNotificationDismissOnAction", 7);
        set("TimeSnooze", kSnooze);
    }
    NotificationWindowController& reminder() { return menulet().notificationWindow(); }
    bool isShown() { return reminder().isWindowVisible(); }
    /// Whether the schedule now runs towards the end of a snooze.
    bool isSnoozed() { return schedule().isScheduled() && schedule().currentScheduleInterval() == kSnooze; }
    void movePointer(QPoint position)
    {
        QCursor::setPos(position);
        QApplication::processEvents();
    }
};
}

TEST_F(NotificationWindowControllerTest, leavesByItselfAndSnoozesUnlessTheDeskWasMoved)
{
    for (const bool isMoved : {false, true}) {
        for (const bool isVisited : {false, true}) {
            SCOPED_TRACE(testing::Message() << isMoved << ' ' << isVisited);
            beginAnew();
            startWithDesk();
            QWidget& window = remind(kStanding);
            pass(40);
            if (isVisited)
                movePointer(window.geometry().center());
            if (isMoved)
                click(window, "buttonUp"); // The wait that runs keeps its length.
            if (isVisited) {
                pass(300); // Never while the pointer rests on it.
                movePointer(kAway);
                pass(isMoved ? 6 : 40);
            }
            pass(0.9);
            EXPECT_TRUE(isShown() && !isSnoozed());
            pass(0.2);
            EXPECT_EQ(isSnoozed(), !isMoved);
            pass(kFade);
            EXPECT_FALSE(isShown());
        }
    }
}

TEST_F(NotificationWindowControllerTest, anAnswerIsTheSchedulesAndTheWindowFades)
{
    const struct {
        const char* button;
        bool hasDesk;
        double interval; ///< seconds to the next reminder
        double later; ///< the same, when the wait of a reminder that nobody touched would have ended
    } kTestCases[] = {
        {"buttonSnooze", true, kSnooze, kSnooze},
        // 14 minutes sitting and 6 standing, once more round; the wait goes on and snoozes.
        {"buttonCancel", true, 1200, kSnooze},
        {"buttonSnooze", false, 0, 0},
        {"buttonCancel", false, 0, 0},
    };
    for (const auto& row : kTestCases) {
        SCOPED_TRACE(testing::Message() << row.button << ' ' << row.hasDesk);
        beginAnew();
        startWithDesk();
        if (!row.hasDesk)
            world->hid.unplug(desk);
        QWidget& window = remind(kStanding);
        pass(kFade);
        focus(window, row.button);
        QTest::keyClick(&in(window, row.button), Qt::Key_Return);
        EXPECT_EQ(schedule().currentScheduleInterval(), row.interval);
        EXPECT_TRUE(isShown());
        pass(kFade);
        EXPECT_FALSE(isShown());
        pass(41);
        EXPECT_EQ(schedule().currentScheduleInterval(), row.later);
    }
}

TEST_F(NotificationWindowControllerTest, theMemoryButtonFallsThroughToTheOtherMemory)
{
    const struct {
        int position;
        const char* forgotten;
        Commands sent;
    } kTestCases[] = {
        {kSitting, "DevicePosition2", heldFor(700)},
        {kSitting, "DevicePosition1", heldFor(4300)},
        {kStanding, "DevicePosition1", heldFor(4300)},
        {kStanding, "DevicePosition2", {}},
        {0, "", heldFor(4300)},
    };
    for (const auto& row : kTestCases) {
        SCOPED_TRACE(testing::Message() << row.position << row.forgotten);
        beginAnew();
        startWithDesk();
        world->platform.defaults.values.remove(QString::fromLatin1(row.forgotten));
        QWidget& window = remind(row.position);
        press(window, "buttonMemory");
        pass(0.5);
        EXPECT_EQ(commands(), row.sent);
        release(window, "buttonMemory");
        EXPECT_EQ(commands(), Commands {kStop});
    }
}

TEST_F(NotificationWindowControllerTest, aHoldIsNotCutByTheWaitButByTheMainWindow)
{
    startWithDesk();
    QWidget& window = remind(kStanding);
    pass(kFade);
    press(window, "buttonMemory");
    pass(50);
    EXPECT_TRUE(isShown());
    EXPECT_EQ(commands().back(), 4300);
    openMainWindow();
    pass(kFade);
    EXPECT_FALSE(isShown());
    EXPECT_EQ(commands().back(), kStop);
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
        for (const int position : {kStanding, kSitting}) {
            QApplication::setLayoutDirection(position == kSitting ? Qt::RightToLeft : Qt::LeftToRight);
            controller.setNotification(std::make_shared<Notification>(position));
            controller.fadeIn();
            for (int i = 1; i <= 10; ++i) {
                const char* const key = position == kSitting ? "StandingMessage%1" : "SittingMessage%1";
                in<QLabel>(controller.window(), "labelTitle")
                    .setText(qtTrId(qPrintable(QString::fromLatin1(key).arg(i))));
                QApplication::processEvents();
                EXPECT_EQ(WindowChecks::textsThatDoNotFit(controller.window()), QStringList())
                    << language << ' ' << key << i;
            }
        }
    }
}
